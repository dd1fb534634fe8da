// The boards by keyboard and by ear: what each key does and says, and a whole game by a player who sees
// nothing.

#include "simulated_program.h"

// Presses keys: letters and digits as they are, and these.
static void press(tests::SimulatedProgram& game, std::string_view keys) {
  static const std::map<char, platform::Key> named{
      {'<', platform::Key::Left},  {'>', platform::Key::Right},   {'^', platform::Key::Up},
      {'v', platform::Key::Down},  {'_', platform::Key::Space},   {'-', platform::Key::Backspace},
      {'t', platform::Key::Tab},   {'b', platform::Key::BackTab}, {'e', platform::Key::Escape},
      {'r', platform::Key::Return}};
  for (const char key : keys) {
    const auto found = named.find(key);
    game.desktop.pressKey(game.board, found == named.end() ? static_cast<platform::Key>(key) : found->second);
  }
}

static std::string said(tests::SimulatedProgram& game) {
  std::string all;
  for (const std::string& words : std::exchange(game.desktop.said, {}))
    all += (all.empty() ? "" : " | ") + words;
  return all;
}

static std::string focus(const tests::SimulatedProgram& game) {
  const platform::Widget* chosen = game.desktop.find(game.board)->focus();
  return chosen ? chosen->name : "";
}

TEST(Keys, SetDiceAsideAndSayWhatTheyDo) {
  struct Row {
    std::string_view keys;
    int wait;  // Milliseconds.
    std::string_view places, said;
  };
  tests::SimulatedProgram game(2);
  EXPECT_EQ(game.desktop.said.back(), "Tolvane. ORANGE TO PLAY. ROUND 1 OF 4. T throws the dice.");
  said(game);
  game.scriptThrow("36426");
  for (const auto& [keys, wait, places, words] : std::initializer_list<Row>{
           {"6-WD", 0, "hhhhh",
            "Throw the dice first. | Throw the dice first. | ORANGE TO PLAY. ROUND 1 OF 4. | Not thrown."},
           {"T", 0, "hhhhh", ""},
           {"T6D", 2100, "hhhhh", "Rolling. | Rolling. | Rolling. | Throw 1: 3, 6, 4, 2, 6."},
           {"5", 0, "hhhhh", "No 5 in the row."},
           {"66", 0, "h0hh3", "6 on SHIP. | 6 on CREW."},
           {"-", 0, "h0hhh", "6 back in the row."},
           {"4DR", 0, "h02hh",
            "4 on MATE. | In the row: 3, 2, 6. SHIP 6. MATE 4. | In the row: 3, 2, 6. SHIP 6. MATE 4."},
           {"--", 0, "hhhhh", "4 back in the row. | 6 back in the row."},
           {"-SW", 0, "hhhhh",
            "No die is set aside. | Orange 0, Magenta 0. | ORANGE TO PLAY. ROUND 1 OF 4. THROW 1."},
           {">>_", 0, "hhhhh", "6 picked up."},  // Die 2; the first arrow enters the row at die 1.
           {"vv_", 0, "hhhhh", "CAPTAIN takes a 5."},
           {"_", 0, "hhhhh", "Pick up a die first."},
           {"<_^^_", 0, "h0hhh", "6 picked up. | 6 on SHIP."},
           {"<_>_", 0, "hhhhh", "6 picked up. | 6 back in the row."},
           {"_e_e", 0, "hhhhh", "4 picked up. | Let go. | 4 picked up. | Let go."},
           {"6623", 0, "40hh3", "6 on SHIP. | 6 on CREW. | 2 on CARGO. | CREW and CARGO are taken."},
       }) {
    SCOPED_TRACE(keys);
    press(game, keys);
    game.desktop.advance(wait);
    if (keys == "6623") continue;
    EXPECT_EQ(game.places(), places);
    EXPECT_EQ(said(game), words);
  }
  EXPECT_EQ(game.places() + said(game),
            "h0h43"
            "6 on SHIP. | 6 on CREW. | 2 on CARGO. | CREW and CARGO are taken.");
  EXPECT_EQ(
      game.die(1).spokenName + "; " + game.icon(0).spokenName + "; " + game.icon(1).spokenName + "; " +
          game.icon(4).spokenName + "; " + game.at("Label5(1)").spokenName,
      "6, die 2, on SHIP; SHIP, takes a 6, has 6; CAPTAIN, takes a 5, empty; CARGO, takes any die, has 2; "
      "Magenta 0");
  game.throwFaces("41411"), said(game);
  game.throwFaces("11111");
  EXPECT_EQ(said(game), "Throw 3: 1, 1. No 5, no 4. Turn over. Orange scored 0. Orange has 0.");
  press(game, "T4D");
  game.desktop.advance(4000);
  EXPECT_EQ(said(game),
            "Turn over. | Turn over. | In the row: 1, 1. SHIP 6. CREW 6. CARGO 2. | "
            "Magenta to play. ROUND 1 OF 4.");
  game.scriptThrow("11111"), game.click("Label2(3)");
  game.desktop.advance(300);
  EXPECT_EQ(game.die(0).spokenName + "; " + game.die(1).spokenName, "1, die 1, in the row; die 2, rolling");
  // What the seat before had set aside is forgotten, and a die in the hand is thrown with the others.
  game.desktop.advance(1700), said(game), press(game, "->_");
  game.scriptThrow("11111"), press(game, "T");
  game.desktop.advance(2000), press(game, "v_");
  EXPECT_EQ(said(game),
            "No die is set aside. | 1 picked up. | Throw 2: 1, 1, 1, 1, 1. | Pick up a die first.");
}

