// The board on which one person, Orange, plays against the computer, Magenta: `tolvane` with two seats, and a
// player that takes its turns by itself.
#pragma once

#include "computer/decisions.h"
#include "game/board.h"

namespace computer {

class tolvanecomputer final : public game::tolvane {
 public:
  tolvanecomputer(platform::Desktop& desktop, game::GameOptions& options, game::GameState& state);

  void load() override;

 protected:
  void showTotals() override;
  bool personToPlay() const override;
  void beginTurn() override;
  void abandonTurn() override;

 private:
  // The computer's turn, file `turn`: one of these three timers counts at a time.
  void takeThrow();
  void decideNext();
  void glide();

  platform::Timer Timer3{1000};  // The computer's throw.
  platform::Timer Timer4{2000};  // Its decision what to set aside.
  platform::Timer Timer6{20};    // The glide of the chosen die, one step a tick.

  IconsTaken iconTaken{};
  std::size_t movingDie = 0;
  std::size_t targetIcon = 0;
  int glideStep = 0;  // Steps done in the current glide.
};

}  // namespace computer
