// The board on which two to four people play, and everything a turn consists of.
//
// It stands on `table`, which says what lies where. One class over several files, one for each step of play:
// `throwing`, `reveal`, `setting_aside`, `scoring`, `handover`, `ending`; `keys` and `words` are the same
// board by keyboard and by ear; this file's own source has the layout, the opening and the buttons.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "game/options.h"
#include "game/state.h"
#include "game/table.h"
#include "platform/desktop.h"
#include "screens/shell/screen_names.h"

namespace game {

class tolvane : public Table {
 public:
  tolvane(platform::Desktop& desktop, GameOptions& options, GameState& state,
          std::string_view name = shell::board);

  /// Opens the board: for a fresh game, or for the saved one when `restoreSavedGame` is 1.
  void load() override;

  /// Ends the turn if it is over: five dice lie on icons, or the third throw shows no 6, 5 and 4. Scores it,
  /// moves the seat on and starts the hand-over. Changes nothing the players can see while the turn goes on.
  void checkturnover();

  /// Announces the winner or a draw. Called when four rounds have been played.
  void endofgame();

  /// Throws the dice that are at home.
  void throwdice();

  bool onKey(platform::Key key) override;
  void nameWidgets() override;

 protected:
  // What a board with other players does differently.

  /// Shows the totals that the board opens with, those of the seats in play at their places.
  virtual void showTotals();
  /// Whether a person plays the seat whose turn it is: only then is Throw Dice heard and may dice be moved.
  virtual bool personToPlay() const { return true; }
  /// A seat's turn begins: after the hand-over, or on a resumed board.
  virtual void beginTurn() {}
  /// Drops whatever the board would still do by itself in the turn under way.
  virtual void abandonTurn() {}

  void reveal();
  void play(std::string_view sound);
  void say(std::string_view words) { desktop().say(words); }
  void sayWhereItLies(std::size_t die);

  // The order in which Tab goes over the board.
  static constexpr int throwStop = 1;
  static constexpr int diceStop = 2;
  static constexpr int iconsStop = 3;
  static constexpr int newGameStop = 4;
  static constexpr int exitStop = 5;

  // Members of the button array `Label2`.
  static constexpr std::size_t footerCaption = 0;
  static constexpr std::size_t computerCaption = 1;  // Only where the computer plays.
  static constexpr std::size_t exitButton = 2;
  static constexpr std::size_t throwButton = 3;
  static constexpr std::size_t newGameButton = 4;

  platform::Widget Shape1;                            // The frame around the column of icons.
  platform::Widget Image2;                            // The logo.
  platform::Widget Label1;                            // Status line: whose turn it is.
  platform::WidgetArray Label2;                       // The buttons.
  platform::WidgetArray Label3;                       // 0 to 4 the icons' names; 7, 8 and 9 their values.
  std::array<platform::Widget, seats.size()> Label5;  // The totals of the seats.
  platform::Widget Label6;                            // Round line.
  platform::Widget Label8;                            // Throw counter.
  platform::Widget Label9;                            // Turn score line.
  platform::Widget Label10;                           // The hint to drag the dice.

  platform::Timer Timer1{4000};  // Hand-over to the next seat.
  platform::Timer Timer2{250};   // Flashing of the winner.
  platform::Timer Timer5{1000};  // Reveal of the thrown dice.
  platform::Timer Timer8{250};   // Roll animation.

  GameOptions& options_;
  GameState& state_;
  BoardState board_;

 private:
  void layOutWidgets();
  void connectHandlers();
  void clickButton(std::size_t button);
  void startNewGame();
  void leave();

  /// What keeps the dice from being thrown and moved, in words; empty when nothing does.
  std::string_view whyNothingMoves() const;
  /// What keeps the dice from being moved, in words; empty when nothing does.
  std::string_view whyNoDieMoves() const;
  /// Whether there is such a reason; it is said.
  bool refuses(std::string_view reason);

  void roll();

  void dieMouseMove(std::size_t die, const platform::MouseEvent& mouse);
  void dieMouseUp(std::size_t die);

  void handover();
  void presentSeat();
  void colourBoard(platform::Colour colour);
  void showRound();

  void flashWinner();

  void setAsideByKey(char face);
  void takeBackLast();
  bool useFocus();
  void carry(std::size_t die, const platform::Widget& place);

  std::string dieTold(std::size_t die) const;
  std::string placeTold(std::size_t die) const;
  std::string diceTold() const;
  std::string totalsTold() const;
  std::string turnTold() const;
  std::string seatToPlay() const;
  void sayRefusal(std::size_t icon);

  std::vector<std::size_t> setAside_;    // The dice on icons, in the order in which they were dropped there.
  std::optional<std::size_t> pickedUp_;  // The die that the keyboard has picked up.
};

}  // namespace game
