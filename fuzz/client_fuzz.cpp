/// Fuzz target: a whole client, fed any blocks between any clicks, ticks and socket events.
#include <algorithm>
#include <functional>
#include <numeric>
#include <type_traits>

#include "fuzz/input.h"
#include "fuzz/watched_client.h"
#include "tests/fakes/menu_items.h"

namespace korvanta::fuzz {
namespace {

using std::chrono_literals::operator""ms;

constexpr std::size_t kDeepestBox = 3;
constexpr char kSettingLetter = 'K';  ///< before the start
constexpr char kAnswerLetter = 'Y';   ///< in a message box; an odd number is a Yes

/// Where an event happens. While a message box stands, the user reaches no window.
enum class Place { Outside, InMain, InLogin, InStatistics, InNews, InTournament };
using enum Place;

struct Action {
  char letter;
  Place place;
  void (*run)(WatchedClient& watched, Event event);
};

/// The item that has this name; for other texts any one, always the same.
const MenuItem& ItemFor(std::string_view name) {
  const auto items = fakes::AllItems();
  const auto found = std::ranges::find(items, name, &MenuItem::name);
  const auto any = std::accumulate(name.begin(), name.end(), std::size_t{0}) % items.size();
  return found != items.end() ? **found : *items[any];
}

/// Calls a method of a part of the client with what it takes of the event: nothing, the text, or a
/// number.
template <auto part, auto method>
void Call(WatchedClient& watched, Event event) {
  const auto call = std::bind_front(method, &(watched.client.*part));
  if constexpr (std::is_invocable_v<decltype(call)>) {
    call();
  } else if constexpr (std::is_invocable_v<decltype(call), std::string_view>) {
    call(event.text);
  } else {
    call(event.TakeNumber());
  }
}

/// Likewise, where the control already shows what the user did.
template <auto part, auto method>
void Enter(WatchedClient& watched, Event event) {
  Call<part, method>(watched, event);
  watched.UserTyped();
}

template <TournamentTab tab>
void ChooseTab(WatchedClient& watched, Event /*event*/) {
  watched.client.tournament.TabChosen(tab);
}

template <auto part>
void Unload(WatchedClient& watched, Event /*event*/) {
  (watched.client.*part).window().Unload();
}

void AnswerWeb(WatchedClient& watched, Event event) {
  watched.platform.web.Answer(static_cast<int>(event.TakeNumber()));
}

void ClickItem(WatchedClient& watched, Event event) { ItemFor(event.text).click(watched.client); }

void LogIn(WatchedClient& watched, Event event) {
  LoginDialog& dialog = watched.client.login_dialog;
  const std::size_t comma = event.text.find(',');
  dialog.UserNameTyped(event.text.substr(0, comma));
  dialog.PasswordTyped(comma == std::string_view::npos ? "secret" : event.text.substr(comma + 1));
  dialog.LoginClicked();
}

void SayLine(WatchedClient& watched, Event event) {
  watched.client.chat_input.TextEdited(event.text);
  watched.client.chat_input.SendChatLine();
}

void ClickBox(WatchedClient& watched, Event event) {
  const auto topic = static_cast<TopicCode>(event.TakeNumber() % 5 + 1);
  const auto level = static_cast<std::int16_t>(event.TakeNumber() % 5 + 1);
  watched.client.board_actions.BoxRightClicked(topic, level);
  ItemFor(event.text).click(watched.client);
}

void ClickPlayer(WatchedClient& watched, Event event) {
  OnlineList& list = watched.client.online_list;
  const std::size_t index = event.TakeNumber();
  list.Select(index < list.entries().size() ? std::optional(index) : std::nullopt);
  if (watched.client.board_actions.PlayerRightClicked()) {
    ItemFor(event.text).click(watched.client);
  }
}

/// Places the selection anywhere in the message view, or a little behind its text.
void SelectLines(WatchedClient& watched, Event event) {
  MessageView& view = watched.client.message_view;
  const std::size_t from = event.TakeNumber() * (view.size() + 2) / 255;
  view.Select(from, event.TakeNumber() * (view.size() + 2) / 255);
  Check(view.SelectedText().size() <= view.selection().to - view.selection().from,
        "a copy is no longer than the selection");
}

void TypeInTournament(WatchedClient& watched, Event event) {
  constexpr std::string TournamentTexts::*kBoxes[] = {
      &TournamentTexts::iEntryFee, &TournamentTexts::txtPurse,    &TournamentTexts::iMaxTeams,
      &TournamentTexts::cmbTeam,   &TournamentTexts::iMaxPlayers, &TournamentTexts::txtPassword,
      &TournamentTexts::EntryFee,  &TournamentTexts::MaxTeams,    &TournamentTexts::MaxPlayers};
  const auto box = kBoxes[event.TakeNumber() % std::size(kBoxes)];
  watched.client.tournament.Typed(box, event.text);
  watched.UserTyped();
}

constexpr Action kActions[] = {
    {'B', Outside, [](auto& watched, Event event) { watched.Receive(event.text); }},
    {'A', Outside, [](auto& watched, Event) { watched.Accept(); }},
    {'H', Outside, [](auto& watched, Event) { watched.Hangup(); }},
    {'T', Outside, [](auto& watched, Event) { watched.platform.timers.Tick(1000ms); }},
    {'X', Outside, [](auto& watched, Event) { watched.Close(); }},
    {'W', Outside, AnswerWeb},

    {'m', InMain, ClickItem},
    {'b', InMain, ClickBox},
    {'o', InMain, ClickPlayer},
    {'s', InMain, SayLine},
    {'e', InMain, Call<&Client::chat_input, &ChatInput::TextEdited>},
    {'<', InMain, Call<&Client::chat_input, &ChatInput::HistoryUp>},
    {'>', InMain, Call<&Client::chat_input, &ChatInput::HistoryDown>},
    {'h', InMain, Call<&Client::chat_input, &ChatInput::HistoryChosen>},
    {'v', InMain, SelectLines},

    {'L', InLogin, LogIn},
    {'S', InLogin, Call<&Client::login_dialog, &LoginDialog::ServerTyped>},
    {'N', InLogin, Call<&Client::login_dialog, &LoginDialog::UserNameTyped>},
    {'C', InLogin, Call<&Client::login_dialog, &LoginDialog::UserNameChosen>},
    {'P', InLogin, Call<&Client::login_dialog, &LoginDialog::PasswordTyped>},
    {'V', InLogin, Call<&Client::login_dialog, &LoginDialog::SaveClicked>},
    {'R', InLogin, Call<&Client::login_dialog, &LoginDialog::RemoveUserClicked>},
    {'E', InLogin, Call<&Client::login_dialog, &LoginDialog::ClearClicked>},
    {'Q', InLogin, Call<&Client::login_dialog, &LoginDialog::CancelClicked>},

    {'u', InStatistics, Enter<&Client::statistics, &Statistics::UserInputTyped>},
    {'f', InStatistics, Call<&Client::statistics, &Statistics::SearchClicked>},
    {'x', InStatistics, Unload<&Client::statistics>},
    {'n', InNews, Unload<&Client::news>},

    {'t', InTournament, TypeInTournament},
    {'p', InTournament, Enter<&Client::tournament, &Tournament::TeamSelected>},
    {'1', InTournament, ChooseTab<TournamentTab::Info>},
    {'2', InTournament, ChooseTab<TournamentTab::Teams>},
    {'3', InTournament, ChooseTab<TournamentTab::Admin>},
    {'j', InTournament, Call<&Client::tournament, &Tournament::CreateJoinClicked>},
    {'k', InTournament, Call<&Client::tournament, &Tournament::KickPlayerClicked>},
    {'d', InTournament, Call<&Client::tournament, &Tournament::DisbandTeamClicked>},
    {'4', InTournament, Call<&Client::tournament, &Tournament::StartTournamentClicked>},
    {'5', InTournament, Call<&Client::tournament, &Tournament::EndTournamentClicked>},
    {'6', InTournament, Call<&Client::tournament, &Tournament::SetTournamentGameClicked>},
    {'q', InTournament, Unload<&Client::tournament>},
};

/// The row of this letter; for other letters any one, always the same.
const Action& ActionFor(char letter) {
  const auto* found = std::ranges::find(kActions, letter, &Action::letter);
  const auto any = static_cast<unsigned char>(letter) % std::size(kActions);
  return found != std::end(kActions) ? *found : kActions[any];
}

/// Plays the events against one run of the program after another, all with the same settings.
class Session {
 public:
  explicit Session(Events events) : events_(events) {}

