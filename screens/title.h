// The title screen: to a new game, to the game left before, or out.
#pragma once

#include "game/options.h"
#include "game/state.h"
#include "platform/desktop.h"

namespace screens {

class Titlefrm final : public platform::Screen {
 public:
  Titlefrm(platform::Desktop& desktop, game::GameOptions& options, game::GameState& state);

  void load() override;

 private:
  void restart();

  platform::Widget Frame1;    // The panel behind everything.
  platform::Widget Label2;    // Footer caption.
  platform::Widget Label4;    // Title.
  platform::Widget Label5;    // OK.
  platform::Widget Label6;    // Restart Previous Game.
  platform::Widget Label7;    // Exit.
  platform::Widget Picture1;  // The painting.

  game::GameOptions& options_;
  game::GameState& state_;
};

}  // namespace screens
