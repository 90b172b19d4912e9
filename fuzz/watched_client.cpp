#include "fuzz/watched_client.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "fuzz/input.h"
#include "protocol/message_table.h"
#include "tests/fakes/menu_items.h"

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

constexpr std::chrono::milliseconds kSplashTime{4000};

template <typename Form>
bool SameForm(const Form& a, const Form& b) {
  return a.cboServer == b.cboServer && a.cboUsernames == b.cboUsernames &&
         a.cboUsernames_list == b.cboUsernames_list && a.txtPassword == b.txtPassword &&
         a.chkSave == b.chkSave;
}

bool SameOptions(const Options& a, const Options& b) {
  return a.mnuScrollLock == b.mnuScrollLock && a.mnuFilter == b.mnuFilter &&
         a.mnuLogins == b.mnuLogins && a.mSounds == b.mSounds && a.mnuAutoChat == b.mnuAutoChat &&
         a.mAuto == b.mAuto;
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
  Listen();
  Check(client_.StartUp(), "the program starts");
  timers_.Tick(kSplashTime);
  Check(client_.login_dialog.window().state() == WindowLife::State::Shown,
        "the login dialog follows the splash");
  drawn_.options = client_.options;
  CheckAll();
}

/// Each callback redraws what a widget redraws.
void WatchedClient::Listen() {
  drawn_.title = client_.main_window.title();
  drawn_.connect_caption = ConnectCaption();
  drawn_.research = client_.research_board.Research();
  drawn_.tick_time = client_.research_board.TickTime();
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    drawn_.board[row] = BoardRow(row);
  }
  client_.main_window.on_close = [this] { Close(); };
  client_.main_window.on_title_changed = [this] { drawn_.title = client_.main_window.title(); };
  client_.main_window.on_menus_changed = [this] {
    drawn_.options = client_.options;
    drawn_.connect_caption = ConnectCaption();
  };
  client_.research_board.on_changed = [this](BoardPart part) {
    if (part == BoardPart::Research) {
      drawn_.research = client_.research_board.Research();
    } else if (part == BoardPart::TickTime) {
      drawn_.tick_time = client_.research_board.TickTime();
    } else {
      drawn_.board[static_cast<std::size_t>(part)] = BoardRow(static_cast<std::size_t>(part));
    }
  };
  client_.chat_input.on_changed = [this] { drawn_.chat_text = client_.chat_input.text(); };
  client_.online_list.on_changed = [this] { drawn_.players = Players(); };
  client_.message_view.on_changed = [this](const MessageView::Change& change) {
    using What = MessageView::Change::What;
    if (change.what == What::Cleared) {
      drawn_.messages.clear();
    } else if (change.what == What::Inserted) {
      const std::size_t end = change.offset + change.length;
      Check(end <= client_.message_view.size(), "new text lies inside the text");
      drawn_.messages.insert(change.offset, client_.message_view.text().Bytes(change.offset, end));
    }
  };
  const auto login = [this] { drawn_.login = client_.login_dialog.form(); };
  const auto news = [this] { drawn_.news = client_.news.rbNews(); };
  const auto statistics = [this] { drawn_.statistics = client_.statistics.state(); };
  const auto tournament = [this] { drawn_.tournament = client_.tournament.state(); };
  client_.login_dialog.on_changed = client_.login_dialog.window().on_show = login;
  client_.news.on_changed = client_.news.window().on_show = news;
  client_.statistics.on_changed = client_.statistics.window().on_show = statistics;
  client_.tournament.on_changed = client_.tournament.window().on_show = tournament;
}

