// The boards by keyboard and by ear: what each key does and says.

#include "simulated_program.h"

// Presses keys: letters and digits as they are, and these.
static void press(tests::SimulatedProgram& game, std::string_view keys) {
  static const std::map<char, platform::Key> named{
      {'<', platform::Key::Left}, {'>', platform::Key::Right},   {'^', platform::Key::Up},
      {'v', platform::Key::Down}, {'_', platform::Key::Space},   {'-', platform::Key::Backspace},
      {'t', platform::Key::Tab},  {'b', platform::Key::BackTab}, {'e', platform::Key::Escape}};
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
  tests::SimulatedProgram game(2);
  said(game);
  for (const auto& [thrown, keys, wait, places, words] :
       std::initializer_list<std::tuple<std::string_view, std::string_view, int, std::string, std::string>>{
           {"", "6-WD", 0, "hhhhh",
            "Throw the dice first. | Throw the dice first. | ORANGE TO PLAY. ROUND 1 OF 4. | Not thrown."},
           {"36426", "TT6D", 2100, "hhhhh", "Rolling. | Rolling. | Rolling. | Throw 1: 3, 6, 4, 2, 6."},
           {"", "56", 0, "h0hhh", "No 5 in the row. | 6 on SHIP."},
           {"", "4DR", 0, "h02hh",
            "4 on MATE. | In the row: 3, 2, 6. SHIP 6. MATE 4. | In the row: 3, 2, 6. SHIP 6. MATE 4."},
           {"", "---SW", 0, "hhhhh",
            "4 back in the row. | 6 back in the row. | No die is set aside. | Orange 0, Magenta 0. | "
            "ORANGE TO PLAY. ROUND 1 OF 4. THROW 1."},
           // The first arrow enters the row.
           {"", ">>_vv_", 0, "hhhhh", "6 picked up. | CAPTAIN takes a 5."},
           {"", "<_^^_", 0, "h0hhh", "6 picked up. | 6 on SHIP."},
           {"", "-<_e_e", 0, "hhhhh", "6 back in the row. | 6 picked up. | Let go. | 6 picked up. | Let go."},
           {"", "6623", 0, "h0h43", "6 on SHIP. | 6 on CREW. | 2 on CARGO. | CREW and CARGO are taken."},
           {"", "_vvvv_", 0, "hhh43", "6 picked up. | CREW is taken. 6 back in the row."},
           // Whatever puts a die down ends its being picked up.
           {"", "<_6_e", 0, "h0h43", "6 picked up. | 6 on SHIP. | 6 picked up. | Let go."},
           {"41411", "T", 2100, "h0h43", "Throw 2: 4, 4."},
           {"11111", "T", 2100, "h0h43",
            "Throw 3: 1, 1. No 5, no 4. Turn over. Orange scored 0. Orange has 0."},
           {"", "T4D", 4000, "hhhhh",
            "Turn over. | Turn over. | In the row: 1, 1. SHIP 6. CREW 6. CARGO 2. | "
            "Magenta to play. ROUND 1 OF 4."},
           // What the seat before set aside is forgotten, and a die in the hand is thrown with the others.
           {"11111", "WT", 2100, "hhhhh", "MAGENTA TO PLAY. ROUND 1 OF 4. | Throw 1: 1, 1, 1, 1, 1."},
           {"11111", "->_T", 2100, "hhhhh", "No die is set aside. | 1 picked up. | Throw 2: 1, 1, 1, 1, 1."},
           {"11111", "v_1T", 600, "3hhhh", "Pick up a die first. | 1 on CREW."},
       }) {
    SCOPED_TRACE(keys);
    if (!thrown.empty()) game.scriptThrow(thrown);
    press(game, keys);
    game.desktop.advance(wait);
    EXPECT_EQ(game.places(), places);
    EXPECT_EQ(said(game), words);
  }
  std::string names;
  for (const char* widget : {"Label4(0)", "Label4(1)", "Label4(2)", "Image1(0)", "Image1(3)", "Label5(1)"}) {
    names += game.at(widget).spokenName + "; ";
  }
  EXPECT_EQ(names,
            "1, die 1, on CREW; 1, die 2, in the row; die 3, rolling; SHIP, takes a 6, empty; "
            "CREW, takes any die, has 1; Magenta 0; ");
}

