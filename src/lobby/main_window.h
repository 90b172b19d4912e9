/// The plain half of the main window itself: its title and its menus. Its areas are things of their
/// own.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/change_notice.h"
#include "lobby/menus.h"
#include "protocol/receivers.h"

namespace korvanta {

class MainWindow : public ConnectionDisplay {
 public:
  explicit MainWindow(Options& options) : menus(options) {}

  const std::string& title() const { return title_; }

  void SetConnectCaption(std::string_view caption) override { menus.SetConnectCaption(caption); }
  void SetTitle(std::string_view title) override {
    if (title == title_) {
      return;
    }
    title_ = title;
    Tell(on_title_changed);
  }

  /// Start-up is done: the window comes on the screen.
  void Show() const { Tell(on_show); }
  /// "Exit": the window closes as by its close button.
  void Close() const { Tell(on_close); }

  Menus menus;

  std::function<void()> on_title_changed;
  std::function<void()> on_show;
  std::function<void()> on_close;

 private:
  std::string title_;
};

}  // namespace korvanta
