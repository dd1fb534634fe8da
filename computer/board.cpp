#include "computer/board.h"

#include "screens/shell/look.h"

namespace computer {

namespace {

constexpr int computerSeat = 1;

// The caption of the computer's seat needs room at the foot: from the throw counter down all stands higher.
constexpr float raisedBy = 120;

}  // namespace

tolvanecomputer::tolvanecomputer(platform::Desktop& desktop, game::GameOptions& options,
                                 game::GameState& state)
    : tolvane(desktop, options, state, shell::computerBoard) {
  using namespace shell::look;
  for (platform::Widget* widget : {&Label2[throwButton], &Label8, &Label9, &Label10}) widget->top -= raisedBy;
  for (std::size_t die = 0; die < game::diceCount; ++die) {
    Label4[die].top -= raisedBy;
    Label7[die].top -= raisedBy;
  }
  for (const std::size_t seat : {0U, 1U}) {
    Label5[seat].left = 6480 + 1920 * static_cast<float>(seat);
    Label5[seat].top = 6720;
  }
  for (const std::size_t seat : {2U, 3U}) {
    const float down = 480 * static_cast<float>(seat - 2);
    static_cast<Appearance&>(Label5[seat]) =
        hidden(tile({10560, 6240 + down, 855, 315}, arial(8.25F), game::seats[computerSeat].colour, "0"));
  }
  add(Label2[computerCaption], "Label2(1)",
      label({5280, 7440, 5655, 405}, arialBold(15.75F), game::seats[computerSeat].colour,
            "The computer is playing as magenta"));
  for (const platform::Widget& die : Label4) bringToFront(die);
  for (platform::Timer* timer : {&Timer3, &Timer4, &Timer6}) add(*timer);
  Timer3.onTick = [this] { takeThrow(); };
  Timer4.onTick = [this] { decideNext(); };
  Timer6.onTick = [this] { glide(); };
}

void tolvanecomputer::load() {
  options_.playerCount = 2;
  options_.computerOpponent = 1;
  tolvane::load();
}

void tolvanecomputer::showTotals() {
  for (const std::size_t seat : {0U, 1U}) Label5[seat].text = std::to_string(state_.seatScore[seat]);
}

bool tolvanecomputer::personToPlay() const {
  return state_.currentSeat != computerSeat;
}

void tolvanecomputer::beginTurn() {
  if (!personToPlay()) Timer3.enable();
}

void tolvanecomputer::abandonTurn() {
  Timer3.disable();
  Timer4.disable();
  Timer6.disable();
  glideStep = 0;
  iconTaken = {};
}

}  // namespace computer
