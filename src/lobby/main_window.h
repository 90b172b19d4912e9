/// The presenter of the main window: its title, the caption of its connect item, and the check
/// marks of its options. Its areas have presenters of their own.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/change_notice.h"
#include "protocol/options.h"
#include "protocol/receivers.h"

namespace korvanta {

class MainWindow final : public ConnectionDisplay {
 public:
  explicit MainWindow(Options& options) : options_(options) {}

  const std::string& title() const { return title_; }
  /// Empty until start-up sets it.
  const std::string& connect_caption() const { return connect_caption_; }

  void SetTitle(std::string_view title) override {
    if (title != title_) {
      title_ = title;
      Notify(on_title_changed);
    }
  }
  void SetConnectCaption(std::string_view caption) override {
    if (caption != connect_caption_) {
      connect_caption_ = caption;
      Notify(on_menus_changed);
    }
  }

  /// A click on an option's menu item.
  void Toggle(bool Options::*option) {
    options_.*option = !(options_.*option);
    Notify(on_menus_changed);
  }

  /// Shows the window, once start-up is done.
  void Show() const { Notify(on_show); }
  /// "Exit": closes the window as its close button does.
  void Close() const { Notify(on_close); }

  std::function<void()> on_title_changed;
  std::function<void()> on_menus_changed;  ///< the caption of the connect item or a check mark
  std::function<void()> on_show;
  std::function<void()> on_close;

 private:
  Options& options_;
  std::string title_;
  std::string connect_caption_;
};

}  // namespace korvanta
