/// The news window: the server's news as one plain text.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/window_life.h"
#include "protocol/connection.h"

namespace korvanta {

class News final : public NewsReceiver {
 public:
  /// Loading the window asks for the news when logged in.
  explicit News(Connection& connection);

  WindowLife& window() { return window_; }

  /// The whole news, line breaks as received.
  const std::string& rbNews() const { return rbNews_; }

  /// The server's reply replaces the text; creates the window unseen when it is absent.
  void ShowNews(std::string_view payload) override;

  std::function<void()> on_changed;

 private:
  void Load();

  Connection& connection_;
  std::string rbNews_;
  WindowLife window_;
};

}  // namespace korvanta