void WatchedClient::TakeSideWindows() {
  drawn_.statistics.UserInput = client_.statistics.state().UserInput;
  drawn_.tournament.texts = client_.tournament.state().texts;
  drawn_.tournament.selected_team = client_.tournament.state().selected_team;
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
  if (!socket_.connected || block.empty()) {
    return;
  }
  const auto before = Players();
  socket_.Receive(block);
  if (block.find(TagOf(ServerMessage::OnlineList)) == std::string_view::npos) {
    Check(Players() == before, "the online list changes with its own message alone");
  } else if (const auto payload = OnlyPayload(block, TagOf(ServerMessage::OnlineList))) {
    Check(Players() == PlayersIn(*payload), "the online list is what its message says");
    Check(!client_.online_list.selected(), "a new list has nobody selected");
  }
  CheckTeams(block);
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
      Check(is_accepting_, "the login goes out when the socket connects, at no other time");
      break;
    case Needs::LoggedIn:
      Check(is_logged_in, "this message needs a login");
      break;
    case Needs::Connected:
      Check(socket_.connected, "this message needs a connection");
      break;
    case Needs::Either:
      Check(is_logged_in || socket_.connected, "this message needs a login or a connection");
      break;
  }
}

void WatchedClient::CheckAll() {
  CheckView();
  CheckBoard();
  CheckDrawn();
  const ConnectionValues& values = client_.values;
  Check(!values.IsConnected || socket_.connected, "logged in means connected");
  Check(socket_.is_attempting == timers_.made.front().second->enabled,
        "an attempt is timed as long as it lasts");
  Check(values.ConnectTicks >= 0 && values.ConnectTicks < 8, "an attempt lasts eight ticks");
  Check(ConnectCaption() == (values.IsConnected ? "Disconnect" : "Connect"),
        "the connect item says what it does");
  const auto selected = client_.online_list.selected();
  Check(!selected || *selected < client_.online_list.entries().size(),
        "the selected player is in the list");
  const auto& tournament = client_.tournament.state();
  Check(!tournament.selected_team || *tournament.selected_team < tournament.lstTeams.size(),
        "the selected team is in the list");
  Check(tournament.has_admin_tab || tournament.chosen_tab != TournamentTab::Admin,
        "a tab that is not there is not chosen");
  const ChatInput& chat = client_.chat_input;
  Check(chat.IsSendEnabled() == (chat.text().size() <= 250), "sending stops at the length limit");
  Check(chat.Remaining() + static_cast<std::ptrdiff_t>(chat.text().size()) == 250,
        "the characters left add up");
}

void WatchedClient::CheckView() {
  const MessageView& view = client_.message_view;
  const ColouredText& text = view.text();
  for (const std::size_t end : {view.anchor(), view.caret()}) {
    Check(end <= view.size() && CaretPlace(text, end) == end,
          "the selection ends where carets may");
  }
  Check(view.insertion_point() == std::max(view.anchor(), view.caret()),
        "new lines go behind the selection");
  Excerpt all;
  text.Read(0, text.size(), all);
  Check(all.bytes.size() == view.size(), "the text is as long as it says");
  std::size_t covered = 0;
  for (std::size_t i = 0; i < all.runs.size(); ++i) {
    Check(all.runs[i].end > covered, "no colour run is empty");
    Check(i == 0 || all.runs[i - 1].role != all.runs[i].role, "neighbours differ in colour");
    covered = all.runs[i].end;
  }
  Check(covered == all.bytes.size(), "the colour runs cover the text exactly");
  Check(all.bytes == drawn_.messages, "the view's widget was told of every change");
}

void WatchedClient::CheckBoard() const {
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    const auto widths = BoardRow(row);
    for (std::size_t i = 0; i < widths.size(); ++i) {
      Check(widths[i] == 1 || widths[i] == 4, "a border is plain or reached");
      Check(i % kTopLevel == 0 || widths[i - 1] >= widths[i], "levels are reached in their order");
    }
  }
  const std::string_view research = client_.research_board.Research();
  const std::string_view points = research.substr(std::min(research.size(), std::size_t{17}));
  Check(research.starts_with("Research Points: ") && !points.empty() && points != "-0" &&
            points.find_first_not_of("-.0123456789") == std::string_view::npos &&
            !points.ends_with('.'),
        "points are a plain decimal number");
  const std::string clock = client_.research_board.TickTime();
  int minutes = -1;
  int seconds = -1;
  Check(std::sscanf(clock.c_str(), "Tick Time - %d:%2d", &minutes, &seconds) == 2 && minutes >= 0 &&
            minutes <= 546 && seconds >= 0 && seconds < 60 && clock[clock.size() - 3] == ':',
        "the clock shows minutes and seconds");
}