TEST(Keys, FindTheirWayOverTheBoard) {
  tests::SimulatedProgram game(2);
  for (const auto& [keys, chosen] : tests::rows<2>(R"(
      _ -   t Label2(3)   t Label4(0)   t Image1(0)   t Label2(4)   t Label2(2)   t Label2(3)   b Label2(2)   bb Image1(0)
      v Image1(1)   vvvvv Image1(4)  ^ Image1(3)  b Label4(0)  >> Label4(2)  <<<< Label4(0)  >v Image1(3)
      < Label4(1)   t Image1(3))")) {
    press(game, keys);
    EXPECT_EQ(focus(game), chosen) << keys;
  }
  // The third throw takes the button away, the hand-over gives it back; the choice stays with it all the
  // while.
  press(game, "bb");
  for (const char* faces : {"11111", "22222", "65433"}) {
    game.scriptThrow(faces);
    press(game, "_");
    game.desktop.advance(tests::aWholeThrow);
  }
  said(game), press(game, "_T");
  EXPECT_EQ(said(game),
            "No throws left. Set all five dice aside. | No throws left. Set all five dice aside.");
  EXPECT_EQ(focus(game), "Label2(3)");
  press(game, "65433");
  EXPECT_EQ(said(game).substr(0, 22), "6 on SHIP. | 5 on CAPT");
  game.desktop.advance(4000);
  EXPECT_EQ(focus(game) + " " + game.at("Label1").text, "Label2(3) MAGENTA TO PLAY");
  game.heard(), press(game, "bb_");
  EXPECT_EQ(focus(game) + " " + game.heard(), "Label2(4) shipbell");
  // A click with the mouse needs no mark, and what the mouse holds no key can take.
  tests::SimulatedProgram other(2);
  other.throwFaces("66666");
  EXPECT_EQ(focus(other), "");
  other.desktop.pressMouse(*other.desktop.find(other.board), other.middleOf(0));
  press(other, "t6");
  EXPECT_EQ(other.places() + focus(other), "hhhhh");
}

// Whoever hears "What: 1, 2." has heard these numbers.
static std::vector<int> numbersAfter(const std::string& words, const std::string& what) {
  std::vector<int> numbers;
  const auto at = words.rfind(what);
  if (at == std::string::npos) return numbers;
  std::istringstream text(words.substr(at + what.size(), words.find('.', at) - at - what.size()));
  for (int number = 0; text >> number; text.ignore(1)) numbers.push_back(number);
  return numbers;
}

