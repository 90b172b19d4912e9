/// The lines that players type: talk, and the commands that "/help" lists.
#include <algorithm>
#include <random>

#include "practice/lobby/lobby.h"
#include "practice/wire/player_text.h"
#include "practice/words/news_text.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

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

}  // namespace

const std::array<Lobby::Command, 18> Lobby::kCommands = {{
    {"help", "", "shows this list",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.Help(player); }},
    {"game", "", "shows how the game stands",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.arena_.Describe(player); }},
    {"break", "", "ends your alliance in the game",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.arena_.BreakAlliance(player); }},
    {"leave", "", "leaves the game, or the players who wait for the next one",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.arena_.Leave(player); }},
    {"who", "", "shows who is online",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.Who(player); }},
    {"tell", "name text", "speaks to one player alone",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.Tell(player, text); }},
    {"reply", "text", "answers the player who told you something last",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.Reply(player, text); }},
    {"team", "text", "speaks to your team alone",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.TeamChat(player, text); }},
    {"me", "text", "shows what you do",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.Act(player, text); }},
    {"roll", "sides", "rolls a die, of 6 sides when you name none",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.Roll(player, text); }},
    {"away", "", "shows that you are away, and again that you are back",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.Away(player); }},
    {"stats", "name", "shows the figures of a player, your own when you name none",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.ShowFigures(player, text); }},
    {"best", "", "shows who has the highest total scores",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.ShowBest(player); }},
    {"news", "", "shows the news of this server",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.ShowNews(player); }},
    {"time", "", "shows how long the server and you have been here",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.Time(player); }},
    {"c", "text", "speaks to everyone, for clients that do not put it in by themselves",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.Say(player, text); }},
    {"announce", "text", "announces something to everyone",
     [](Lobby& lobby, Player& player, std::string_view text) { lobby.Announce(player, text); },
     true},
    {"start", "", "begins the next game as soon as two players are ready",
     [](Lobby& lobby, Player& player, std::string_view) { lobby.arena_.Hurry(player); }, true},
}};

void Lobby::Line(Player& player, std::string_view typed) {
  std::string_view line = Trimmed(typed);
  if (line.size() > kLongestLine) {
    players_.Refuse(player, "A line has at most " + std::to_string(kLongestLine) +
                                " characters; yours was longer and nobody has seen it.");
    return;
  }
  if (line.starts_with('/')) {
    line.remove_prefix(1);
  }
  RunCommand(player, line);
}

void Lobby::RunCommand(Player& player, std::string_view line) {
  const auto [word, arguments] = FirstWord(line);
  if (word.empty()) {
    players_.Refuse(player, "There is no command in that line. Type /help for the commands.");
    return;
  }
  const std::string name = NameKey(word);
  const auto command = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const Command& known) { return known.name == name; });
  if (command == kCommands.end()) {
    players_.Refuse(player,
                    "There is no command \"" + std::string(word.substr(0, kLongestName)) +
                        "\". Type /help for the commands; to talk with Auto Chat off, begin the "
                        "line with \"c \".");
    return;
  }
  if (command->for_administrators && !player.account->IsAdministrator()) {
    players_.Refuse(player, "Only an administrator may use /" + name + ".");
    return;
  }
  command->run(*this, player, arguments);
}

void Lobby::Say(Player& player, std::string_view words) {
  if (words.empty()) {
    players_.Refuse(player, "There is nothing in that line to say.");
    return;
  }
  players_.SendToAll(messages::ChatLine(MessageKind::Chat, player.name(), words));
  ear_(player, nullptr, words);
}

void Lobby::Help(Player& player) {
  players_.Answer(player, "Commands, each typed with a slash in front:");
  for (const Command& command : kCommands) {
    if (command.for_administrators && !player.account->IsAdministrator()) {
      continue;
    }
    std::string line = "  /" + std::string(command.name);
    if (!command.arguments.empty()) {
      line += ' ';
      line += command.arguments;
    }
    players_.Answer(player, line + " - " + std::string(command.purpose));
  }
}

void Lobby::Who(Player& player) {
  std::string line = std::to_string(players_.all().size()) + " online: ";
  std::size_t named = 0;
  for (const auto& [key, other] : players_.all()) {
    if (named == kMostNames) {
      line += " and " + std::to_string(players_.all().size() - named) + " more";
      break;
    }
    if (named > 0) {
      line += ", ";
    }
    line += other.name();
    if (other.account->IsAdministrator()) {
      line += " (administrator)";
    }
    if (other.is_away) {
      line += " (away)";
    }
    ++named;
  }
  players_.Answer(player, line);
}

void Lobby::Tell(Player& player, std::string_view arguments) {
  const auto [name, words] = FirstWord(arguments);
  if (words.empty()) {
    players_.Refuse(player,
                    "To speak to one player alone, type /tell, the name and what you want to say.");
    return;
  }
  TellPlayer(player, name, words);
}

