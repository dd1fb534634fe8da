// A player made of bytes: whatever it does, on any screen at any moment, there are five dice in reach, and
// the game can be played on to its end.
#include <fuzzer/FuzzedDataProvider.h>
#include <iostream>

#include "simulated_program.h"

namespace {

using platform::Key;

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
  }

  // --- Anything ---

  std::size_t oneOf(std::size_t count) { return bytes_.ConsumeIntegralInRange<std::size_t>(0, count - 1); }

  void act() {
    platform::Screen& screen = *desktop.openScreens()[oneOf(desktop.openScreens().size())];
    const int button = 1 << std::max(0, bytes_.ConsumeIntegralInRange(-5, 2));
    const std::string aimedAt = aim(screen);
    mouse_.time = desktop.now();
    switch (oneOf(6)) {
      case 0:
        mouse_.buttons ^= button;
        if (mouse_.buttons & button) desktop.pressMouse(screen, mouse_);
        if (!(mouse_.buttons & button)) desktop.releaseMouse(screen, mouse_, button);
        break;
      case 1:
        if (oneOf(4) == 0) mouse_.buttons = 0;  // The release went elsewhere.
        desktop.moveMouse(screen, mouse_);
        break;
      case 2:
        desktop.click(screen.name(), aimedAt);
        break;
      case 3:
        desktop.pressKey(screen.name(), anyKey());
        break;
      case 4:
        desktop.advance(bytes_.PickValueInArray({1, 5, 20, 249, 250, 251, 399, 1000, 2100, 4000, 60000}));
        break;
      default:
        if (oneOf(16) > 0) return goOn();
        desktop.closeWindow(screen.name());
    }
  }

  Key anyKey() {
    constexpr std::string_view characters = " 123456DRSTWX";
    if (bytes_.ConsumeBool()) return Key{characters[oneOf(characters.size())]};
    return Key{static_cast<int>(Key::Tab) + static_cast<int>(oneOf(12))};
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

  void goOn() {
    if (!findBoard()) openNext();
    if (findBoard() && !gameOver()) takeTurn();
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
    for (std::size_t i = 0; i < game::diceCount; ++i) drag(i, home(i).left, home(i).top);
    for (const char key : allThere ? "654" + faces() : "T") desktop.pressKey(board, Key{key});
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
