// The three pages of rules. Each is a window of its own in front of the options screen; moving on closes the
// page that is left.
#pragma once

#include <array>
#include <string_view>

#include "game/options.h"
#include "game/state.h"
#include "platform/desktop.h"
#include "screens/shell/look.h"

namespace screens {

/// What all pages share.
class RulesPage : public platform::Screen {
 public:
  void load() override;

 protected:
  /// `page` counts from 0.
  RulesPage(platform::Desktop& desktop, game::GameOptions& options, std::size_t page);

  platform::WidgetArray Label1;  // The texts; 0 is the title.
  platform::WidgetArray Label3;  // Navigation: 0 exit, 1 next page, 2 previous page.
  platform::Widget Image1;       // The picture.

  game::GameOptions& options_;

 private:
  void addNavigation(std::size_t index, const shell::look::Box& box, std::string_view text,
                     std::string_view leadsTo, platform::Key key);

  std::size_t page_;
};

/// Page 1: summary and getting ready.
class Wembickrules final : public RulesPage {
 public:
  Wembickrules(platform::Desktop& desktop, game::GameOptions& options);
};

/// Page 2: throwing and setting aside, with a throw to try out (file `try_it_out`).
class Wembickrules2 final : public RulesPage {
 public:
  Wembickrules2(platform::Desktop& desktop, game::GameOptions& options);

  void nameWidgets() override;

 private:
  void throwDice();
  void roll();
  void settle();
  void showFace(std::size_t die, const std::string& face);

  platform::Widget Label2;                               // Throw Dice.
  std::array<platform::Widget, game::diceCount> Label4;  // The dice, greyed until they first roll.

  // Both are set before they run.
  platform::Timer Timer5{250};  // Settles one die after another.
  platform::Timer Timer8{5};    // Roll animation.

  std::array<int, game::diceCount> sampleDieValue{};  // The faces of the current throw; 0 before the first.
  std::size_t sampleDiceSettled = 0;                  // Dice that already show their face.
};

/// Page 3: scoring, an example, and the rules to print.
class Wembickrules2b final : public RulesPage {
 public:
  Wembickrules2b(platform::Desktop& desktop, game::GameOptions& options);

 private:
  platform::Widget Label2;  // Open Rules Document for Printing.
};

}  // namespace screens
