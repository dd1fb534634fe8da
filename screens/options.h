// The options screen: sound, the backdrop, the rules, and the number of players that starts a game.
#pragma once

#include <array>
#include <string_view>

#include "game/options.h"
#include "platform/desktop.h"

namespace screens {

/// The maker's web page.
inline constexpr std::string_view makersPage = "https://tolvane.example/";

class Startplay2 final : public platform::Screen {
 public:
  Startplay2(platform::Desktop& desktop, game::GameOptions& options);

  void load() override;

 private:
  void switchBackdrop();
  void startGame(int players);

  platform::Widget Check1;                 // Play Sound.
  platform::Widget Check3;                 // Hide Desktop.
  platform::Widget Image2;                 // The logo.
  std::array<platform::Widget, 4> Label1;  // The numbers of players.
  platform::WidgetArray Label2;            // 0 heading, 1 footer caption, 12 the maker's web address.
  platform::Widget Label3;                 // Exit.
  platform::Widget Label4;                 // Title.
  platform::Widget Label6;                 // The Rules.

  game::GameOptions& options_;
};

}  // namespace screens
