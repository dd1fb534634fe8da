#include "screens/title.h"

#include "game/saved_game.h"
#include "game/sound.h"
#include "screens/shell/fitscreen.h"
#include "screens/shell/look.h"
#include "screens/shell/screen_names.h"

namespace screens {

Titlefrm::Titlefrm(platform::Desktop& desktop, game::GameOptions& options, game::GameState& state)
    : Screen(desktop, shell::titleScreen), options_(options), state_(state) {
  using namespace shell::look;
  caption = " ";
  spokenName = "Tolvane";
  background = navy;
  client = {5445, 6570};

  add(Frame1, "Frame1", picture({-30, -120, 5640, 6720}));
  Frame1.background = navy;
  Frame1.textColour = yellow;
  add(Label4, "Label4", centred({330, 120, 4755, 1575}, arialBold(32.25F), yellow, " Tolvane"));
  Label4.role = platform::Role::Heading;
  add(Picture1, "Picture1", picture({330, 1980, 4800, 3120}));
  add(Label6, "Label6", button({750, 5220, 3975, 435}, arialBold(15.75F), yellow, "Restart Previous Game"));
  add(Label5, "Label5", button({930, 5760, 1695, 435}, arialBold(15.75F), yellow, "OK"));
  add(Label7, "Label7", button({2850, 5760, 1695, 435}, arialBold(15.75F), yellow, "Exit"));
  add(Label2, "Label2", centred({-30, 6240, 5535, 285}, arialBold(12), yellow, footer));

  Label5.key = platform::Key::Return;
  Label5.onClick = [this] {
    options_.restoreSavedGame = 0;
    options_.hideDesktop = 1;
    this->desktop().show(shell::backdrop);
    this->desktop().show(shell::optionsScreen);
    this->desktop().unload(name());
    game::play(this->desktop(), options_, sounds::click1);
  };
  Label6.onClick = [this] { restart(); };
  Label7.onClick = [this] { this->desktop().endProgram(); };
}

void Titlefrm::load() {
  shell::centre(desktop(), *this);
  options_.soundOn = 1;
  if (!loadPicture(desktop(), Picture1, R"(Images\opening.jpg)")) shell::fitscreen(desktop(), *this);
  desktop().say("Tolvane, a dice game. Restart Previous Game, OK for a new game, or Exit.");
}

void Titlefrm::restart() {
  game::SavedGame saved{options_, state_};
  const bool found = game::restore(saved);
  // What was read before a bad line does no harm: a new game sets every value again.
  options_ = saved.options;
  state_ = saved.state;
  if (!found) {
    desktop().say("No game was left.");
    return;
  }
  options_.restoreSavedGame = 1;
  if (options_.hideDesktop == 1) desktop().show(shell::backdrop);
  desktop().show(options_.computerOpponent != 0 ? shell::computerBoard : shell::board);
  desktop().unload(name());
  game::play(desktop(), options_, sounds::click1);
  options_.restoreSavedGame = 0;
}

}  // namespace screens
