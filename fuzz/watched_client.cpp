#include "fuzz/watched_client.h"

#include <algorithm>
#include <utility>

#include "fuzz/input.h"
#include "protocol/message_table.h"

namespace korvanta::fuzz {
namespace {

enum class Needs { Accepting, LoggedIn, Connected, Either };

/// The condition under which a client sends each message.
Needs NeedsOf(ClientMessage message) {
  switch (message) {
    case ClientMessage::Login:
      return Needs::Accepting;
    case ClientMessage::Disconnect:
    case ClientMessage::KeepAlive:
    case ClientMessage::ChatLine:
    case ClientMessage::RequestNews:
      return Needs::LoggedIn;
    case ClientMessage::LookUpStatistics:
      return Needs::Either;
    default:
      break;
  }
  return Needs::Connected;
}

}  // namespace

WatchedClient::WatchedClient(fakes::MemorySettings& settings, std::function<bool()> on_box)
    : settings_(settings),
      client_({socket_, timers_, settings_, sounds_, web_, message_box_, instance_}, {}) {
  message_box_.on_open = [this, on_box = std::move(on_box)] {
    Check(!is_closed_, "once the windows are gone, nobody is told or asked anything");
    return on_box();
  };
  socket_.on_send = [this](std::string_view text) { CheckSent(text); };
  client_.main_window.on_close = [this] { Close(); };
  Check(client_.StartUp(), "the program starts");
  timers_.Tick(std::chrono::seconds(4));
  Check(client_.login_dialog.window().state() == WindowLife::State::Shown,
        "the login dialog follows the splash");
  client_.main_window.on_menus_changed();  // the menus are made after the settings were read
  CheckAll();
}

void WatchedClient::Accept() {
  if (socket_.is_attempting) {
    socket_.is_attempting = false;
    is_accepting_ = true;
    socket_.Accept();
    is_accepting_ = false;
  }
}

void WatchedClient::Hangup() {
  if (socket_.connected) {
    socket_.Hangup();
  }
}

void WatchedClient::Receive(std::string_view block) {
  if (socket_.connected && !block.empty()) {
    socket_.Receive(block);
  }
}

void WatchedClient::Close() {
  if (std::exchange(is_closed_, true)) {
    return;
  }
  client_.CloseMainWindow();
  AnswerWeb(0);
  CheckStored();
  for (const WindowLife* window :
       {&client_.login_dialog.window(), &client_.news.window(), &client_.splash.window(),
        &client_.statistics.window(), &client_.tournament.window()}) {
    Check(window->state() == WindowLife::State::Absent, "closing unloads every other window");
  }
}

void WatchedClient::CheckSent(std::string_view message) const {
  Check(message.ends_with(kMessageTerminator), "a message goes out with its terminator");
  const auto* row = FindRow(kClientMessages, message);
  Check(row != nullptr, "only messages of the catalogue go out");
  const bool is_logged_in = client_.values.IsConnected;
  switch (NeedsOf(row->message)) {
    case Needs::Accepting:
      return Check(is_accepting_, "the login goes out when the socket connects");
    case Needs::LoggedIn:
      return Check(is_logged_in, "this message needs a login");
    case Needs::Connected:
      return Check(socket_.connected, "this message needs a connection");
    case Needs::Either:
      return Check(is_logged_in || socket_.connected, "this message needs a login or a connection");
  }
}

void WatchedClient::CheckAll() const {
  drawn_.CheckUpToDate();
  const ConnectionValues& values = client_.values;
  Check(!values.IsConnected || socket_.connected, "logged in means connected");
  Check(socket_.is_attempting == timers_.made.front().second->enabled,
        "an attempt is timed as long as it lasts");
  Check(values.ConnectTicks >= 0 && values.ConnectTicks < 8, "an attempt lasts eight ticks");
  Check(client_.main_window.connect_caption() == (values.IsConnected ? "Disconnect" : "Connect"),
        "the connect item says what it does");
  const auto selected = client_.online_list.selected();
  Check(!selected || *selected < client_.online_list.entries().size(),
        "the selected player is in the list");
  const TournamentState& tournament = client_.tournament.state();
  Check(!tournament.selected_team || *tournament.selected_team < tournament.lstTeams.size(),
        "the selected team is in the list");
  Check(tournament.has_admin_tab || tournament.chosen_tab != TournamentTab::Admin,
        "a tab that is not there is not chosen");
  const std::string_view points = client_.research_board.Research();
  Check(points.find_first_not_of("-.0123456789", std::string_view("Research Points: ").size()) ==
                std::string_view::npos &&
            !points.ends_with('.'),
        "points are a plain decimal number");
}

void WatchedClient::CheckStored() {
  Options options;
  SavedLogins logins;
  Settings settings{options, logins};
  modFiles::LoadSettings(settings, settings_);
  Check(OptionsOf(options) == OptionsOf(client_.options), "the options stored can be read again");
  Check(logins.LastUser == client_.saved_logins.LastUser, "so can the last user");
  Check(settings.LoginSetting == client_.settings.LoginSetting &&
            settings.TimeSetting == client_.settings.TimeSetting,
        "so can the two values kept for others");
  std::vector<SavedLogin> named;
  std::ranges::copy_if(client_.saved_logins.Logins(), std::back_inserter(named),
                       [](const SavedLogin& login) { return !login.UserName.empty(); });
  Check(std::ranges::equal(logins.Logins(), named,
                           [](const SavedLogin& a, const SavedLogin& b) {
                             return a.UserName == b.UserName && a.Password == b.Password;
                           }),
        "so can every saved login");
}

}  // namespace korvanta::fuzz
