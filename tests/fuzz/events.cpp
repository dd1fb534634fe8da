// A player made of bytes: whatever it does, on any screen at any moment, the game stays whole and can be
// played on.
#include <fuzzer/FuzzedDataProvider.h>
#include <iostream>

#include "game/numbers.h"
#include "patient_player.h"

namespace {

using platform::Key;

constexpr Key keys[] = {Key::Tab,    Key::BackTab, Key::Left,      Key::Right,  Key::Up,
                        Key::Down,   Key::Space,   Key::Backspace, Key::PageUp, Key::PageDown,
                        Key::Return, Key::F1,      Key::Escape,    Key{'1'},    Key{'2'},
                        Key{'3'},    Key{'4'},     Key{'5'},       Key{'6'},    Key{'D'},
                        Key{'R'},    Key{'S'},     Key{'T'},       Key{'W'},    Key{'X'}};

constexpr std::array waits{1, 5, 20, 249, 250, 251, 399, 1000, 2100, 2100, 2100, 4000, 4000, 60000, 3600000};

// What a player goes for: on a board, Throw Dice, New Game, Exit, a die and the five icons.
constexpr std::array targets{"Label2(3)", "Label2(3)", "Label2(4)", "Label2(2)", "Label4(0)", "Label4(2)",
                             "Image1(0)", "Image1(1)", "Image1(2)", "Image1(3)", "Image1(4)"};

/// What of a board only play may change.
struct Table {
  int seat = 0;
  int round = 0;
  int throws = 0;  // In this turn; 0 when it is over.
  bool handingOver = false;
  bool rolling = false;
  bool computerToPlay = false;
  std::array<int, 4> totals{};
  std::string faces{};
  std::string places{};
  std::vector<std::pair<float, float>> dice{};

  bool gameOver() const { return round > game::roundsPerGame; }
  /// Nobody at the table but who waits has anything to do.
  bool untouchable() const { return handingOver || rolling || computerToPlay || gameOver(); }
  bool allThere() const { return std::string_view("654").find_first_not_of(faces) == std::string_view::npos; }
  bool allSetAside() const { return places.find_first_of("h?") == std::string::npos; }

  friend bool operator==(const Table&, const Table&) = default;
};

class Game : tests::SimulatedProgram {
  using Plays = tests::PatientPlayer::Plays;

 public:
  explicit Game(FuzzedDataProvider& bytes) : bytes_(bytes) {}

  void play(bool toTheEnd) {
    const int players = bytes_.ConsumeIntegralInRange(1, 4);
    for (int luck = bytes_.ConsumeIntegral<std::uint8_t>(); luck > 0; --luck) desktop.chance().next();
    if (bytes_.ConsumeIntegralInRange(0, 3) > 0) openBoard(players);
    while (bytes_.remaining_bytes() > 0 && !desktop.ended) act();
    if (!toTheEnd) return;
    player_.letGo();
    constexpr int patience = 2000;  // Steps; four rounds of four turns take less than half of that.
    int steps = 0;
    for (; steps < patience && !desktop.ended && !player_.gameOver(); ++steps) goOn(players);
    require(steps < patience, "a player can go on to the end of the game");
  }

 private:
  void require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "This does not hold: " << what << "\n" << screens() << "\n";
    if (player_.findBoard()) std::cerr << view() << "\n";
    std::abort();
  }

