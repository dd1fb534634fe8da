#include "game/board.h"

#include "game/saved_game.h"
#include "game/sound.h"
#include "screens/shell/fitscreen.h"
#include "screens/shell/look.h"
#include "screens/shell/screen_names.h"

namespace game {

namespace {

using platform::indexed;

// The left edges of the totals: as many as there are seats in play, from left to right.
constexpr std::array<std::array<float, seats.size()>, seats.size() + 1> totalsLeft{{
    {},
    {},
    {6540, 8440},
    {5710, 7490, 9270},
    {5160, 6820, 8480, 10140},
}};

}  // namespace

tolvane::tolvane(platform::Desktop& desktop, GameOptions& options, GameState& state, std::string_view name)
    : Table(desktop, name), options_(options), state_(state) {
  caption = "Tolvane";
  client = {11895, 8445};
  layOutWidgets();
  connectHandlers();
}

void tolvane::layOutWidgets() {
  using namespace shell::look;
  add(Shape1, "Shape1", picture({2520, 1200, 1455, 6255}));
  Shape1.border = true;
  Shape1.borderColour = {128, 64, 0};
  Shape1.borderWidth = 30;
  add(Image2, "Image2", picture({120, 120, 915, 1260}));
  add(Label1, "Label1", centred({4440, 120, 7455, 1095}, arial(36), orange, seats[0].toPlay));
  add(Label6, "Label6", centred({4440, 1320, 7455, 735}, arial(24), orange, "ROUND 1 OF 4"));
  add(Label8, "Label8", hidden(centred({6480, 2520, 3375, 735}, arialBold(30), orange)));
  add(Label2[throwButton], "Label2(3)", button({5280, 3480, 5805, 615}, arialBold(24), orange, "Throw Dice"));
  const auto home = [](std::size_t i) { return Box{5280 + 1200 * static_cast<float>(i), 4320, 975, 975}; };
  for (std::size_t i = 0; i < diceCount; ++i) {
    add(Label7[i], indexed("Label7", i), picture(home(i)));
    Label7[i].border = true;
  }
  for (std::size_t i = 0; i < diceCount; ++i) {
    add(Label4[i], indexed("Label4", i), tile(home(i), arial(39.75F), orange));
    Label4[i].role = platform::Role::Piece;
    Label4[i].tabStop = diceStop;
  }
  add(Label10, "Label10",
      hidden(centred({5280, 5400, 5775, 375}, arial(15.75F), platform::white,
                     "Drag the dice onto the ship symbols.")));
  add(Label9, "Label9", hidden(centred({5160, 6000, 6015, 735}, arial(30), platform::white)));
  for (std::size_t i = 0; i < icons.size(); ++i) {
    const float down = 1200 * static_cast<float>(i);
    add(Image1[i], indexed("Image1", i), picture({2760, 1440 + down, 975, 975}));
    Image1[i].role = platform::Role::Piece;
    Image1[i].textColour = platform::white;  // Of the keyboard's mark.
    Image1[i].tabStop = iconsStop;
    add(Label3[i], indexed("Label3", i),
        label({120, 1680 + down, 2175, 735}, arial(24), platform::white, icons[i].name, Alignment::Right));
    Label3[i].role = platform::Role::Decoration;  // The icon itself is called so.
    if (icons[i].takes == anyFace) continue;
    add(Label3[icons[i].valueLabel], indexed("Label3", icons[i].valueLabel),
        label({4200, 1680 + down, 495, 735}, arial(24), platform::white, {&icons[i].takes, 1}));
    Label3[icons[i].valueLabel].role = platform::Role::Decoration;
  }
  for (std::size_t i = 0; i < seats.size(); ++i) {
    const Box box{totalsLeft[seats.size()][i], 6840, 1335, 675};
    add(Label5[i], indexed("Label5", i), tile(box, arial(27.75F), seats[i].colour, "0"));
  }
  add(Label2[newGameButton], "Label2(4)",
      button({120, 7920, 2085, 495}, tahomaBold(15.75F), yellow, "New Game"));
  add(Label2[exitButton], "Label2(2)", button({10560, 7920, 1245, 495}, tahomaBold(15.75F), yellow, "Exit"));
  add(Label2[footerCaption], "Label2(0)", centred({2280, 8160, 8175, 285}, arialBold(12), yellow, footer));
  Label2[throwButton].tabStop = throwStop;
  Label2[newGameButton].tabStop = newGameStop;
  Label2[exitButton].tabStop = exitStop;
  for (const platform::Widget& die : Label4) bringToFront(die);
  for (platform::Timer* timer : {&Timer1, &Timer2, &Timer5, &Timer8}) add(*timer);
}

void tolvane::connectHandlers() {
  for (const std::size_t button : {exitButton, throwButton, newGameButton}) {
    Label2[button].onClick = [this, button] { clickButton(button); };
  }
  for (std::size_t die = 0; die < diceCount; ++die) {
    Label4[die].onMouseMove = [this, die](const platform::MouseEvent& mouse) { dieMouseMove(die, mouse); };
    Label4[die].onMouseUp = [this, die](const platform::MouseEvent&) { dieMouseUp(die); };
  }
  Timer1.onTick = [this] { handover(); };
  Timer2.onTick = [this] { flashWinner(); };
  Timer5.onTick = [this] { reveal(); };
  Timer8.onTick = [this] { roll(); };
}

void tolvane::load() {
  shell::fitscreen(desktop(), *this);
  background = {41, 65, 137};
  loadPicture(desktop(), Image2, R"(Images\logo3.jpg)");
  for (std::size_t i = 0; i < icons.size(); ++i) loadPicture(desktop(), Image1[i], icons[i].picture);
  if (options_.restoreSavedGame == 0) {
    state_ = {.currentSeat = 0, .roundNumber = 1, .seatScore = {}};
  }
  showTotals();
  if (options_.restoreSavedGame == 1) {
    presentSeat();
    showRound();
    beginTurn();
  }
  say("Tolvane. " + turnTold() + (personToPlay() ? " T throws the dice." : ""));
}

void tolvane::showTotals() {
  for (std::size_t seat = 0; seat < seats.size(); ++seat) {
    Label5[seat].text = std::to_string(state_.seatScore[seat]);
  }
  const auto playing = static_cast<std::size_t>(options_.playerCount);
  if (playing < 2 || playing >= totalsLeft.size()) return;
  for (std::size_t seat = 0; seat < seats.size(); ++seat) {
    Label5[seat].visible = seat < playing;
    if (seat < playing) Label5[seat].left = totalsLeft[playing][seat];
  }
}

void tolvane::clickButton(std::size_t button) {
  if (button == throwButton) {
    if (refuses(whyNothingMoves())) return;
    if (Label2[throwButton].enabled) {
      throwdice();
    } else {
      say("No throws left. Set all five dice aside.");
    }
  } else if (Timer1.enabled()) {
    say("Turn over.");
  } else if (button == exitButton) {
    leave();
  } else {
    startNewGame();
  }
}

std::string_view tolvane::whyNothingMoves() const {
  if (state_.roundNumber > roundsPerGame) return "End of game.";
  if (Timer1.enabled()) return "Turn over.";
  if (!personToPlay()) return "The computer is playing.";
  if (Timer5.enabled() || Timer8.enabled()) return "Rolling.";
  return {};
}

std::string_view tolvane::whyNoDieMoves() const {
  const std::string_view reason = whyNothingMoves();
  return reason.empty() && board_.throwCount == 0 ? "Throw the dice first." : reason;
}

bool tolvane::refuses(std::string_view reason) {
  if (!reason.empty()) say(reason);
  return !reason.empty();
}

void tolvane::startNewGame() {
  Timer2.disable();
  // A throw still being shown would write its faces on the new game's dice.
  Timer5.disable();
  Timer8.disable();
  abandonTurn();
  state_ = {};
  board_.throwCount = 0;
  board_.flashCount = 0;
  for (std::size_t seat = 0; seat < static_cast<std::size_t>(options_.playerCount); ++seat) {
    Label5[seat].text = "0";
  }
  Timer1.setInterval(1);
  Timer1.enable();
  play(sounds::shipbell);
}

void tolvane::leave() {
  if (!board_.gameFinished) {
    SavedGame saved{options_, state_};
    for (std::size_t seat = 0; seat < seats.size(); ++seat) {
      saved.state.seatScore[seat] = numberShown(Label5[seat].text);
    }
    save(saved);
  }
  desktop().show(shell::titleScreen);
  desktop().unload(name());
  play(sounds::click1);
}

void tolvane::play(std::string_view sound) {
  game::play(desktop(), options_, sound);
}

}  // namespace game
