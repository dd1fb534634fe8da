// The board in words, for those who do not see it: what its parts are called, and what is told as it happens.

#include "game/board.h"

namespace game {

namespace {

std::string sentence(const std::string& text) {
  return text.ends_with('!') || text.ends_with('.') ? text : text + ".";
}

std::string takesTold(std::size_t icon) {
  return icons[icon].takes == anyFace ? "takes any die" : std::string("takes a ") + icons[icon].takes;
}

}  // namespace

void tolvane::nameWidgets() {
  // What may no longer be moved has left the hand.
  if (pickedUp_ && !whyNoDieMoves().empty()) pickedUp_.reset();
  for (std::size_t die = 0; die < diceCount; ++die) {
    Label4[die].spokenName = dieTold(die);
    Label4[die].pickedUp = pickedUp_ == die;
  }
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    const std::string faces = facesOn(icon);
    Image1[icon].spokenName = std::string(icons[icon].name) + ", " + takesTold(icon) + ", " +
                              (faces.empty() ? "empty" : "has " + faces);
  }
  for (std::size_t seat = 0; seat < seats.size(); ++seat) {
    Label5[seat].toolTip = seats[seat].name;
    Label5[seat].spokenName = Label5[seat].toolTip + " " + Label5[seat].text;
  }
}

std::string tolvane::dieTold(std::size_t die) const {
  const std::string number = "die " + std::to_string(die + 1);
  if (Timer8.enabled() && die >= board_.diceSettled && atHome(die)) return number + ", rolling";
  if (Label4[die].text.empty()) return number + ", not thrown";
  return Label4[die].text + ", " + number + ", " + placeTold(die);
}

std::string tolvane::placeTold(std::size_t die) const {
  if (atHome(die)) return "in the row";
  if (const auto icon = iconUnder(Label4[die])) return "on " + std::string(icons[*icon].name);
  // What the computer moves is on its way; what a person left there stays when the turn is over.
  return personToPlay() || board_.turnOver ? "beside the icons" : "moving";
}

std::string tolvane::diceTold() const {
  if (Timer8.enabled()) return "Rolling.";
  if (Label4[0].text.empty()) return "Not thrown.";
  const std::string row = facesInRow();
  std::string told = "In the row: " + (row.empty() ? "none" : row) + ".";
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    const std::string faces = facesOn(icon);
    if (!faces.empty()) told += " " + std::string(icons[icon].name) + " " + faces + ".";
  }
  for (std::size_t die = 0; die < diceCount; ++die) {
    if (!atHome(die) && !iconUnder(Label4[die])) told += " " + Label4[die].text + " " + placeTold(die) + ".";
  }
  return told;
}

std::string tolvane::totalsTold() const {
  std::string told;
  for (int seat = 0; seat < options_.playerCount; ++seat) {
    told += (seat == 0 ? "" : ", ") + Label5[static_cast<std::size_t>(seat)].spokenName;
  }
  return told + ".";
}

std::string tolvane::turnTold() const {
  std::string told = sentence(Label1.text) + " " + sentence(Label6.text);
  // New Game leaves the counter on the screen as it was.
  if (board_.throwCount > 0) told += " " + sentence(Label8.text);
  return told;
}

void tolvane::sayWhereItLies(std::size_t die) {
  say((personToPlay() ? "" : seatToPlay() + ": ") + Label4[die].text + (atHome(die) ? " back " : " ") +
      placeTold(die) + ".");
}

void tolvane::sayRefusal(std::size_t icon) {
  say(std::string(icons[icon].name) +
      (icons[icon].takes == anyFace ? " is taken." : " " + takesTold(icon) + "."));
}

std::string tolvane::seatToPlay() const {
  return std::string(seats[static_cast<std::size_t>(state_.currentSeat)].name);
}

}  // namespace game
