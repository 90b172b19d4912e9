/// Fuzz target: a whole client, fed any blocks between any clicks, ticks and socket events.
#include <algorithm>
#include <numeric>

#include "fuzz/input.h"
#include "fuzz/watched_client.h"
#include "tests/fakes/menu_items.h"

namespace korvanta::fuzz {
namespace {

using std::chrono_literals::operator""ms;

constexpr std::size_t kDeepestBox = 3;

/// What an event does. While a message box stands, the user reaches nothing else.
struct Action {
  char letter;
  void (*run)(WatchedClient& watched, Event event);
  enum { ByUser, ByItself } source = ByUser;
};

bool IsShown(WindowLife& window) { return window.state() == WindowLife::State::Shown; }

/// The item that has this name; for other texts any one, always the same.
const MenuItem& ItemFor(std::string_view name) {
  const auto items = fakes::AllItems();
  const auto found = std::ranges::find(items, name, &MenuItem::name);
  const auto any = std::accumulate(name.begin(), name.end(), std::size_t{0}) % items.size();
  return found != items.end() ? **found : *items[any];
}

void UseLoginDialog(WatchedClient& watched, Event event) {
  LoginDialog& dialog = watched.client().login_dialog;
  if (!IsShown(dialog.window())) {
    return;
  }
  const std::size_t what = event.TakeNumber();
  switch (what % 9) {
    case 0:
      return dialog.LoginClicked();
    case 1:
      return dialog.UserNameTyped(event.text);
    case 2:
      return dialog.PasswordTyped(event.text);
    case 3:
      return dialog.UserNameChosen(event.TakeNumber());
    case 4:
      return dialog.SaveClicked(event.TakeNumber() % 2 == 1);
    case 5:
      return dialog.RemoveUserClicked();
    case 6:
      return dialog.ClearClicked();
    case 7:
      return dialog.ServerTyped(event.text);
    default:
      return dialog.CancelClicked();
  }
}

/// Types name and password and logs in.
void LogIn(WatchedClient& watched, Event event) {
  LoginDialog& dialog = watched.client().login_dialog;
  if (IsShown(dialog.window())) {
    const std::size_t comma = event.text.find(',');
    dialog.UserNameTyped(event.text.substr(0, comma));
    dialog.PasswordTyped(comma == std::string_view::npos ? "secret" : event.text.substr(comma + 1));
    dialog.LoginClicked();
  }
}

void UseChatInput(WatchedClient& watched, Event event) {
  ChatInput& chat = watched.client().chat_input;
  switch (event.TakeNumber() % 5) {
    case 0:
      return chat.SendChatLine();
    case 1:
      return chat.TextEdited(event.text);
    case 2:
      return chat.HistoryUp();
    case 3:
      return chat.HistoryDown();
    default:
      return chat.HistoryChosen(event.TakeNumber());
  }
}

void SayLine(WatchedClient& watched, Event event) {
  watched.client().chat_input.TextEdited(event.text);
  watched.client().chat_input.SendChatLine();
}

void UseBoard(WatchedClient& watched, Event event) {
  const std::size_t topic = event.TakeNumber() % 5 + 1;
  const std::size_t level = event.TakeNumber() % 5 + 1;
  watched.client().board_actions.BoxRightClicked(static_cast<TopicCode>(topic),
                                                 static_cast<std::int16_t>(level));
  ItemFor(event.text).click(watched.client());
}

void UseOnlineList(WatchedClient& watched, Event event) {
  OnlineList& list = watched.client().online_list;
  const std::size_t index = event.TakeNumber();
  list.Select(index < list.entries().size() ? std::optional(index) : std::nullopt);
  if (watched.client().board_actions.PlayerRightClicked()) {
    ItemFor(event.text).click(watched.client());
  }
}

void UseMessageView(WatchedClient& watched, Event event) {
  MessageView& view = watched.client().message_view;
  const std::size_t what = event.TakeNumber();
  const std::size_t from = event.TakeNumber() * (view.size() + 2) / 255;
  const std::size_t to = event.TakeNumber() * (view.size() + 2) / 255;
  switch (what % 4) {
    case 0:
      return view.Select(from, to);
    case 1:
      return view.MoveCaret(from, to % 2 == 1);
    case 2:
      return view.SelectAll();
    default:
      Check(view.SelectedText().size() <= view.selection().to - view.selection().from,
            "a copy is no longer than the selection");
  }
}

void UseStatistics(WatchedClient& watched, Event event) {
  Statistics& statistics = watched.client().statistics;
  if (!IsShown(statistics.window())) {
    return;
  }
  switch (event.TakeNumber() % 3) {
    case 0:
      statistics.UserInputTyped(event.text);
      return watched.UserTyped();
    case 1:
      return statistics.SearchClicked();
    default:
      return statistics.window().Unload();
  }
}

void UseTournament(WatchedClient& watched, Event event) {
  constexpr std::string TournamentTexts::*kBoxes[] = {
      &TournamentTexts::iEntryFee, &TournamentTexts::txtPurse,    &TournamentTexts::iMaxTeams,
      &TournamentTexts::cmbTeam,   &TournamentTexts::iMaxPlayers, &TournamentTexts::txtPassword,
      &TournamentTexts::EntryFee,  &TournamentTexts::MaxTeams,    &TournamentTexts::MaxPlayers};
  constexpr void (Tournament::*kButtons[])() = {
      &Tournament::CreateJoinClicked,    &Tournament::KickPlayerClicked,
      &Tournament::DisbandTeamClicked,   &Tournament::StartTournamentClicked,
      &Tournament::EndTournamentClicked, &Tournament::SetTournamentGameClicked};
  Tournament& tournament = watched.client().tournament;
  if (!IsShown(tournament.window())) {
    return;
  }
  const std::size_t what = event.TakeNumber();
  const std::size_t which = event.TakeNumber();
  switch (what % 5) {
    case 0:
      tournament.Typed(kBoxes[which % std::size(kBoxes)], event.text);
      return watched.UserTyped();
    case 1:
      return tournament.TabChosen(static_cast<TournamentTab>(which % 3));
    case 2:
      tournament.TeamSelected(which);
      return watched.UserTyped();
    case 3:
      return (tournament.*kButtons[which % std::size(kButtons)])();
    default:
      return tournament.window().Unload();
  }
}

constexpr char kSettingLetter = 'K';  ///< before the start alone
constexpr char kAnswerLetter = 'Y';   ///< in a message box alone

constexpr Action kActions[] = {
    {kSettingLetter, [](auto&, Event) {}},
    {kAnswerLetter, [](auto&, Event) {}},
    {'B', [](auto& watched, Event event) { watched.Receive(event.text); }, Action::ByItself},
    {'A', [](auto& watched, Event) { watched.Accept(); }, Action::ByItself},
    {'H', [](auto& watched, Event) { watched.Hangup(); }, Action::ByItself},
    {'T', [](auto& watched, Event) { watched.Tick(1000ms); }, Action::ByItself},
    {'X', [](auto& watched, Event) { watched.Close(); }, Action::ByItself},
    {'W', [](auto& watched, Event event) { watched.AnswerWeb(int(event.TakeNumber())); },
     Action::ByItself},
    {'L', LogIn},
    {'d', UseLoginDialog},
    {'s', SayLine},
    {'c', UseChatInput},
    {'m', [](auto& watched, Event event) { ItemFor(event.text).click(watched.client()); }},
    {'b', UseBoard},
    {'o', UseOnlineList},
    {'v', UseMessageView},
    {'u', UseStatistics},
    {'n', [](auto& watched, Event) { watched.client().news.window().Unload(); }},
    {'t', UseTournament},
};

/// Plays the events against one run of the program after another, all with the same settings.
class Session {
 public:
  explicit Session(std::string_view input) : events_(input) {}

