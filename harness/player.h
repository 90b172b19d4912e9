/// A user who knows the client's windows and how to operate them.
#pragma once

#include <QString>

#include "harness/program.h"
#include "harness/user.h"

namespace korvanta::harness {

/// A window that the main window's menu opens.
struct SideWindow {
  const char* name;
  const char* shortcut;
  const char* title;
};
constexpr SideWindow kStatistics{"statistics", "ctrl+l", "Search Online User"};
constexpr SideWindow kNews{"news", "F3", "News"};
constexpr SideWindow kTournament{"tournament", "ctrl+t", "Tournament Window"};
constexpr SideWindow kSideWindows[] = {kStatistics, kNews, kTournament};

/// A box of the research board, counted as a player reads it. The Golden Knowledge is behind level
/// 4 of any row.
struct Box {
  int row;  ///< from 0: Military, Industry, Population, Defense
  int level;
};

class Player {
 public:
  Player(const User& user, Program& program) : Player(user, program, program.pid()) {}
  /// For a program that starts the client: `owner` is the process whose windows count, or
  /// User::kAnyClient on a display that nobody else uses.
  Player(const User& user, Program& program, qint64 owner)
      : user_(user), program_(program), owner_(owner) {}

  /// Waits until the splash is over and the main window and the login dialog are there.
  void WaitForStart();
  /// Fills in the open login dialog and presses Enter in it.
  void Login(const QString& name, const QString& password);
  /// Waits until the main window's title ends with `state`: "Connected" or "Disconnected".
  void WaitForState(const QString& state);
  /// Types a line into the chat input and sends it.
  void Say(const QString& line);
  /// Waits until the message view holds `text`; returns all that it holds.
  QString WaitForMessage(const QString& text);
  /// Presses a shortcut of the main window.
  void Choose(const QString& shortcut);
  /// Opens the window by its shortcut, or raises it.
  Window Open(const SideWindow& side);
  /// Opens the menu of a box by the keyboard.
  void OpenBoxMenu(const Box& box) const;
  /// Chooses an item, counted from 1, of the popup menu that the keyboard opened.
  void ChooseItem(int position) const;
  /// Exits by the menu's shortcut; returns the program's exit status.
  int Leave();

  const Window& main_window() const { return main_; }
  const Window& login_dialog() const { return login_; }

 private:
  const User& user_;
  Program& program_;
  qint64 owner_;
  Window main_;
  Window login_;
};

}  // namespace korvanta::harness