TEST(Ear, IsEnoughForAWholeGameAgainstTheComputer) {
  const tests::EmptyFolder folder;
  tests::SimulatedProgram game;
  game.desktop.pressKey("Titlefrm", platform::Key::Return);
  game.desktop.pressKey("Startplay2", platform::Key{'1'});
  game.board = "tolvanecomputer";
  std::string heard;
  std::array<int, 2> totals{};
  for (int step = 0; step < 2000 && !heard.starts_with("End of game."); ++step) {
    if (game.desktop.said.empty()) game.desktop.advance(100);
    if (game.desktop.said.empty()) continue;
    heard = game.desktop.said.front();
    game.desktop.said.erase(game.desktop.said.begin());
    for (const auto& [seat, name] : {std::pair(0U, "Orange has "), std::pair(1U, "Magenta has ")}) {
      const auto has = numbersAfter(heard, name);
      if (!has.empty()) totals[seat] = has.front();
    }
    if (heard.find("Magenta") != std::string::npos || heard.find("Turn over") != std::string::npos) continue;
    if (heard.find("T throws the dice") != std::string::npos || heard.starts_with("Orange to play"))
      press(game, "T");
    if (!heard.starts_with("Throw ") || game.desktop.find(game.board) == nullptr) continue;
    // On Magenta's turn the keys are refused, and say so.
    for (const char face : {'6', '5', '4'}) press(game, {&face, 1});
    press(game, "D");
    const std::string dice = game.desktop.said.back();
    const bool ready = dice.find("SHIP") != std::string::npos && dice.find("CAPTAIN") != std::string::npos &&
                       dice.find("MATE") != std::string::npos;
    if (dice.find("In the row") == std::string::npos) continue;
    for (const int face : ready ? numbersAfter(dice, "In the row:") : std::vector<int>{}) {
      press(game, std::to_string(face));
    }
    press(game, "T");
  }
  EXPECT_TRUE(heard.starts_with("End of game. ")) << heard;
  EXPECT_EQ(std::to_string(totals[0]) + " " + std::to_string(totals[1]),
            game.at("Label5(0)").text + " " + game.at("Label5(1)").text);
  EXPECT_GT(totals[1], 0);
}

TEST(Ear, IsToldEachScreenAndItsKeysLeadOn) {
  tests::SimulatedProgram game;
  struct Row {
    std::string_view screen;
    platform::Key key;
    std::string_view open, words;
  };
  EXPECT_EQ(said(game), "Tolvane, a dice game. Restart Previous Game, OK for a new game, or Exit.");
  for (const auto& [screen, key, open, words] : std::initializer_list<Row>{
           {"Titlefrm", platform::Key::Return, "Startplay2",
            "Options. Choose sound, the rules, or the number of players."},
           {"Startplay2", platform::Key::Tab, "Startplay2", ""},
           {"Startplay2", platform::Key::Space, "Wembickrules",
            "Page 1 of 3. Summary of the rules. Tolvane is"},
           {"Wembickrules", platform::Key::PageUp, "Wembickrules", ""},
           {"Wembickrules", platform::Key::PageDown, "Wembickrules2", "Page 2 of 3. Throwing the Dice. The"},
           {"Wembickrules2", platform::Key::T, "Wembickrules2", ""},
           {"Wembickrules2", platform::Key::F1, "Wembickrules2", "Throw: "},
           {"Wembickrules2", platform::Key::PageDown, "Wembickrules2b", "Page 3 of 3. Scoring. If a"},
           {"Wembickrules2b", platform::Key::PageUp, "Wembickrules2", "Page 2 of 3. "},
           {"Wembickrules2", platform::Key::Escape, "Startplay2", ""},
           {"Startplay2", platform::Key{'3'}, "tolvane",
            "Tolvane. ORANGE TO PLAY. ROUND 1 OF 4. T throws the dice."}}) {
    SCOPED_TRACE(words);
    game.desktop.pressKey(screen, key);
    EXPECT_EQ(game.desktop.openScreens().back()->name(), open);
    EXPECT_EQ(said(game).substr(0, words.size()), words);
    if (key == platform::Key::T) game.desktop.advance(3000);
  }
  EXPECT_EQ(game.options.playerCount, 3);
}
