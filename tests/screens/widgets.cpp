// Every screen and every widget is as the tables say, to the letter; the widgets in the order they are drawn.

#include <fstream>

#include "simulated_program.h"

static std::string written(const std::optional<platform::Colour>& colour) {
  if (!colour) return "-";
  const auto number = [](int channel) { return std::to_string(channel); };
  return number(colour->red) + "," + number(colour->green) + "," + number(colour->blue);
}

static std::string row(const platform::Screen& screen) {
  const char* frames[] = {"title bar", "thin line", "backdrop"};
  std::ostringstream row;
  row << screen.name() << "\t\"" << screen.caption << "\"\t" << written(screen.background) << '\t'
      << screen.client.width << '\t' << screen.client.height << '\t' << frames[static_cast<int>(screen.frame)]
      << '\t' << screen.left << '\t' << screen.top << '\t' << screen.width << '\t' << screen.height;
  return row.str();
}

static std::string row(const std::string& screen, const platform::Widget& widget) {
  const char* alignments[] = {"left", "centre", "right"};
  const char* roles[] = {"decoration", "text", "heading", "button", "check box", "link", "piece"};
  std::ostringstream row;
  row << screen << '\t' << widget.name << '\t' << widget.left << '\t' << widget.top << '\t' << widget.width
      << '\t' << widget.height << '\t';
  if (widget.role == platform::Role::Decoration && widget.text.empty()) {
    row << "-\t-\t";
  } else {
    row << widget.font.family << ' ' << widget.font.points << (widget.font.bold ? " bold\t" : "\t")
        << written(widget.textColour) << '\t';
  }
  row << written(widget.background) << '\t' << alignments[static_cast<int>(widget.alignment)] << '\t';
  if (widget.border) row << written(widget.borderColour) << ' ' << widget.borderWidth;
  row << (widget.border ? "\t" : "-\t") << roles[static_cast<int>(widget.role)] << '\t'
      << (widget.visible ? "shown" : "hidden") << (widget.enabled ? "" : ", greyed")
      << (widget.checked ? ", ticked" : "") << '\t' << (widget.picture.empty() ? "-" : widget.picture)
      << "\t\"" << widget.text << '"';
  return row.str();
}

// What stands in a table below the names of its columns.
static std::string table(const char* file) {
  std::ifstream lines(file);
  std::string columns;
  std::getline(lines, columns);
  return {std::istreambuf_iterator(lines), {}};
}

TEST(Screens, AreAsDesigned) {
  tests::SimulatedProgram program;
  program.options.playerCount = 4;
  program.options.hideDesktop = 1;
  std::string screens, widgets;
  for (const char* name : {"Titlefrm", "Startplay2", "Grey", "tolvane", "tolvanecomputer", "Wembickrules",
                           "Wembickrules2", "Wembickrules2b"}) {
    program.desktop.start(name);
    const platform::Screen& screen = *program.desktop.find(name);
    screens += row(screen) + "\n";
    for (const platform::Widget* widget : screen.drawingOrder()) {
      // Of the computer's board stands there what the other has not got.
      const bool onOther = screen.name() == "tolvanecomputer" &&
                           widgets.find(row("tolvane", *widget) + "\n") != std::string::npos;
      if (!onOther) widgets += row(name, *widget) + "\n";
    }
  }
  EXPECT_EQ(screens, table("tests/screens/screens.tsv"));
  EXPECT_EQ(widgets, table("tests/screens/widgets.tsv"));
}
