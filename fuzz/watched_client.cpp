#include "fuzz/watched_client.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <tuple>
#include <utility>

#include "fuzz/input.h"
#include "protocol/message_table.h"

namespace korvanta::fuzz {
namespace {

/// All six, to be compared.
auto OptionsOf(const Options& options) { return std::bit_cast<std::array<bool, 6>>(options); }

/// Frames and lines from level 1 on, in turn.
std::vector<int> BoardRow(const ResearchBoard& board, std::size_t row) {
  std::vector<int> widths;
  for (int level = 1; level <= kTopLevel; ++level) {
    widths.push_back(board.FrameWidth(row, level));
    widths.push_back(board.LineWidth(row, level));
  }
  return widths;
}

auto Players(const OnlineList& list) {
  std::vector<std::tuple<std::string, std::string, Colour, bool>> players;
  for (const OnlineList::Entry& entry : list.entries()) {
    players.emplace_back(entry.name, entry.level, entry.colour, entry.marked);
  }
  return players;
}

}  // namespace

WatchedClient::WatchedClient(std::map<std::string, std::string> settings,
                             std::function<bool()> on_box) {
  platform.settings.entries = std::move(settings);
  platform.message_box.meanwhile = [this, on_box = std::move(on_box)] {
    Check(!is_closed_, "once the windows are gone, nobody is told or asked anything");
    platform.message_box.answers = {on_box()};
  };
  platform.socket.on_send = [this](std::string_view text) { CheckSent(text); };
  client.main_window.on_close = [this] { Close(); };
  DrawAll();
  Check(client.StartUp(), "the program starts");
  platform.timers.Tick(std::chrono::seconds(4));
  Check(client.login_dialog.window().state() == WindowLife::State::Shown,
        "the login dialog follows the splash");
  client.main_window.on_menus_changed();  // the menus are made after the settings were read
  CheckAll();
}

void WatchedClient::Accept() {
  if (platform.socket.is_attempting) {
    is_accepting_ = true;
    platform.socket.Accept();
    is_accepting_ = false;
  }
}

void WatchedClient::Receive(std::string_view block) {
  if (platform.socket.connected && !block.empty()) {
    platform.socket.Receive(block);
  }
}

void WatchedClient::Hangup() {
  if (platform.socket.connected) {
    platform.socket.Hangup();
  }
}

void WatchedClient::UserTyped() const {
  for (const Redraw& redraw : typed_in_) {
    redraw();
  }
}

void WatchedClient::Close() {
  if (std::exchange(is_closed_, true)) {
    return;
  }
  client.CloseMainWindow();
  platform.web.Answer(0);
  CheckStored();
  for (const WindowLife* window :
       {&client.login_dialog.window(), &client.news.window(), &client.splash.window(),
        &client.statistics.window(), &client.tournament.window()}) {
    Check(window->state() == WindowLife::State::Absent, "closing unloads every other window");
  }
}

template <typename Read>
WatchedClient::Redraw WatchedClient::Draw(std::string_view name, Read read) {
  auto drawn = std::make_shared<decltype(read())>(read());
  parts_.push_back({name, [=] { return *drawn == read(); }});
  return [=] { *drawn = read(); };
}

template <typename Presenter, typename Read>
WatchedClient::Redraw WatchedClient::DrawWindow(std::string_view name, Presenter& presenter,
                                                Read read) {
  auto redraw = Draw(name, read);
  parts_.back().is_up_to_date = [&presenter, is_up_to_date = parts_.back().is_up_to_date] {
    return presenter.window().state() != WindowLife::State::Shown || is_up_to_date();
  };
  presenter.on_changed = presenter.window().on_show = redraw;
  return redraw;
}

void WatchedClient::DrawAll() {
  MainWindow& main_window = client.main_window;
  main_window.on_title_changed = Draw("title", [&] { return main_window.title(); });
  main_window.on_menus_changed = Draw(
      "menus", [&] { return std::pair(OptionsOf(client.options), main_window.connect_caption()); });
  client.chat_input.on_changed = Draw("chat line", [this] { return client.chat_input.text(); });
  client.online_list.on_changed =
      Draw("online list", [this] { return Players(client.online_list); });

  ResearchBoard& board = client.research_board;
  std::vector<Redraw> redraw_board;  // in the order of BoardPart
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    redraw_board.push_back(Draw("board", [&, row] { return BoardRow(board, row); }));
  }
  redraw_board.push_back(Draw("points", [&] { return std::string(board.Research()); }));
  redraw_board.push_back(Draw("clock", [&] { return board.TickTime(); }));
  board.on_changed = [redraw_board](BoardPart part) {
    redraw_board[static_cast<std::size_t>(part)]();
  };

