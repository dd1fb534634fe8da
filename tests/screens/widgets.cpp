// Every screen and every widget is as the tables say, to the letter; the widgets in the order they are drawn.

#include <fstream>
#include <set>

#include "simulated_program.h"

static std::string written(const std::optional<platform::Colour>& colour) {
  if (!colour) return "-";
  const auto number = [](int channel) { return std::to_string(channel); };
  return number(colour->red) + "," + number(colour->green) + "," + number(colour->blue);
}

// The cells of a table's row, "-" for an empty one.
template <typename... Cells>
static std::string cells(const Cells&... values) {
  std::ostringstream line;
  const auto add = [&line](const auto& cell) {
    std::ostringstream text;
    text << cell;
    line << (line.str().empty() ? "" : "\t") << (text.str().empty() ? "-" : text.str());
  };
  (add(values), ...);
  return line.str();
}

static std::string row(const platform::Screen& screen) {
  const char* frames[] = {"title bar", "thin line", "backdrop"};
  return cells(screen.name(), '"' + screen.caption + '"', written(screen.background), screen.client.width,
               screen.client.height, frames[static_cast<int>(screen.frame)], screen.left, screen.top,
               screen.width, screen.height);
}

static std::string row(const std::string& screen, const platform::Widget& widget) {
  const char* alignments[] = {"left", "centre", "right"};
  const char* roles[] = {"decoration", "text", "heading", "button", "check box", "link", "piece"};
  std::ostringstream font, border;
  font << widget.font.family << ' ' << widget.font.points << (widget.font.bold ? " bold" : "");
  if (widget.border) border << written(widget.borderColour) << " " << widget.borderWidth;
  const bool wordless = widget.role == platform::Role::Decoration && widget.text.empty();
  return cells(screen, widget.name, widget.left, widget.top, widget.width, widget.height,
               wordless ? "-" : font.str(), wordless ? "-" : written(widget.textColour),
               written(widget.background), alignments[static_cast<int>(widget.alignment)], border.str(),
               roles[static_cast<int>(widget.role)],
               std::string(widget.visible ? "shown" : "hidden") + (widget.enabled ? "" : ", greyed") +
                   (widget.checked ? ", ticked" : ""),
               widget.picture, '"' + widget.text + '"');
}

TEST(Screens, AreAsDesigned) {
  tests::SimulatedProgram program;
  program.options.playerCount = 4;
  program.options.hideDesktop = 1;
  std::ifstream screens("tests/screens/screens.tsv"), widgets("tests/screens/widgets.tsv");
  std::set<std::string> alike;  // On both boards.
  const auto next = [](std::ifstream& table) {
    std::string line;
    std::getline(table, line);
    return line;
  };
  EXPECT_NE(next(screens) + next(widgets), "");  // What the columns are called.
  for (const char* name : {"Titlefrm", "Startplay2", "Grey", "tolvane", "tolvanecomputer", "Wembickrules",
                           "Wembickrules2", "Wembickrules2b"}) {
    program.desktop.start(name);
    const platform::Screen& screen = *program.desktop.find(name);
    EXPECT_EQ(row(screen), next(screens));
    for (const platform::Widget* widget : screen.drawingOrder()) {
      // Of the computer's board stands there what the other has not got.
      const bool onOther = screen.name() == "tolvanecomputer" && alike.contains(row("tolvane", *widget));
      if (!onOther) {
        EXPECT_EQ(row(name, *widget), next(widgets));
      }
      if (screen.name() == "tolvane") alike.insert(row(name, *widget));
    }
  }
  EXPECT_EQ(next(screens) + next(widgets), "");
}