void WatchedClient::CheckDrawn() const {
  Check(drawn_.title == client_.main_window.title(), "the title is up to date");
  Check(drawn_.connect_caption == ConnectCaption(), "the connect item is up to date");
  Check(SameOptions(drawn_.options, client_.options), "the check marks are up to date");
  Check(drawn_.research == client_.research_board.Research(), "the points are up to date");
  Check(drawn_.tick_time == client_.research_board.TickTime(), "the clock is up to date");
  Check(drawn_.chat_text == client_.chat_input.text(), "the chat line is up to date");
  Check(drawn_.players == Players(), "the online list is up to date");
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    Check(drawn_.board[row] == BoardRow(row), "the board is up to date");
  }
  const auto is_shown = [](const WindowLife& window) {
    return window.state() == WindowLife::State::Shown;
  };
  auto& client = const_cast<Client&>(client_);
  Check(!is_shown(client.login_dialog.window()) ||
            SameForm(drawn_.login, client_.login_dialog.form()),
        "the login dialog is up to date");
  Check(!is_shown(client.news.window()) || drawn_.news == client_.news.rbNews(),
        "the news is up to date");
  Check(!is_shown(client.statistics.window()) || drawn_.statistics == client_.statistics.state(),
        "the statistics window is up to date");
  Check(!is_shown(client.tournament.window()) || drawn_.tournament == client_.tournament.state(),
        "the tournament window is up to date");
}

void WatchedClient::CheckTeams(std::string_view block) {
  const TournamentState& state = client_.tournament.state();
  if (const auto payload = OnlyPayload(block, TagOf(ServerMessage::TeamList))) {
    Check(state.lstTeams == TeamsIn(*payload), "the team list is what its message says");
    Check(!state.selected_team, "a new list has no team selected");
  } else if (const auto names = OnlyPayload(block, TagOf(ServerMessage::TeamNames))) {
    Check(state.team_names == TeamNamesIn(*names), "the team names are what their message says");
  } else if (const auto news = OnlyPayload(block, TagOf(ServerMessage::News))) {
    Check(news->starts_with('[') || client_.news.rbNews() == *news,
          "the news is what its message says");
  }
}

void WatchedClient::CheckStored() {
  Options options;
  SavedLogins logins;
  Settings settings{options, logins};
  modFiles::LoadSettings(settings, settings_);
  Check(SameOptions(options, client_.options), "the options stored can be read again");
  Check(logins.LastUser == client_.saved_logins.LastUser, "so can the last user");
  Check(settings.LoginSetting == client_.settings.LoginSetting &&
            settings.TimeSetting == client_.settings.TimeSetting,
        "so can the two values kept for others");
  std::vector<SavedLogin> named;
  for (const SavedLogin& login : client_.saved_logins.Logins()) {
    if (!login.UserName.empty()) {
      named.push_back(login);
    }
  }
  Check(std::ranges::equal(logins.Logins(), named,
                           [](const SavedLogin& a, const SavedLogin& b) {
                             return a.UserName == b.UserName && a.Password == b.Password;
                           }),
        "so can every saved login");
}

/// Frames 1 to 4, then lines 1 to 4.
std::array<int, 8> WatchedClient::BoardRow(std::size_t row) const {
  std::array<int, 8> widths{};
  for (int level = 1; level <= kTopLevel; ++level) {
    const auto index = static_cast<std::size_t>(level - 1);
    widths[index] = client_.research_board.FrameWidth(row, level);
    widths[index + kTopLevel] = client_.research_board.LineWidth(row, level);
  }
  return widths;
}

std::string_view WatchedClient::ConnectCaption() const {
  return CaptionOf(fakes::ItemNamed("mnuDisCon"), client_);
}

std::vector<ListedPlayer> WatchedClient::Players() const {
  std::vector<ListedPlayer> players;
  for (const OnlineList::Entry& entry : client_.online_list.entries()) {
    players.push_back({entry.Key(), std::string(entry.name), std::string(entry.level), entry.colour,
                       entry.marked});
  }
  return players;
}

}  // namespace korvanta::fuzz
