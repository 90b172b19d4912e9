#include "fuzz/drawn_client.h"

#include <memory>
#include <string>
#include <tuple>

#include "fuzz/input.h"

namespace korvanta::fuzz {
namespace {

/// Frames 1 to 4, then lines 1 to 4.
std::vector<int> BoardRow(const ResearchBoard& board, std::size_t row) {
  std::vector<int> widths;
  for (int level = 1; level <= kTopLevel; ++level) {
    widths.push_back(board.FrameWidth(row, level));
  }
  for (int level = 1; level <= kTopLevel; ++level) {
    widths.push_back(board.LineWidth(row, level));
  }
  return widths;
}

auto Players(const OnlineList& list) {
  std::vector<std::tuple<std::string, std::string, std::string, Colour, bool>> players;
  for (const OnlineList::Entry& entry : list.entries()) {
    players.emplace_back(entry.Key(), entry.name, entry.level, entry.colour, entry.marked);
  }
  return players;
}

}  // namespace

template <typename Read>
std::function<void()> DrawnClient::Watch(std::string_view name, Read read) {
  auto drawn = std::make_shared<decltype(read())>(read());
  parts_.push_back({name, [=] { return *drawn == read(); }});
  return [=] { *drawn = read(); };
}

template <typename Presenter, typename Read>
std::function<void()> DrawnClient::WatchWindow(std::string_view name, Presenter& presenter,
                                               Read read) {
  auto redraw = Watch(name, read);
  parts_.back().is_up_to_date = [&presenter, is_up_to_date = parts_.back().is_up_to_date] {
    return presenter.window().state() != WindowLife::State::Shown || is_up_to_date();
  };
  presenter.on_changed = presenter.window().on_show = redraw;
  return redraw;
}

DrawnClient::DrawnClient(Client& client) {
  const MainWindow& main_window = client.main_window;
  client.main_window.on_title_changed = Watch("title", [&] { return main_window.title(); });
  client.main_window.on_menus_changed = Watch("menus", [&] {
    return std::tuple(OptionsOf(client.options), main_window.connect_caption());
  });
  client.chat_input.on_changed = Watch("chat line", [&] { return client.chat_input.text(); });
  client.online_list.on_changed = Watch("online list", [&] { return Players(client.online_list); });

  const ResearchBoard& board = client.research_board;
  std::vector<std::function<void()>> redraw_board;  // in the order of BoardPart
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    redraw_board.push_back(Watch("board", [&, row] { return BoardRow(board, row); }));
  }
  redraw_board.push_back(Watch("points", [&] { return std::string(board.Research()); }));
  redraw_board.push_back(Watch("clock", [&] { return board.TickTime(); }));
  client.research_board.on_changed = [redraw_board](BoardPart part) {
    redraw_board[static_cast<std::size_t>(part)]();
  };

  WatchWindow("login dialog", client.login_dialog, [&] {
    const LoginForm& form = client.login_dialog.form();
    return std::tuple(form.cboServer, form.cboUsernames, form.cboUsernames_list, form.txtPassword,
                      form.chkSave);
  });
  WatchWindow("news", client.news, [&] { return client.news.rbNews(); });
  typed_in_ = {
      WatchWindow("statistics", client.statistics, [&] { return client.statistics.state(); }),
      WatchWindow("tournament", client.tournament, [&] { return client.tournament.state(); })};
}

void DrawnClient::UserTyped() const {
  for (const auto& redraw : typed_in_) {
    redraw();
  }
}

void DrawnClient::CheckUpToDate() const {
  for (const Part& part : parts_) {
    Check(part.is_up_to_date(), part.name);
  }
}

}  // namespace korvanta::fuzz