  void Play() {
    while (!events_.AtEnd()) {
      ReadOldSettings();
      WatchedClient run(settings_, [this] { return LiveInBox(); });
      run_ = &run;
      while (!events_.AtEnd() && !run.IsClosed()) {
        Act(events_.Next());
      }
      run.Close();
      settings_ = run.platform.settings.entries;
    }
  }

 private:
  /// What earlier programs left in the settings.
  void ReadOldSettings() {
    constexpr std::string_view kNames[] = {
        "Logins > User/Password", "Logins > Last User", "Client Data > Time", "Menu > ScrollLock",
        "Menu > Auto Ready",      "Menu > Sounds",      "Settings > Login",
    };
    for (Events ahead = events_; !ahead.AtEnd(); events_ = ahead) {
      Event event = ahead.Next();
      if (event.letter != kSettingLetter) {
        return;
      }
      const std::size_t which = event.TakeNumber();
      settings_[std::string(kNames[which % std::size(kNames)])] = event.text;
    }
  }

  bool IsReachable(Place place) const {
    Client& client = run_->client;
    const WindowLife* windows[] = {nullptr,
                                   nullptr,
                                   &client.login_dialog.window(),
                                   &client.statistics.window(),
                                   &client.news.window(),
                                   &client.tournament.window()};
    const WindowLife* window = windows[static_cast<std::size_t>(place)];
    return place == Outside ||
           (boxes_open_ == 0 && (window == nullptr || window->state() == WindowLife::State::Shown));
  }

  void Act(Event event) {
    const Action& action = ActionFor(event.letter);
    if (IsReachable(action.place)) {
      action.run(*run_, event);
      if (!run_->IsClosed()) {
        run_->CheckAll();
      }
    }
  }

  /// Other things go on while a message box waits for its answer.
  bool LiveInBox() {
    bool is_yes = false;
    if (++boxes_open_ <= kDeepestBox) {
      while (!events_.AtEnd() && !run_->IsClosed()) {
        Event event = events_.Next();
        if (event.letter == kAnswerLetter) {
          is_yes = event.TakeNumber() % 2 == 1;
          break;
        }
        Act(event);
      }
    }
    --boxes_open_;
    return is_yes;
  }

  Events events_;
  std::map<std::string, std::string> settings_;
  WatchedClient* run_ = nullptr;
  std::size_t boxes_open_ = 0;
};

}  // namespace
}  // namespace korvanta::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  Session(Events(data, size)).Play();
  return 0;
}
