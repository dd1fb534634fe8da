// Every widget of every screen stands where the table says, with that font, those colours and, to the letter,
// that text.

#include <fstream>
#include <map>

#include "simulated_program.h"

// "255,128,0"; "-" for none.
static std::string written(const std::optional<platform::Colour>& colour) {
  if (!colour) return "-";
  const auto number = [](int channel) { return std::to_string(channel); };
  return number(colour->red) + "," + number(colour->green) + "," + number(colour->blue);
}

TEST(Screens, ShowEveryWidgetAsDesigned) {
  tests::SimulatedProgram program;
  program.options.playerCount = 4;
  std::map<std::string, std::size_t> listed;
  std::ifstream table("tests/screens/widgets.tsv");
  std::string line;
  std::getline(table, line);
  while (std::getline(table, line)) {
    std::array<std::string, 15> cell;
    std::istringstream cells(line);
    for (std::string& text : cell) std::getline(cells, text, '\t');
    SCOPED_TRACE(cell[0] + " " + cell[1]);
    if (++listed[cell[0]] == 1) program.desktop.start(cell[0]);
    const platform::Widget* widget = program.desktop.widget(cell[0], cell[1]);
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(std::tuple(widget->left, widget->top), std::tuple(std::stof(cell[2]), std::stof(cell[3])));
    EXPECT_EQ(widget->visible, cell[13] == "1");
    EXPECT_EQ(widget->text, cell[14]);
    if (cell[6] == "-") continue;  // A picture, as large as what it shows, or a frame.
    EXPECT_EQ(std::tuple(widget->width, widget->height), std::tuple(std::stof(cell[4]), std::stof(cell[5])));
    EXPECT_EQ(widget->font, (platform::Font{cell[6], std::stof(cell[7]), cell[8] == "1"}));
    EXPECT_EQ(written(widget->textColour) + " on " + written(widget->background),
              cell[9] + " on " + cell[10]);
    const char* alignments[] = {"left", "centre", "right"};
    EXPECT_EQ(alignments[static_cast<int>(widget->alignment)], cell[11]);
    EXPECT_EQ(widget->border, cell[12] == "1");
  }
  EXPECT_EQ(listed.size(), 7U);
  for (const auto& [screen, count] : listed) {
    EXPECT_EQ(program.desktop.find(screen)->drawingOrder().size(), count) << screen;
  }
}