  std::optional<Table> table() {
    if (!player_.findBoard()) return std::nullopt;
    // After New Game in mid-turn the old count stands there until the next throw.
    counterIsOld_ = !player_.rolling() && (counterIsOld_ || state.roundNumber == 0);
    const bool counted = at("Label8").visible && !counterIsOld_;
    Table now{.seat = state.currentSeat,
              .round = state.roundNumber,
              .throws = counted ? game::numberShown(at("Label8").text.substr(6)) : 0,
              .handingOver = player_.handingOver(),
              .rolling = player_.rolling(),
              .computerToPlay = player_.computerToPlay()};
    for (std::size_t i = 0; i < 4; ++i) {
      now.totals[i] = game::numberShown(at(platform::indexed("Label5", i)).text);
    }
    bool home = true;
    for (std::size_t i = 0; i < game::diceCount; ++i) {
      const platform::Widget& lying = die(i);
      require(lying.visible, "five dice are seen");
      now.faces += lying.text.empty() ? "-" : lying.text;
      now.dice.emplace_back(lying.left, lying.top);
      home = home && game::samePlace(lying, this->home(i));
    }
    now.places = home ? "hhhhh" : places();
    return now;
  }

  // --- What the player does ---

  void act() {
    const auto open = desktop.openScreens();
    const bool behind = open.size() > 1 && bytes_.ConsumeIntegralInRange(0, 7) == 0;
    screen_ = open[open.size() - (behind ? 2 : 1)].get();
    const int deed = bytes_.ConsumeIntegralInRange(0, 13);
    if (deed >= 11) return wait(waits.at(oneOf(waits.size())));
    if (deed == 10) return goOn(bytes_.ConsumeIntegralInRange(1, 4));
    const auto before = table();
    const bool mayBeSaved = before && !finished_;
    const bool fresh = desktop.find("Startplay2") != nullptr;
    const bool closes = deed == 9 && bytes_.ConsumeIntegralInRange(0, 7) == 0;
    if (closes) {
      desktop.closeWindow(std::string(screen_->name()));
    } else {
      byHand(deed);
    }
    const auto after = table();
    expectWhole(after);
    if (before && after) expectPlay(*before, *after);
    if (before && !after) require(closes || !before->handingOver, "nobody leaves in a hand-over");
    if (!before && after) expectOpening(*after, fresh);
    if (mayBeSaved && !after && !closes) left_ = before;
  }

  /// Does what leads on, with some luck.
  void goOn(int players) {
    const auto before = table();
    const bool fresh = desktop.find("Startplay2") != nullptr;
    if (before && before->seat % 2 == 0 && !before->untouchable()) scriptThrow("65412");
    const bool restarts = left_ && desktop.click("Titlefrm", "Label6");
    const bool waited = !restarts && player_.step(players, players % 2 == 0 ? Plays::ByKeys : Plays::ByMouse);
    desktop.chance().script.clear();
    const auto after = table();
    expectWhole(after);
    if (before && after) waited ? expectTime(*before, *after) : expectPlay(*before, *after);
    if (!before && after) expectOpening(*after, fresh);
  }

  void byHand(int deed) {
    switch (deed) {
      case 0:
        return point(), press();
      case 1:
        return point(), move();
      case 2:
        return release();
      case 3:  // The release went elsewhere.
        mouse_.buttons = 0;
        return move();
      case 4:
        return aim(), press(), release();
      case 5:
        return aim(), press(), aim(), move(), release();
      case 6:
        if (screen_->name() != board) return;
        return aim(die(oneOf(5))), press(), aim(icon(oneOf(5))), move(), release();
      case 7:
        return aim(), press(), point(), move(), release();
      case 8:
        desktop.click(screen_->name(), aim());
        return;
      default:
        return desktop.pressKey(screen_->name(), bytes_.PickValueInArray(keys));
    }
  }

  void point() {
    mouse_.x = static_cast<float>(bytes_.ConsumeIntegral<std::uint8_t>()) * 60 - 1500;
    mouse_.y = static_cast<float>(bytes_.ConsumeIntegral<std::uint8_t>()) * 60 - 1500;
  }

  /// At one of the screen's widgets, whose name it returns.
  std::string aim() {
    const auto widgets = screen_->widgets();
    if (widgets.empty()) return "";
    const bool atTheTable = screen_->name() == board && bytes_.ConsumeBool();
    const platform::Widget& widget =
        atTheTable ? at(targets.at(oneOf(targets.size()))) : *widgets[oneOf(widgets.size())];
    aim(widget);
    return widget.name;
  }