  DrawWindow("login dialog", client.login_dialog, [this] {
    const LoginForm& form = client.login_dialog.form();
    return std::tuple(form.cboServer, form.cboUsernames, form.cboUsernames_list, form.txtPassword,
                      form.chkSave);
  });
  DrawWindow("news", client.news, [this] { return client.news.rbNews(); });
  typed_in_ = {
      DrawWindow("statistics", client.statistics, [this] { return client.statistics.state(); }),
      DrawWindow("tournament", client.tournament, [this] { return client.tournament.state(); })};
}

bool WatchedClient::MaySend(ClientMessage message) const {
  const bool is_logged_in = client.values.IsConnected;
  const bool is_connected = platform.socket.connected;
  switch (message) {
    case ClientMessage::Login:
      return is_accepting_;
    case ClientMessage::Disconnect:
    case ClientMessage::KeepAlive:
    case ClientMessage::ChatLine:
    case ClientMessage::RequestNews:
      return is_logged_in;
    case ClientMessage::LookUpStatistics:
      return is_logged_in || is_connected;
    default:
      return is_connected;
  }
}

void WatchedClient::CheckSent(std::string_view message) const {
  Check(message.ends_with(kMessageTerminator), "a message goes out with its terminator");
  const auto* row = FindRow(kClientMessages, message);
  Check(row != nullptr, "only messages of the catalogue go out");
  Check(MaySend(row->message), "a message goes out only when it may");
}

void WatchedClient::CheckAll() const {
  for (const Part& part : parts_) {
    Check(part.is_up_to_date(), part.name);
  }
  const ConnectionValues& values = client.values;
  Check(!values.IsConnected || platform.socket.connected, "logged in means connected");
  Check(platform.socket.is_attempting == platform.timers.made.front().second->enabled,
        "an attempt is timed as long as it lasts");
  Check(values.ConnectTicks >= 0 && values.ConnectTicks < 8, "an attempt lasts eight ticks");
  Check(client.main_window.connect_caption() == (values.IsConnected ? "Disconnect" : "Connect"),
        "the connect item says what it does");
  const auto selected = client.online_list.selected();
  Check(!selected || *selected < client.online_list.entries().size(),
        "the selected player is in the list");
  const TournamentState& tournament = client.tournament.state();
  Check(!tournament.selected_team || *tournament.selected_team < tournament.lstTeams.size(),
        "the selected team is in the list");
  Check(tournament.has_admin_tab || tournament.chosen_tab != TournamentTab::Admin,
        "a tab that is not there is not chosen");
  const std::string_view points = client.research_board.Research();
  Check(points.find_first_not_of("-.0123456789", std::string_view("Research Points: ").size()) ==
                std::string_view::npos &&
            !points.ends_with('.'),
        "points are a plain decimal number");
}

void WatchedClient::CheckStored() {
  Options options;
  SavedLogins logins;
  Settings settings{options, logins};
  modFiles::LoadSettings(settings, platform.settings);
  Check(OptionsOf(options) == OptionsOf(client.options), "the options stored can be read again");
  Check(logins.LastUser == client.saved_logins.LastUser, "so can the last user");
  Check(settings.LoginSetting == client.settings.LoginSetting &&
            settings.TimeSetting == client.settings.TimeSetting,
        "so can the two values kept for others");
  std::vector<SavedLogin> named;
  std::ranges::copy_if(client.saved_logins.Logins(), std::back_inserter(named),
                       [](const SavedLogin& login) { return !login.UserName.empty(); });
  Check(std::ranges::equal(logins.Logins(), named,
                           [](const SavedLogin& a, const SavedLogin& b) {
                             return a.UserName == b.UserName && a.Password == b.Password;
                           }),
        "so can every saved login");
}

}  // namespace korvanta::fuzz