  void Play() {
    while (!events_.AtEnd()) {
      ReadOldSettings();
      WatchedClient run(settings_, [this] { return LiveInBox(); });
      run_ = &run;
      while (!events_.AtEnd() && !run.IsClosed()) {
        const Event event = events_.Next();
        Act(RowFor<Action>(kActions, event.letter), event);
      }
      run.Close();
    }
  }

 private:
  /// What earlier programs left in the settings.
  void ReadOldSettings() {
    constexpr std::string_view kNames[] = {
        "Logins > User/Password", "Logins > Last User", "Client Data > Time", "Menu > ScrollLock",
        "Menu > Auto Ready",      "Menu > Sounds",      "Settings > Login",
    };
    for (Events ahead = events_; !ahead.AtEnd();) {
      Event event = ahead.Next();
      if (event.letter != kSettingLetter) {
        return;
      }
      events_ = ahead;
      const std::size_t which = event.TakeNumber();
      settings_.entries[std::string(kNames[which % std::size(kNames)])] = event.text;
    }
  }

  void Act(const Action& action, const Event& event) {
    action.run(*run_, event);
    if (!run_->IsClosed()) {
      run_->CheckAll();
    }
  }

  /// Other things go on while a message box waits for its answer, which an odd number makes a Yes.
  bool LiveInBox() {
    if (++boxes_open_ <= kDeepestBox) {
      while (!events_.AtEnd() && !run_->IsClosed()) {
        Event event = events_.Next();
        if (event.letter == kAnswerLetter) {
          --boxes_open_;
          return event.TakeNumber() % 2 == 1;
        }
        const Action& action = RowFor<Action>(kActions, event.letter);
        if (action.source == Action::ByItself) {
          Act(action, event);
        }
      }
    }
    --boxes_open_;
    return false;
  }

  Events events_;
  fakes::MemorySettings settings_;
  WatchedClient* run_ = nullptr;
  std::size_t boxes_open_ = 0;
};

}  // namespace
}  // namespace korvanta::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korvanta::fuzz::Session(korvanta::fuzz::AsText(data, size)).Play();
  return 0;
}
