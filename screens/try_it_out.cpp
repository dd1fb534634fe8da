// The throw to try out on page 2 of the rules: no scoring and no dragging, it only shows what a throw looks
// like. With sound the roll waits for the cup and dice to be heard.

#include "game/sound.h"
#include "game/throwing.h"
#include "screens/rules_pages.h"

namespace screens {

void Wembickrules2::throwDice() {
  for (platform::Widget& die : Label4) die.text.clear();
  platform::Chance& chance = desktop().chance();
  chance.reseed();
  for (int& face : sampleDieValue) face = game::drawFace(chance, face);
  const bool sound = options_.soundOn == 1;
  Timer5.setInterval(sound ? 1500 : 300);
  Timer8.setInterval(sound ? 1200 : 100);
  sampleDiceSettled = 0;
  Timer5.enable();
  Timer8.enable();
  game::play(desktop(), options_, sounds::cupdice);
}

void Wembickrules2::roll() {
  Timer8.setInterval(5);
  for (std::size_t die = sampleDiceSettled; die < game::diceCount; ++die) {
    showFace(die, game::rollingFace(desktop().chance()));
  }
  if (sampleDiceSettled == game::diceCount) Timer8.disable();
}

void Wembickrules2::settle() {
  Timer5.setInterval(250);
  showFace(sampleDiceSettled, std::to_string(sampleDieValue[sampleDiceSettled]));
  ++sampleDiceSettled;
  if (sampleDiceSettled < game::diceCount) return;
  Timer5.disable();
  std::string told;
  for (const platform::Widget& die : Label4) told += (told.empty() ? "Throw: " : ", ") + die.text;
  desktop().say(told + ".");
}

void Wembickrules2::nameWidgets() {
  for (std::size_t die = 0; die < game::diceCount; ++die) {
    const std::string number = "die " + std::to_string(die + 1);
    const bool rolling = Timer8.enabled() && die >= sampleDiceSettled;
    Label4[die].spokenName = rolling               ? number + ", rolling"
                             : Label4[die].enabled ? Label4[die].text + ", " + number
                                                   : number + ", not thrown";
  }
}

void Wembickrules2::showFace(std::size_t die, const std::string& face) {
  Label4[die].enabled = true;
  Label4[die].text = face;
}

}  // namespace screens