  /// At its middle, or nearly.
  void aim(const platform::Widget& widget) {
    mouse_.x = widget.left + widget.width / 2;
    mouse_.y = widget.top + widget.height / 2 - 15 * static_cast<float>(oneOf(2));
  }

  std::size_t oneOf(std::size_t count) { return bytes_.ConsumeIntegralInRange<std::size_t>(0, count - 1); }

  int button() { return 1 << std::max(0, bytes_.ConsumeIntegralInRange(-5, 2)); }
  // A deed of several steps may close its screen.
  bool open() {
    return std::ranges::any_of(desktop.openScreens(), [this](auto& s) { return s.get() == screen_; });
  }
  void press() {
    mouse_.buttons |= button();
    mouse_.time = desktop.now();
    if (open()) desktop.pressMouse(*screen_, mouse_);
  }
  void move() {
    if (open()) desktop.moveMouse(*screen_, mouse_);
  }
  void release() {
    const int released = button();
    mouse_.buttons &= ~released;
    if (open()) desktop.releaseMouse(*screen_, mouse_, released);
  }

  void wait(int milliseconds) {
    const std::string open = screens();
    auto before = table();
    while (milliseconds > 0) {
      // In steps so short that no two turns end in one; but the end of a game is the same after an hour.
      const bool flashing = before && before->gameOver();
      const int step = !desktop.nextTick() ? milliseconds : std::min(milliseconds, 1000);
      desktop.advance(step);
      milliseconds -= flashing ? milliseconds : step;
      auto after = table();
      expectWhole(after);
      require(screens() == open, "screens come and go by the player's hand");
      if (before) expectTime(*before, *after);
      before = std::move(after);
    }
  }

  // --- What always holds ---

  void expectWhole(const std::optional<Table>& now) {
    const auto count = [this](auto... names) {
      return (std::size_t{0} + ... + (desktop.find(names) ? 1U : 0U));
    };
    const std::size_t pages = count("Wembickrules", "Wembickrules2", "Wembickrules2b");
    const std::size_t others = count("Titlefrm", "Startplay2", "tolvane", "tolvanecomputer");
    require(others <= 1, "one screen leads to the next");
    require(desktop.ended || pages + others > 0, "a program without a screen has ended");
    require(desktop.openScreens().size() == pages + others + count("Grey"), "once each");
    finished_ = now && (finished_ || now->gameOver());
    if (!now) return;
    const int players = options.playerCount;
    require(2 <= players && players <= 4 && (players == 2 || board == "tolvane"), "two to four play");
    require(0 <= now->seat && now->seat < players, "somebody is to play");
    require(now->round <= 5 && now->round >= (now->handingOver ? 0 : 1), "the rounds are counted");
    require(now->throws <= 3, "a turn has three throws");
    for (std::size_t seat = 0; seat < 4; ++seat) {
      require(now->totals[seat] >= 0 && now->totals[seat] <= opened_[seat] + 12 * now->round,
              "nobody has too much");
    }
    const platform::Size client = desktop.find(board)->client;
    const float half = die(0).width / 2;
    require(now->faces.find_first_not_of("-123456") == std::string::npos && now->faces.size() == 5,
            "five dice");
    for (std::size_t i = 0; i < game::diceCount; ++i) {
      const auto [left, top] = now->dice[i];
      require(-half <= left && left <= client.width - half && -half <= top && top <= client.height - half,
              "in reach");
      const auto icon = static_cast<std::size_t>(now->places[i] - '0');
      if (icon >= game::icons.size()) continue;
      require(game::accepts(static_cast<game::IconKind>(icon), now->faces.substr(i, 1), false),
              "icons take their faces");
      require(icon < 3 || std::ranges::count(now->places, now->places[i]) == 1,
              "CREW and CARGO take one die");
    }
    if (now->untouchable()) {
      require(!now->gameOver() || at("Label6").text == "END OF GAME", "the end of the game is seen");
      return;
    }
    require(at("Label2(3)").enabled == (now->throws < 3), "who has a throw left may throw");
    require(!now->allSetAside() && (now->throws < 3 || now->allThere()), "a turn that is over ends");
  }

