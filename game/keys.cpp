// The board by keyboard. A key takes the way of the hand: it moves and drops a die as the mouse does, so
// whatever refuses the one refuses the other; and where the mouse would meet nothing but silence, a key says
// why.

#include <algorithm>
#include <utility>

#include "game/board.h"
#include "game/setting_aside.h"

namespace game {

using platform::Key;

bool tolvane::onKey(Key key) {
  switch (key) {
    case Key::T:
      throwByKey();
      break;
    case Key::Backspace:
      takeBackLast();
      break;
    case Key::Left:
    case Key::Right:
      moveFocusAlong(diceStop, key == Key::Left ? -1 : 1);
      break;
    case Key::Up:
    case Key::Down:
      moveFocusAlong(iconsStop, key == Key::Up ? -1 : 1);
      break;
    case Key::Space:
    case Key::Return:
      return useFocus();
    case Key::Escape:
      if (pickedUp_) say("Let go.");
      pickedUp_.reset();
      break;
    case Key::D:
      say(diceTold());
      break;
    case Key::S:
      say(totalsTold());
      break;
    case Key::W:
      say(turnTold());
      break;
    case Key::R:
      say(desktop().lastSaid());
      break;
    case Key::F1:
      say("T throws the dice. 1 to 6 sets a die of that face aside, Backspace takes the last one back. Tab, "
          "the arrows "
          "and Space choose dice and icons, Escape lets go. D tells the dice, S the scores, W whose turn it "
          "is, "
          "R the last words again.");
      break;
    default:
      if (key < Key{'1'} || Key{'6'} < key) return false;
      setAsideByKey(static_cast<char>(key));
  }
  return true;
}

void tolvane::throwByKey() {
  if (const std::string_view refusal = whyNothingMoves(); !refusal.empty()) {
    say(refusal);
  } else if (canBeClicked(Label2[throwButton])) {
    activate(Label2[throwButton]);
  } else {
    say("No throws left. Set all five dice aside.");
  }
}

void tolvane::setAsideByKey(char face) {
  if (!mayMoveByKey()) return;
  const std::string_view shown(&face, 1);
  const auto found = std::find_if(Label4.begin(), Label4.end(), [&](const platform::Widget& die) {
    return die.text == shown && samePlace(die, Label7[static_cast<std::size_t>(&die - Label4.data())]);
  });
  if (found == Label4.end()) {
    say("No " + std::string(shown) + " in the row.");
    return;
  }
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    if (diceOn(Image1[icon]) > 0 || !accepts(static_cast<IconKind>(icon), shown, false)) continue;
    carry(static_cast<std::size_t>(found - Label4.begin()), Image1[icon]);
    return;
  }
  say("CREW and CARGO are taken.");
}

void tolvane::takeBackLast() {
  if (!mayMoveByKey()) return;
  if (setAside_.empty()) {
    say("No die is set aside.");
  } else {
    carry(setAside_.back(), Label7[setAside_.back()]);
  }
}

// Throws, picks up, puts down: whatever the piece or button that is chosen is for.
bool tolvane::useFocus() {
  if (focus() == &Label2[throwButton]) {
    throwByKey();
    return true;
  }
  if (!focus() || focus()->role != platform::Role::Piece) return false;
  if (!mayMoveByKey()) return true;
  const auto die = std::find_if(Label4.begin(), Label4.end(),
                                [this](const platform::Widget& piece) { return &piece == focus(); });
  if (const auto carried = std::exchange(pickedUp_, std::nullopt)) {
    const auto icon = iconUnder(*focus());
    carry(*carried, icon && focus() != &Label4[*carried] ? Image1[*icon] : Label7[*carried]);
  } else if (die != Label4.end()) {
    pickedUp_ = static_cast<std::size_t>(die - Label4.begin());
    say(die->text + " picked up.");
  } else {
    say("Pick up a die first.");
  }
  return true;
}

// Says what is in the way where no die may be moved.
bool tolvane::mayMoveByKey() {
  std::string_view refusal = whyNothingMoves();
  if (refusal.empty() && board_.throwCount == 0) refusal = "Throw the dice first.";
  if (!refusal.empty()) say(refusal);
  return refusal.empty();
}

std::string_view tolvane::whyNothingMoves() const {
  if (state_.roundNumber > roundsPerGame) return "End of game.";
  if (Timer1.enabled()) return "Turn over.";
  if (!personToPlay()) return "The computer is playing.";
  if (Timer5.enabled() || Timer8.enabled()) return "Rolling.";
  return {};
}

void tolvane::carry(std::size_t die, const platform::Widget& place) {
  const platform::Widget& carried = Label4[die];
  dieMouseMove(die, {.buttons = platform::leftButton,
                     .x = place.left - carried.left + carried.width / 2,
                     .y = place.top - carried.top + carried.height / 2});
  dieMouseUp(die);
}

}  // namespace game
