#include "screens/options.h"

#include "game/sound.h"
#include "screens/shell/fitscreen.h"
#include "screens/shell/look.h"
#include "screens/shell/screen_names.h"

namespace screens {

namespace {

// A display of this width is filled by a board: there is nothing to choose, the backdrop stays.
constexpr float narrowDisplay = 12000;

constexpr std::array<float, 4> numbersLeft{360, 1680, 2940, 4200};

shell::look::Appearance checkBox(shell::look::Box box, std::string_view text) {
  using namespace shell::look;
  Appearance look = label(box, arialBold(12), yellow, text);
  look.background = navy;
  look.role = platform::Role::CheckBox;
  look.checked = true;
  return look;
}

}  // namespace

Startplay2::Startplay2(platform::Desktop& desktop, game::GameOptions& options)
    : Screen(desktop, shell::optionsScreen), options_(options) {
  using namespace shell::look;
  caption = " ";
  spokenName = "Options";
  background = navy;
  client = {5445, 6570};

  add(Label4, "Label4", centred({330, 120, 4755, 1695}, arialBold(32.25F), yellow, " Tolvane"));
  Label4.role = platform::Role::Heading;
  add(Label6, "Label6", button({720, 1920, 1935, 435}, arialBold(15.75F), yellow, "The Rules"));
  add(Image2, "Image2", picture({3600, 1800, 1500, 2085}));
  add(Check1, "Check1", checkBox({720, 2640, 1695, 375}, "Play Sound"));
  add(Check3, "Check3", hidden(checkBox({720, 3240, 1935, 375}, "Hide Desktop")));
  add(Label2[0], "Label2(0)",
      centred({240, 4080, 5160, 600}, arialBold(20.25F), orange, "Select Number of Players"));
  Label2[0].role = platform::Role::Heading;
  for (std::size_t i = 0; i < Label1.size(); ++i) {
    add(Label1[i], platform::indexed("Label1", i),
        button({numbersLeft[i], 4680, 855, 735}, tahomaBold(26.25F), orange, std::to_string(i + 1)));
    Label1[i].key = static_cast<platform::Key>('1' + i);
    Label1[i].spokenName = i == 0 ? "1 player, against the computer" : Label1[i].text + " players";
    Label1[i].onClick = [this, players = static_cast<int>(i) + 1] { startGame(players); };
  }
  add(Label2[12], "Label2(12)", button({720, 5640, 3315, 375}, tahomaBold(12), yellow, makersPage));
  Label2[12].role = platform::Role::Link;
  add(Label3, "Label3(0)", button({4560, 5640, 735, 375}, arialBold(12.75F), yellow, "Exit"));
  add(Label2[1], "Label2(1)", centred({-30, 6180, 5535, 285}, arialBold(12), yellow, footer));

  Check1.onClick = [this] { game::play(this->desktop(), options_, sounds::click1); };
  Check3.onClick = [this] { switchBackdrop(); };
  for (auto& [index, widget] : Label2) {
    widget.onClick = [this] { this->desktop().openDocument(makersPage); };
  }
  Label3.onClick = [this] {
    this->desktop().show(shell::titleScreen);
    this->desktop().unload(name());
  };
  Label6.onClick = [this] {
    this->desktop().show(shell::rulesPage1);
    game::play(this->desktop(), options_, sounds::click);
  };
}

void Startplay2::load() {
  options_.computerOpponent = 0;
  desktop().say("Options. Choose sound, the rules, or the number of players.");
  shell::centre(desktop(), *this);
  if (!loadPicture(desktop(), Image2, R"(Images\logo2.jpg)")) {
    shell::fitscreen(desktop(), *this);
    return;
  }
  Check3.visible = desktop().displaySize().width > narrowDisplay;
  Check3.checked = options_.hideDesktop != 0;
}

void Startplay2::switchBackdrop() {
  game::play(desktop(), options_, sounds::click1);
  options_.hideDesktop = Check3.checked ? 1 : 0;
  if (Check3.checked) {
    desktop().show(shell::backdrop);
  } else {
    desktop().unload(shell::backdrop);
  }
  desktop().show(name());
}

void Startplay2::startGame(int players) {
  desktop().unload(shell::board);
  options_.playerCount = players;
  options_.soundOn = Check1.checked ? 1 : 0;
  if (players == 1) {
    options_.computerOpponent = 1;
    options_.playerCount = 2;
    desktop().show(shell::computerBoard);
  } else {
    desktop().show(shell::board);
  }
  desktop().unload(shell::rulesPage1);
  desktop().unload(name());
  game::play(desktop(), options_, sounds::click);
}

}  // namespace screens
