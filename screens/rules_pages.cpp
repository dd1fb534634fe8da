#include "screens/rules_pages.h"

#include <span>

#include "game/sound.h"
#include "screens/shell/fitscreen.h"
#include "screens/shell/look.h"
#include "screens/shell/screen_names.h"

namespace screens {

using shell::look::Box;

namespace {

struct Text {
  std::size_t index;  // In `Label1`.
  Box box;
  platform::Font font;
  platform::Role role;
  std::string_view text;
};

constexpr Text heading(std::size_t index, Box box, std::string_view text) {
  return {index, box, shell::look::arialBold(12), platform::Role::Heading, text};
}

constexpr Text body(std::size_t index, Box box, std::string_view text) {
  return {index, box, shell::look::arial(12), platform::Role::Text, text};
}

constexpr Text boldBody(std::size_t index, Box box, std::string_view text) {
  return {index, box, shell::look::arialBold(12), platform::Role::Text, text};
}

constexpr std::array page1Texts{
    heading(1, {120, 840, 2430, 285}, "Summary of the rules"),
    body(3, {120, 1320, 11415, 1005}, "Tolvane is a dice game that represents trading on sea voyages."),
    body(4, {120, 1800, 11295, 1605},
         "Players take turns to throw five dice. A player may take up to three throws of the dice on their "
         "turn. After each throw, the player can choose to set aside some of the dice scores and continue to "
         "throw the remaining dice. To score on their turn, the player must throw at least one 6, one 5 and "
         "one 4. These represent the ship, the captain and the mate. The other two dice represent the profit "
         "from the voyage and are the player's score for the round. "),
    body(2, {120, 3360, 11535, 645}, "After four rounds the player with the highest score is the winner. "),
    heading(9, {120, 4440, 2355, 285}, "Getting ready to play"),
    body(8, {120, 4920, 11655, 645},
         "Before the game begins, the players can set the parameters of the game."),
    body(11, {120, 5400, 7935, 1245},
         "The game is designed for 2 - 4 players or one player against the computer. To begin the game click "
         "the button corresponding to the number of players. Players then take their turn in the following "
         "order: Orange, Magenta, Yellow, Green. "),
    body(13, {120, 6720, 7575, 1485},
         "If there is just one player, select button '1' to play against the computer. The computer always "
         "plays as the second player - Magenta."),
};

constexpr std::array page2Texts{
    heading(1, {120, 600, 2085, 285}, "Throwing the Dice"),
    body(2, {120, 1080, 11415, 885},
         "The player whose turn it is clicks the button labelled 'Throw Dice'. Five numbers are then "
         "randomly generated, corresponding to the dice throw. Depending on the scores on the dice, the "
         "player may decide to set aside some of the dice before throwing the remaining dice. The player has "
         "a maximum of three throws in each round."),
    body(7, {120, 2160, 6255, 525}, "Click the button on the right to try out throwing the dice."),
    heading(5, {120, 3600, 11655, 645}, "Setting Dice Aside"),
    body(3, {120, 4080, 7695, 645},
         "To set aside the score on a die, the player drags the score of the die onto one of the five icons "
         "to the left of the screen. These icons are as follows:"),
    boldBody(4, {720, 4800, 6495, 405}, "SHIP - Ship's Wheel icon - 6"),
    boldBody(10, {720, 5160, 6615, 405}, "CAPTAIN - Sextant icon - 5"),
    boldBody(11, {720, 5520, 6735, 405}, "MATE - Ship's Compass icon - 4"),
    boldBody(12, {720, 5880, 7335, 405}, "CREW - Anchor icon - any score"),
    boldBody(13, {720, 6240, 6015, 405}, "CARGO - Bananas icon - any score"),
    body(8, {120, 6840, 11415, 885},
         "The top three icons will only accept scores of the correct value. Only a score of 6 can be dragged "
         "onto the Ship's Wheel icon, only a score of 5 can be dragged onto the Sextant icon and only a "
         "score of 4 can be dragged onto the Ship's Compass icon. A score of any value can be dragged onto "
         "the bottom two icons."),
    body(6, {120, 7920, 11775, 645},
         "After setting aside any dice that they wish to keep, the player should click the 'Throw Dice' "
         "button to throw the remaining dice."),
};

constexpr std::array page3Texts{
    heading(8, {120, 720, 3945, 285}, "Scoring"),
    body(10, {120, 1200, 11655, 645},
         "If a player has not managed to throw a 6, a 5 and a 4 by their third throw, they receive zero "
         "points for the round and the turn passes to the next player."),
    body(11, {120, 1920, 11655, 1125},
         "On the other hand, if the player has thrown a 6, a 5 and a 4, these dice scores should be dragged "
         "onto the SHIP, CAPTAIN and MATE icons and the other two dice scores should be dragged onto the "
         "CREW and CARGO icons. The player will then receives points equal to the scores on these last two "
         "dice. The turn will then pass to the next player."),
    body(13, {120, 3240, 11655, 645},
         "Players do not have to make three throw of the dice. They can keep all five dice scores after "
         "their first or their second throw."),
    heading(1, {120, 4080, 1935, 285}, "A Quick Example"),
    body(2, {120, 4530, 6735, 405}, "The following is an illustration of how the game is played."),
    body(5, {120, 5040, 9075, 1965},
         "On my first throw, my five dice show the score: 3, 2, 4, 6, 1. I decide to keep the 6 and the 4. I "
         "drag the 6 onto the SHIP icon and drag the 4 onto the MATE icon. Then I throw the remaining three "
         "dice. The scores I make with these three dice are: 5, 5, 1. I drag one 5 onto the CAPTAIN icon and "
         "decide to keep the other 5 by dragging it onto the CREW icon. With my third and final throw, I "
         "throw the one remaining die. I throw a 3 with this die. I drag the 3 onto the CARGO icon. My turn "
         "is now completed and I receive 8 points, which is the total of the points that I have placed on "
         "the CREW and CARGO icons."),
    heading(3, {120, 7200, 960, 285}, "The End"),
    body(4, {120, 7680, 6735, 645},
         "There are four rounds in a game. After the four rounds, the player with the highest total of "
         "points is the winner."),
};

struct PageDesign {
  std::string_view name;
  std::size_t numberLabel;  // In `Label1`.
  std::string_view picture;
  Box pictureBox;
  std::span<const Text> texts;
};

constexpr std::array pages{
    PageDesign{shell::rulesPage1, 7, R"(images\start.jpg)", {8640, 4320, 2835, 3525}, page1Texts},
    PageDesign{shell::rulesPage2, 20, R"(images\board.jpg)", {8040, 3840, 3600, 2700}, page2Texts},
    PageDesign{shell::rulesPage3, 20, R"(images\example.jpg)", {9720, 4440, 1800, 2580}, page3Texts}};

}  // namespace

RulesPage::RulesPage(platform::Desktop& desktop, game::GameOptions& options, std::size_t page)
    : Screen(desktop, pages[page].name), options_(options), page_(page) {
  using namespace shell::look;
  const PageDesign& design = pages[page];
  const std::string number = "Page " + std::to_string(page + 1) + " of 3";
  frame = platform::Frame::ThinLine;
  background = {0, 0, 255};
  client = {12000, 9000};

  add(Image1, "Image1", picture(design.pictureBox));
  spokenName = "The Rules of Tolvane, " + number;
  add(Label1[design.numberLabel], platform::indexed("Label1", design.numberLabel),
      label({0, 0, 1065, 240}, arialBold(9.75F), yellow, number));
  add(Label1[0], "Label1(0)",
      centred({0, 120, 12000, 360}, arialBold(15.75F), yellow, "The Rules of Tolvane"));
  Label1[0].role = platform::Role::Heading;
  for (const Text& text : design.texts) {
    add(Label1[text.index], platform::indexed("Label1", text.index),
        label(text.box, text.font, yellow, text.text));
    Label1[text.index].role = text.role;
  }
  addNavigation(0, {11160, 60, 735, 375}, "Exit", "", platform::Key::Escape);
  if (page + 1 < pages.size()) {
    addNavigation(1, {10080, 8520, 1815, 375}, ">> Next Page", pages[page + 1].name, platform::Key::PageDown);
  }
  if (page > 0) {
    addNavigation(2, {7680, 8520, 2295, 375}, "<< Previous Page", pages[page - 1].name,
                  platform::Key::PageUp);
  }
}

void RulesPage::addNavigation(std::size_t index, const Box& box, std::string_view text,
                              std::string_view leadsTo, platform::Key key) {
  using namespace shell::look;
  add(Label3[index], platform::indexed("Label3", index), button(box, arialBold(12.75F), yellow, text));
  Label3[index].key = key;
  Label3[index].onClick = [this, leadsTo] {
    if (!leadsTo.empty()) desktop().show(leadsTo);
    desktop().unload(name());
    game::play(this->desktop(), options_, sounds::click1);
  };
}

void RulesPage::load() {
  const PageDesign& design = pages[page_];
  shell::fitscreen(desktop(), *this);
  const auto own = loadPicture(desktop(), Image1, design.picture);
  // What a file says of itself may be nonsense.
  if (own && Image1.left + own->width <= client.width && Image1.top + own->height <= client.height) {
    Image1.width = own->width;
    Image1.height = own->height;
  }
  std::string told = Label1[design.numberLabel].text;
  for (const Text& text : design.texts) {
    told += (told.ends_with('.') || told.ends_with(' ') ? " " : ". ") + std::string(text.text);
  }
  desktop().say(told);
}

Wembickrules::Wembickrules(platform::Desktop& desktop, game::GameOptions& options)
    : RulesPage(desktop, options, 0) {}

Wembickrules2::Wembickrules2(platform::Desktop& desktop, game::GameOptions& options)
    : RulesPage(desktop, options, 1) {
  using namespace shell::look;
  add(Label2, "Label2",
      button({6600, 2160, 2055, 495}, tahomaBold(15.75F), game::seats[3].colour, "Throw Dice"));
  for (std::size_t die = 0; die < game::diceCount; ++die) {
    const Box box{5880 + 720 * static_cast<float>(die), 2760, 615, 615};
    add(Label4[die], platform::indexed("Label4", die), tile(box, arialBold(24), yellow));
    Label4[die].enabled = false;
  }
  add(Timer5);
  add(Timer8);
  Label2.key = platform::Key::T;
  Label2.onClick = [this] { throwDice(); };
  Timer5.onTick = [this] { settle(); };
  Timer8.onTick = [this] { roll(); };
}

Wembickrules2b::Wembickrules2b(platform::Desktop& desktop, game::GameOptions& options)
    : RulesPage(desktop, options, 2) {
  using namespace shell::look;
  add(Label2, "Label2",
      button({120, 8520, 4275, 375}, arialBold(12), yellow, "Open Rules Document for Printing"));
  Label2.onClick = [this] {
    this->desktop().openDocument("Tolvane Rules.doc");
    game::play(this->desktop(), options_, sounds::click1);
  };
}

}  // namespace screens