void Lobby::Reply(Player& player, std::string_view arguments) {
  if (player.last_teller.empty()) {
    players_.Refuse(player, "Nobody has told you anything yet.");
    return;
  }
  if (arguments.empty()) {
    players_.Refuse(player, "Type /reply and what you want to say to " + player.last_teller + ".");
    return;
  }
  TellPlayer(player, player.last_teller, arguments);
}

void Lobby::TellPlayer(Player& teller, std::string_view name, std::string_view words) {
  Player* listener = players_.Find(name);
  if (listener == nullptr) {
    players_.Refuse(teller, "Nobody named \"" + std::string(name.substr(0, kLongestName)) +
                                "\" is online. Type /who to see who is.");
    return;
  }
  if (listener == &teller) {
    players_.Refuse(teller, "You need not tell yourself.");
    return;
  }
  players_.Send(*listener,
                messages::ChatLine(MessageKind::Tell, teller.name() + " tells you", words));
  players_.Send(teller,
                messages::ChatLine(MessageKind::Tell, "You tell " + listener->name(), words));
  listener->last_teller = teller.name();
  ear_(teller, listener, words);
  if (listener->is_away) {
    players_.Answer(teller, listener->name() + " is away and may not see it at once.");
  }
}

void Lobby::Act(Player& player, std::string_view arguments) {
  if (arguments.empty()) {
    players_.Refuse(player, "Type /me and what you do, as in /me waves.");
    return;
  }
  players_.SendToAll(
      messages::ChatLine(MessageKind::Plain, "*", player.name() + " " + std::string(arguments)));
}

void Lobby::Roll(Player& player, std::string_view arguments) {
  const auto sides =
      arguments.empty() ? kUsualSides : NumberWithin(arguments, 2, kMostSides).value_or(0);
  if (sides == 0) {
    players_.Refuse(player,
                    "A die has 2 to " + std::to_string(kMostSides) + " sides, as in /roll 20.");
    return;
  }
  const auto result = 1 + dice_() % static_cast<std::uint64_t>(sides);
  players_.SendToAll(messages::ChatLine(
      MessageKind::Plain, "*",
      player.name() + " rolls " + std::to_string(result) + " of " + std::to_string(sides)));
}

void Lobby::Away(Player& player) {
  player.is_away = !player.is_away;
  const bool plays = arena_.ContenderOf(player) != nullptr;
  const bool steps_back = player.is_away && player.is_ready && !plays;
  if (steps_back) {
    player.is_ready = false;
  }
  players_.ListChanges();
  players_.Answer(player, steps_back       ? "You are away, and out of the next game. Type /away "
                                             "again when you are back."
                          : player.is_away ? "You are away. Type /away again when you are back."
                                           : "You are back.");
}

void Lobby::ShowFigures(Player& player, std::string_view arguments) {
  const Account* account = FindAccount(player, arguments.empty() ? player.name() : arguments);
  if (account == nullptr) {
    return;
  }
  const Figures& figures = account->figures;
  players_.Answer(player, account->name + ": level " + std::to_string(PlayerLevel(figures)) +
                              ", total score " + std::to_string(figures.score) + ", " +
                              std::to_string(figures.wins) + " of " +
                              std::to_string(figures.games_played) +
                              " games won. Statistics Lookup (Ctrl+L) shows the rest.");
}

void Lobby::ShowBest(Player& player) {
  std::vector<const Account*> best;
  for (const auto& [key, account] : accounts_.all()) {
    best.push_back(&account);
  }
  const auto shown = best.begin() + static_cast<std::ptrdiff_t>(std::min(kMostBest, best.size()));
  std::partial_sort(best.begin(), shown, best.end(), [](const Account* one, const Account* other) {
    return one->figures.score > other->figures.score;
  });
  players_.Answer(player, "The highest total scores since the server was started:");
  for (auto account = best.begin(); account != shown; ++account) {
    players_.Answer(player,
                    "  " + (*account)->name + ": " + std::to_string((*account)->figures.score));
  }
}

void Lobby::ShowNews(Player& player) {
  for (std::string_view line : Split(kNewsText, '\n')) {
    players_.Answer(player, line.substr(0, line.find('\r')));
  }
}

void Lobby::Time(Player& player) {
  players_.Answer(player, "The server has been running for " + Duration(now_) +
                              ", you have been here for " + Duration(now_ - player.online_since) +
                              ".");
}

void Lobby::Announce(Player& player, std::string_view arguments) {
  if (arguments.empty()) {
    players_.Refuse(player, "Type /announce and what everyone is to know.");
    return;
  }
  players_.SendToAll(messages::ChatLine(MessageKind::Announcement, player.name(), arguments));
}

}  // namespace korvanta::practice
