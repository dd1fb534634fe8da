// A player made of bytes: whatever it does, on any screen at any moment, there are five dice in reach, and
// the game can be played on to its end.
#include <fuzzer/FuzzedDataProvider.h>
#include <iostream>

#include "simulated_program.h"

namespace {

using platform::Key;

constexpr Key keys[] = {Key::Tab,    Key::BackTab, Key::Left,      Key::Right,  Key::Up,
                        Key::Down,   Key::Space,   Key::Backspace, Key::PageUp, Key::PageDown,
                        Key::Return, Key::F1,      Key::Escape,    Key{'1'},    Key{'2'},
                        Key{'3'},    Key{'4'},     Key{'5'},       Key{'6'},    Key{'D'},
                        Key{'R'},    Key{'S'},     Key{'T'},       Key{'W'},    Key{'X'}};

constexpr int waits[] = {1, 5, 20, 249, 250, 251, 399, 1000, 2100, 4000, 60000};

class Game : tests::SimulatedProgram {
 public:
  explicit Game(FuzzedDataProvider& bytes) : bytes_(bytes) {}

  void play(bool toTheEnd) {
    players_ = bytes_.ConsumeIntegralInRange<std::size_t>(1, 4);
    if (bytes_.ConsumeBool()) openBoard(static_cast<int>(players_));
    while (bytes_.remaining_bytes() > 0 && !desktop.ended) {
      act();
      expectWhole();
    }
    if (!toTheEnd) return;
    for (const auto& screen : desktop.openScreens()) {
      desktop.releaseMouse(*screen, {}, platform::leftButton);
    }
    constexpr int patience = 300;  // Four rounds of four turns take less than half of that.
    for (int step = 0; !desktop.ended && !gameOver(); ++step) {
      require(step < patience, "a player can go on to the end of the game");
      goOn();
      expectWhole();
    }
  }

 private:
  void require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "This does not hold: " << what << "\n" << screens() << "\n";
    if (findBoard()) std::cerr << view() << "\n";
    std::abort();
  }

  void expectWhole() {
    require(desktop.ended || (!desktop.openScreens().empty() && screens() != "Grey"), "nobody is stranded");
    require(desktop.find("tolvane") == nullptr || desktop.find("tolvanecomputer") == nullptr,
            "one board at a time");
    if (!findBoard()) return;
    const platform::Size client = desktop.find(board)->client;
    for (std::size_t i = 0; i < game::diceCount; ++i) {
      const platform::MouseEvent middle = middleOf(i);
      require(die(i).visible && 0 <= middle.x && middle.x <= client.width && 0 <= middle.y &&
                  middle.y <= client.height,
              "five dice are in reach");
    }
    require(faces().size() == 5 && faces().find_first_not_of("-123456") == std::string::npos,
            "dice have faces");
  }

  // --- Anything ---

  std::size_t oneOf(std::size_t count) { return bytes_.ConsumeIntegralInRange<std::size_t>(0, count - 1); }

  void act() {
    platform::Screen& screen = *desktop.openScreens()[oneOf(desktop.openScreens().size())];
    const int button = 1 << std::max(0, bytes_.ConsumeIntegralInRange(-5, 2));
    const std::string aimedAt = aim(screen);
    mouse_.time = desktop.now();
    switch (oneOf(8)) {
      case 0:
        mouse_.buttons |= button;
        desktop.pressMouse(screen, mouse_);
        break;
      case 1:
        mouse_.buttons &= ~button;
        desktop.releaseMouse(screen, mouse_, button);
        break;
      case 2:
        desktop.moveMouse(screen, mouse_);
        break;
      case 3:  // The release went elsewhere.
        mouse_.buttons = 0;
        desktop.moveMouse(screen, mouse_);
        break;
      case 4:
        desktop.click(screen.name(), aimedAt);
        break;
      case 5:
        desktop.pressKey(screen.name(), bytes_.PickValueInArray(keys));
        break;
      case 6:
        desktop.advance(bytes_.PickValueInArray(waits));
        break;
      default:
        if (oneOf(16) > 0) return goOn();
        desktop.closeWindow(screen.name());
    }
  }

  // At one of the screen's widgets, whose name it returns, or near it.
  std::string aim(const platform::Screen& screen) {
    const auto widgets = screen.widgets();
    if (widgets.empty()) return "";
    const platform::Widget& widget = *widgets[oneOf(widgets.size())];
    mouse_.x = widget.left + widget.width * static_cast<float>(oneOf(9)) / 6;
    mouse_.y = widget.top + widget.height * static_cast<float>(oneOf(9)) / 6;
    return widget.name;
  }

  // --- What leads to the end of the game ---

  bool findBoard() {
    board = desktop.find("tolvane") ? "tolvane" : "tolvanecomputer";
    return desktop.find(board) != nullptr;
  }

  bool gameOver() { return findBoard() && at("Label6").text == "END OF GAME"; }

  void press(char key) { desktop.pressKey(board, Key{key}); }

  void goOn() {
    if (!findBoard()) {
      openNext();
    } else if (!gameOver()) {
      takeTurn();
    }
    desktop.advance(5000);
  }

  void openNext() {
    for (const char* page : {"Wembickrules", "Wembickrules2", "Wembickrules2b"}) {
      desktop.click(page, "Label3(0)");
    }
    desktop.click("Startplay2", platform::indexed("Label1", players_ - 1));
    desktop.click("Titlefrm", "Label6");
    desktop.click("Titlefrm", "Label5");
  }

  void takeTurn() {
    const bool allThere = std::string_view("654").find_first_not_of(faces()) == std::string_view::npos;
    // Each die is picked up and put down where it is, which sends it home.
    desktop.pressKey(board, Key::Escape);
    for (const std::size_t die : {0U, 1U, 2U, 3U, 4U}) {
      desktop.find(board)->setFocus(this->die(die));
      for (int time = 0; time < 2 && places()[die] != 'h'; ++time) press(' ');
    }
    for (const char face : allThere ? "654" + faces() : "T") press(face);
  }

  FuzzedDataProvider& bytes_;
  std::size_t players_ = 1;  // Of a game that is begun afresh.
  platform::MouseEvent mouse_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const tests::EmptyFolder folder;
  std::filesystem::remove("lastgame.inf");
  FuzzedDataProvider bytes(data, size);
  // To the end of a game goes a part of them at random, as that takes longer than all that came before.
  const std::size_t chance = std::hash<std::string_view>()({reinterpret_cast<const char*>(data), size});
  Game(bytes).play(chance % 32 == 0);
  return 0;
}
