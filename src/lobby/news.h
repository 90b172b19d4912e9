/// The presenter of the news window: the server's news as one plain text.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/window_life.h"
#include "protocol/connection.h"

namespace korvanta {

class News final : public NewsReceiver {
 public:
  /// Loading the window requests the news if logged in.
  explicit News(Connection& connection);

  WindowLife& window() { return window_; }

  /// The whole text, line breaks as received.
  const std::string& rbNews() const { return rbNews_; }

  /// Shows the server's reply; creates the window hidden if absent.
  void ShowNews(std::string_view payload) override;

  std::function<void()> on_changed;

 private:
  void Load();

  Connection& connection_;
  std::string rbNews_;
  WindowLife window_;
};

}  // namespace korvanta