TEST(Keys, FindTheirWayOverTheBoard) {
  tests::SimulatedProgram game(2);
  for (const auto& [keys, chosen] : tests::rows<2>(R"(
      _ -   t Label2(3)   b Label2(2)   t Label2(3)   t Label4(0)   t Image1(0)   t Label2(4)   t Label2(2)   t Label2(3)   b Label2(2)   bb Image1(0)
      v Image1(1)   vvvvv Image1(4)  ^ Image1(3)  b Label4(0)  >> Label4(2)  <<<< Label4(0)  >v Image1(3)
      < Label4(1)   t Image1(3))")) {
    press(game, keys);
    EXPECT_EQ(focus(game), chosen) << keys;
  }
  // The third throw takes the button away, the hand-over gives it back.
  press(game, "bb");
  for (const char* faces : {"11111", "22222", "65433"}) {
    game.scriptThrow(faces);
    press(game, "_");
    game.desktop.advance(tests::aWholeThrow);
  }
  EXPECT_EQ(said(game).find("Rolling."), std::string::npos) << "One key has thrown twice.";
  press(game, "_T");
  EXPECT_EQ(said(game),
            "No throws left. Set all five dice aside. | No throws left. Set all five dice aside.");
  press(game, "tb65433");
  EXPECT_EQ(focus(game), "Label2(2)");
  game.desktop.advance(4000);
  press(game, "t");
  EXPECT_EQ(focus(game) + " " + game.at("Label1").text, "Label2(3) MAGENTA TO PLAY");
}

TEST(Ear, IsToldEachScreenAndItsKeysLeadOn) {
  const tests::EmptyFolder folder;
  tests::SimulatedProgram game;
  EXPECT_EQ(said(game), "Tolvane, a dice game. Restart Previous Game, OK for a new game, or Exit.");
  for (const auto& [screen, key, open, words] :
       std::initializer_list<std::tuple<std::string_view, platform::Key, std::string_view, std::string_view>>{
           {"Titlefrm", platform::Key::Tab, "Titlefrm", ""},
           {"Titlefrm", platform::Key::Space, "Titlefrm", "No game was left."},
           {"Titlefrm", platform::Key::Tab, "Titlefrm", ""},
           {"Titlefrm", platform::Key::Return, "Startplay2",
            "Options. Choose sound, the rules, or the number of players."},
           {"Startplay2", platform::Key::Tab, "Startplay2", ""},
           {"Startplay2", platform::Key::Space, "Wembickrules",
            "Page 1 of 3. Summary of the rules. Tolvane is"},
           {"Wembickrules", platform::Key::PageDown, "Wembickrules2", "Page 2 of 3. Throwing the Dice. The"},
           {"Wembickrules2", platform::Key::T, "Wembickrules2", "Throw: "},
           {"Wembickrules2", platform::Key::PageDown, "Wembickrules2b", "Page 3 of 3. Scoring. If a"},
           {"Wembickrules2b", platform::Key::PageUp, "Wembickrules2", "Page 2 of 3. "},
           {"Wembickrules2", platform::Key::Escape, "Startplay2", ""},
           {"Startplay2", platform::Key{'3'}, "tolvane",
            "Tolvane. ORANGE TO PLAY. ROUND 1 OF 4. T throws the dice."}}) {
    SCOPED_TRACE(words);
    game.desktop.pressKey(screen, key);
    game.desktop.advance(3000);
    EXPECT_EQ(game.desktop.openScreens().back()->name(), open);
    EXPECT_EQ(said(game).substr(0, words.size()), words);
  }
  EXPECT_EQ(game.options.playerCount, 3);
}
