/// The plain half of the main window itself: its title and its menus. Its areas are things of their
/// own.
#pragma once

#include <functional>
#include <string>
#include <string_view>

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
    if (on_title_changed) {
      on_title_changed();
    }
  }

  Menus menus;

  std::function<void()> on_title_changed;
  std::function<void()> on_show;   ///< start-up is done: come on the screen
  std::function<void()> on_close;  ///< "Exit" was chosen: close as by the close button

 private:
  std::string title_;
};

}  // namespace korvanta
