// The board by keyboard. A key takes the way of the hand: it moves and drops a die as the mouse does, so
// whatever refuses the one refuses the other; and a key says why.

#include <algorithm>
#include <map>
#include <utility>

#include "game/board.h"
#include "game/setting_aside.h"

namespace game {

using platform::Key;

bool tolvane::onKey(Key key) {
  const std::map<Key, std::function<void()>> answers{
      {Key::T, [this] { clickButton(throwButton); }},
      {Key::Backspace, [this] { takeBackLast(); }},
      {Key::Left, [this] { moveFocusAlong(diceStop, -1); }},
      {Key::Right, [this] { moveFocusAlong(diceStop, 1); }},
      {Key::Up, [this] { moveFocusAlong(iconsStop, -1); }},
      {Key::Down, [this] { moveFocusAlong(iconsStop, 1); }},
      {Key::Escape,
       [this] {
         if (std::exchange(pickedUp_, std::nullopt)) say("Let go.");
       }},
      {Key::D, [this] { say(diceTold()); }},
      {Key::S, [this] { say(totalsTold()); }},
      {Key::W, [this] { say(turnTold()); }},
      {Key::R, [this] { say(desktop().lastSaid()); }},
      {Key::F1,
       [this] {
         say("T throws the dice. 1 to 6 sets a die of that face aside, Backspace takes the last one back. "
             "Tab, the arrows and Space choose dice and icons, Escape lets go. D tells the dice, S the "
             "scores, W whose turn it is, R the last words again.");
       }},
  };
  if (key == Key::Space || key == Key::Return) return useFocus();
  if (const auto answer = answers.find(key); answer != answers.end()) {
    answer->second();
    return true;
  }
  if (key < Key{'1'} || Key{'6'} < key) return false;
  setAsideByKey(static_cast<char>(key));
  return true;
}

void tolvane::setAsideByKey(char face) {
  if (refuses(whyNoDieMoves())) return;
  const std::string shown(1, face);
  std::size_t die = 0;
  while (die < diceCount && !(atHome(die) && Label4[die].text == shown)) ++die;
  if (die == diceCount) {
    say("No " + shown + " in the row.");
    return;
  }
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    if (!facesOn(icon).empty() || !accepts(static_cast<IconKind>(icon), shown, false)) continue;
    carry(die, Image1[icon]);
    return;
  }
  say("CREW and CARGO are taken.");
}

void tolvane::takeBackLast() {
  if (refuses(whyNoDieMoves())) return;
  if (setAside_.empty()) {
    say("No die is set aside.");
  } else {
    carry(setAside_.back(), Label7[setAside_.back()]);
  }
}

// Throws, picks up, puts down: whatever the piece or button that is chosen is for.
bool tolvane::useFocus() {
  if (focus() == &Label2[throwButton]) {
    clickButton(throwButton);
    return true;
  }
  if (!focus() || focus()->role != platform::Role::Piece) return false;
  if (refuses(whyNoDieMoves())) return true;
  const auto die = std::find_if(Label4.begin(), Label4.end(),
                                [this](const platform::Widget& piece) { return &piece == focus(); });
  if (pickedUp_) {
    const auto icon = iconUnder(*focus());
    carry(*pickedUp_, icon && focus() != &Label4[*pickedUp_] ? Image1[*icon] : Label7[*pickedUp_]);
  } else if (die != Label4.end()) {
    pickedUp_ = static_cast<std::size_t>(die - Label4.begin());
    say(die->text + " picked up.");
  } else {
    say("Pick up a die first.");
  }
  return true;
}

void tolvane::carry(std::size_t die, const platform::Widget& place) {
  const platform::Widget& carried = Label4[die];
  dieMouseMove(die, {.buttons = platform::leftButton,
                     .x = place.left - carried.left + carried.width / 2,
                     .y = place.top - carried.top + carried.height / 2});
  dieMouseUp(die);
}

}  // namespace game
