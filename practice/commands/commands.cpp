#include "practice/commands/commands.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "base/trim.h"
#include "practice/base/player_text.h"
#include "practice/game/moves.h"
#include "practice/words/news_text.h"

namespace korvanta::practice {
namespace {

using Text = std::string_view;

constexpr std::size_t kLongestLine = 300;
/// Names that "/who" writes out.
constexpr std::size_t kMostNames = 40;
/// Players that "/best" shows.
constexpr std::size_t kMostBest = 10;
constexpr int kUsualSides = 6;
constexpr int kMostSides = 1000;

/// Hours, minutes and seconds, as in 1:02:03.
std::string Duration(std::chrono::milliseconds time) {
  const auto seconds = time.count() / 1000;
  const auto two_digits = [](auto number) {
    return (number < 10 ? ":0" : ":") + std::to_string(number);
  };
  return std::to_string(seconds / 3600) + two_digits(seconds / 60 % 60) + two_digits(seconds % 60);
}

void Say(World& world, Player& player, Text words) {
  world.players.SendToAll(ChatLine(MessageKind::Chat, player.name(), words));
  world.on_chat(player, nullptr, words);
}

void Tell(World& world, Player& player, Text text) {
  const auto [name, words] = FirstWord(text);
  Players& players = world.players;
  Player* listener = players.Find(name);
  if (listener == nullptr || listener == &player) {
    players.Refuse(player, listener == nullptr ? Refusal::NoOneOnline : Refusal::TellingYourself,
                   name.substr(0, kLongestName));
    return;
  }
  players.Send(*listener, ChatLine(MessageKind::Tell, player.name() + " tells you", words));
  players.Send(player, ChatLine(MessageKind::Tell, "You tell " + listener->name(), words));
  listener->last_speaker = player.name();
  world.on_chat(player, listener, words);
  if (listener->is_away) {
    players.Say(player, sentences::kListenerAway, listener->name());
  }
}

void Reply(World& world, Player& player, Text words) {
  if (player.last_speaker.empty()) {
    world.players.Refuse(player, Refusal::NoOneToReplyTo);
  } else {
    Tell(world, player, player.last_speaker + " " + std::string(words));
  }
}

void Act(World& world, Player& player, Text words) {
  world.players.SayToAll(sentences::kActs, player.name(), words);
}

void Announce(World& world, Player& player, Text words) {
  world.players.SendToAll(ChatLine(MessageKind::Announcement, player.name(), words));
}

void Roll(World& world, Player& player, Text text) {
  const auto sides = text.empty() ? kUsualSides : NumberWithin(text, 2, kMostSides);
  if (!sides) {
    world.players.Refuse(player, Refusal::BadDie, kMostSides);
    return;
  }
  const std::size_t result = 1 + world.dice.Below(static_cast<std::size_t>(*sides));
  world.players.SayToAll(sentences::kRolls, player.name(), result, *sides);
}

void ToggleAway(World& world, Player& player, Text /*arguments*/) {
  player.is_away = !player.is_away;
  const bool steps_back =
      player.is_away && player.is_ready && world.arena.SeatOf(*player.account) == nullptr;
  player.is_ready &= !steps_back;
  world.players.Say(player, steps_back       ? sentences::kAwayAndOut
                            : player.is_away ? sentences::kAway
                                             : sentences::kBack);
}

void ShowWho(World& world, Player& player, Text /*arguments*/) {
  const auto& all = world.players.all();
  std::vector<std::string> names;
  for (const auto& [key, other] : all) {
    if (names.size() == kMostNames) {
      names.push_back("and " + std::to_string(all.size() - kMostNames) + " more");
      break;
    }
    names.push_back(other.name() + (other.account->IsAdministrator() ? " (administrator)" : "") +
                    (other.is_away ? " (away)" : ""));
  }
  world.players.Answer(player, std::to_string(all.size()) + " online: " + Joined(names, ", "));
}

void ShowFigures(World& world, Player& player, Text name) {
  const Account* account = name.empty() ? player.account : world.accounts.Find(name);
  if (account == nullptr) {
    world.players.Refuse(player, Refusal::UnknownPlayer, name.substr(0, kLongestName));
    return;
  }
  const Figures& figures = account->figures;
  world.players.Say(player, sentences::kFigures, account->name, figures.PlayerLevel(),
                    figures.score, figures.wins, figures.games_played);
}

void ShowBest(World& world, Player& player, Text /*arguments*/) {
  std::vector<const Account*> best;
  for (const auto& [key, account] : world.accounts.all()) {
    best.push_back(&account);
  }
  std::ranges::sort(best, std::greater(), [](const Account* one) { return one->figures.score; });
  best.resize(std::min(kMostBest, best.size()));
  world.players.Say(player, sentences::kBest);
  for (const Account* account : best) {
    world.players.Answer(player,
                         "  " + account->name + ": " + std::to_string(account->figures.score));
  }
}

void ShowNews(World& world, Player& player, Text /*arguments*/) {
  world.players.Say(player, sentences::kHoldView);
  for (Text line : Split(kNewsText, '\n')) {
    world.players.Answer(player, line.substr(0, line.find('\r')));
  }
  world.players.Say(player, sentences::kHoldView);
}

void ShowTime(World& world, Player& player, Text /*arguments*/) {
  world.players.Say(player, sentences::kTime, Duration(world.now),
                    Duration(world.now - player.online_since));
}

void Help(World& world, Player& player, Text arguments);

struct Command {
  Text name;
  Text arguments;  ///< what has to follow; in brackets when it may be left out
  Text purpose;
  void (*run)(World& world, Player& player, Text arguments);
  bool for_administrators = false;
};

constexpr auto kCommands = std::to_array<Command>({
    {"help", "", "shows this list", Help},
    {"game", "", "shows how the game stands",
     [](auto& world, auto& player, Text) { DescribeGame(world, player); }},
    {"break", "", "ends your alliance in the game",
     [](auto& world, auto& player, Text) { BreakAlliance(world, player); }},
    {"leave", "", "takes you out of the game, or out of the next one",
     [](auto& world, auto& player, Text) { world.arena.Leave(player); }},
    {"who", "", "shows who is online", ShowWho},
    {"tell", "name text", "speaks to one player alone", Tell},
    {"reply", "text", "answers the player who last spoke to you alone", Reply},
    {"team", "text", "speaks to your team alone",
     [](auto& world, auto& player, Text words) { world.tournament.Say(player, words); }},
    {"me", "text", "shows what you do, as in /me waves", Act},
    {"roll", "[sides]", "rolls a die, with 6 sides unless you say how many", Roll},
    {"away", "", "shows that you are away; typed again, that you are back", ToggleAway},
    {"stats", "[name]", "shows a player's figures, your own unless you name one", ShowFigures},
    {"best", "", "shows who has the highest total scores", ShowBest},
    {"news", "", "shows the news of this server", ShowNews},
    {"time", "", "shows how long the server has been running and you have been here", ShowTime},
    {"c", "text", "speaks to everyone, while Auto Chat is off", Say},
    {"announce", "text", "announces something to everyone", Announce, true},
    {"start", "", "begins the next game as soon as two players are ready",
     [](auto& world, auto& player, Text) { world.arena.Start(player); }, true},
});

bool MayUse(const Player& player, const Command& command) {
  return !command.for_administrators || player.account->IsAdministrator();
}

void Help(World& world, Player& player, Text /*arguments*/) {
  world.players.Say(player, sentences::kHelp);
  for (const Command& command : kCommands) {
    if (MayUse(player, command)) {
      const std::string usage = "  /" + std::string(command.name) +
                                (command.arguments.empty() ? "" : " ") +
                                std::string(command.arguments);
      world.players.Answer(player, usage + " - " + std::string(command.purpose));
    }
  }
  world.players.Say(player, sentences::kHoldView);
}

/// Each word that has to follow stands for at least one.
bool HasArguments(const Command& command, Text arguments) {
  const bool takes_two = command.arguments.find(' ') != Text::npos;
  return command.arguments.empty() || command.arguments.starts_with('[') ||
         !(takes_two ? FirstWord(arguments).second : arguments).empty();
}

}  // namespace

void RunCommand(World& world, Player& player, std::string_view typed) {
  Players& players = world.players;
  std::string_view line = TrimSpaces(typed);
  if (line.size() > kLongestLine) {
    players.Refuse(player, Refusal::LineTooLong, kLongestLine);
    return;
  }
  line.remove_prefix(line.starts_with('/') ? 1 : 0);
  const auto [word, arguments] = FirstWord(line);
  const std::string name = NameKey(word);
  const auto* command = std::ranges::find(kCommands, Text(name), &Command::name);
  if (command == kCommands.end()) {
    players.Refuse(player, name.empty() ? Refusal::NoCommand : Refusal::UnknownCommand,
                   word.substr(0, kLongestName));
  } else if (!MayUse(player, *command)) {
    players.Refuse(player, Refusal::AdministratorsOnly, name);
  } else if (!HasArguments(*command, arguments)) {
    players.Refuse(player, Refusal::CommandNeedsMore, name, command->arguments);
  } else {
    command->run(world, player, arguments);
  }
}

}  // namespace korvanta::practice