  void expectOpening(const Table& now, bool fresh) {
    counterIsOld_ = false;
    opened_ = now.totals;
    require(now.faces + now.places == "-----hhhhh" && now.throws == 0,
            "a board opens before the first throw");
    require(fresh || left_, "only a game that was left is taken up again");
    const Table expected = fresh ? Table{.round = 1} : *left_;
    require(now.seat == expected.seat && now.round == expected.round && now.totals == expected.totals,
            "a game begins afresh or where it was left");
  }

  /// The hand moved a board from `before` to `now`.
  void expectPlay(const Table& before, const Table& now) {
    if (before.handingOver) return require(now == before, "a hand-over refuses everything");
    if (now.round == 0) {  // New Game.
      opened_ = now.totals;
      for (int seat = 0; seat < options.playerCount; ++seat)
        require(now.totals[static_cast<std::size_t>(seat)] == 0, "a new game has no points");
      return require(now.seat == 0 && now.handingOver, "a new game begins with Orange");
    }
    if (before.untouchable())
      return require(now == before, "nothing moves while dice roll or another is to play");
    require(now.faces == before.faces && now.round == before.round, "a hand turns no die");
    if (now.handingOver) return expectScore(before, now);
    require(now.totals == before.totals && now.seat == before.seat, "points come with the end of a turn");
    require(now.throws == before.throws + (now.rolling ? 1 : 0), "a throw is counted");
  }

  /// A second at most took a board from `before` to `now`.
  void expectTime(const Table& before, const Table& now) {
    if (before.handingOver == now.handingOver) {
      require(now.totals == before.totals && now.seat == before.seat && now.round == before.round,
              "points come with the end of a turn");
      require(now.dice == before.dice || now.computerToPlay, "dice lie still");
      require(now == before || before.rolling || now.computerToPlay, "nothing happens by itself");
    } else if (now.handingOver) {
      require(before.rolling || before.computerToPlay, "a turn ends with a throw, or a die");
      expectScore(before, now);
    } else {
      require(now.faces + now.places == "-----hhhhh" && now.throws == 0, "the table is cleared");
      require(now.totals == before.totals && now.seat == before.seat, "the seat's turn begins");
      require(now.round == before.round + (now.seat == 0 ? 1 : 0), "a round is a turn for all");
    }
  }

  void expectScore(const Table& before, const Table& now) {
    int points = 0;
    for (std::size_t i = 0; i < game::diceCount && now.allSetAside(); ++i) {
      if (now.places[i] >= '3') points += now.faces[i] - '0';
    }
    require(now.allSetAside() || (before.throws == 3 && !now.allThere()), "a turn ends when it is over");
    auto totals = before.totals;
    totals[static_cast<std::size_t>(before.seat)] += points;
    require(now.totals == totals, "a total rises by its turn's score");
    require(at("Label9").visible && at("Label9").text == std::to_string(points) + " SCORED",
            "the score is shown");
    require(now.seat == (before.seat + 1) % options.playerCount && now.round == before.round,
            "the next seat follows");
  }

  FuzzedDataProvider& bytes_;
  tests::PatientPlayer player_{*this};
  platform::Screen* screen_ = nullptr;  // Where the hand is.
  platform::MouseEvent mouse_;
  std::array<int, 4> opened_{};  // The totals that the game began with.
  std::optional<Table> left_;    // The board that was left with Exit.
  bool counterIsOld_ = false;    // The throw counter shows what was thrown before New Game.
  bool finished_ = false;        // A game has ended on the open board.
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
