/// The lines that players type: talk, and the commands that "/help" lists.
#include <algorithm>
#include <random>

#include "practice/lobby.h"
#include "practice/news_text.h"
#include "practice/player_text.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

/// Names that "/who" writes out.
constexpr std::size_t kMostNames = 40;
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

const std::array<Lobby::Command, 13> Lobby::kCommands = {{
    {"help", "", "shows this list", &Lobby::Help},
    {"who", "", "shows who is online", &Lobby::Who},
    {"tell", "name text", "speaks to one player alone", &Lobby::Tell},
    {"reply", "text", "answers the player who told you something last", &Lobby::Reply},
    {"team", "text", "speaks to your team alone", &Lobby::TeamChat},
    {"me", "text", "shows what you do", &Lobby::Act},
    {"roll", "sides", "rolls a die, of 6 sides when you name none", &Lobby::Roll},
    {"away", "", "shows that you are away, and again that you are back", &Lobby::Away},
    {"stats", "name", "shows the figures of a player, your own when you name none",
     &Lobby::ShowFigures},
    {"news", "", "shows the news of this server", &Lobby::ShowNews},
    {"time", "", "shows how long the server and you have been here", &Lobby::Time},
    {"c", "text", "speaks to everyone, for clients that do not put it in by themselves",
     &Lobby::Say},
    {"announce", "text", "announces something to everyone", &Lobby::Announce, true},
}};

void Lobby::Line(Player& player, const Fields& fields) {
  std::string_view line = Trimmed(fields[0]);
  if (line.size() > kLongestLine) {
    Refuse(player, "A line has at most " + std::to_string(kLongestLine) +
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
    Refuse(player, "There is no command in that line. Type /help for the commands.");
    return;
  }
  const std::string name = NameKey(word);
  const auto command = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const Command& known) { return known.name == name; });
  if (command == kCommands.end()) {
    Refuse(player, "There is no command \"" + std::string(word.substr(0, kLongestName)) +
                       "\". Type /help for the commands; to talk with Auto Chat off, begin the "
                       "line with \"c \".");
    return;
  }
  if (command->for_administrators && !player.account->IsAdministrator()) {
    Refuse(player, "Only an administrator may use /" + name + ".");
    return;
  }
  (this->*command->run)(player, arguments);
}

void Lobby::Say(Player& player, std::string_view words) {
  if (words.empty()) {
    Refuse(player, "There is nothing in that line to say.");
    return;
  }
  SendToAll(messages::ChatLine(MessageKind::Chat, player.name(), words));
}

void Lobby::Help(Player& player, std::string_view /*arguments*/) {
  Answer(player, "Commands, each typed with a slash in front:");
  for (const Command& command : kCommands) {
    if (command.for_administrators && !player.account->IsAdministrator()) {
      continue;
    }
    std::string line = "  /" + std::string(command.name);
    if (!command.arguments.empty()) {
      line += ' ';
      line += command.arguments;
    }
    Answer(player, line + " - " + std::string(command.purpose));
  }
}

void Lobby::Who(Player& player, std::string_view /*arguments*/) {
  std::string line = std::to_string(players_.size()) + " online: ";
  std::size_t named = 0;
  for (const auto& [key, other] : players_) {
    if (named == kMostNames) {
      line += " and " + std::to_string(players_.size() - named) + " more";
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
  Answer(player, line);
}

void Lobby::Tell(Player& player, std::string_view arguments) {
  const auto [name, words] = FirstWord(arguments);
  if (words.empty()) {
    Refuse(player, "To speak to one player alone, type /tell, the name and what you want to say.");
    return;
  }
  TellPlayer(player, name, words);
}

void Lobby::Reply(Player& player, std::string_view arguments) {
  if (player.last_teller.empty()) {
    Refuse(player, "Nobody has told you anything yet.");
    return;
  }
  if (arguments.empty()) {
    Refuse(player, "Type /reply and what you want to say to " + player.last_teller + ".");
    return;
  }
  TellPlayer(player, player.last_teller, arguments);
}

void Lobby::TellPlayer(Player& teller, std::string_view name, std::string_view words) {
  Player* listener = Find(name);
  if (listener == nullptr) {
    Refuse(teller, "Nobody named \"" + std::string(name.substr(0, kLongestName)) +
                       "\" is online. Type /who to see who is.");
    return;
  }
  if (listener == &teller) {
    Refuse(teller, "You need not tell yourself.");
    return;
  }
  Send(*listener, messages::ChatLine(MessageKind::Tell, teller.name() + " tells you", words));
  Send(teller, messages::ChatLine(MessageKind::Tell, "You tell " + listener->name(), words));
  listener->last_teller = teller.name();
  if (listener->is_away) {
    Answer(teller, listener->name() + " is away and may not see it at once.");
  }
}

void Lobby::Act(Player& player, std::string_view arguments) {
  if (arguments.empty()) {
    Refuse(player, "Type /me and what you do, as in /me waves.");
    return;
  }
  SendToAll(
      messages::ChatLine(MessageKind::Plain, "*", player.name() + " " + std::string(arguments)));
}

void Lobby::Roll(Player& player, std::string_view arguments) {
  const auto sides =
      arguments.empty() ? kUsualSides : NumberWithin(arguments, 2, kMostSides).value_or(0);
  if (sides == 0) {
    Refuse(player, "A die has 2 to " + std::to_string(kMostSides) + " sides, as in /roll 20.");
    return;
  }
  const auto result = 1 + dice_() % static_cast<std::uint64_t>(sides);
  SendToAll(messages::ChatLine(
      MessageKind::Plain, "*",
      player.name() + " rolls " + std::to_string(result) + " of " + std::to_string(sides)));
}

void Lobby::Away(Player& player, std::string_view /*arguments*/) {
  player.is_away = !player.is_away;
  if (player.is_away) {
    player.is_ready = false;
  }
  online_list_changed_ = true;
  Answer(player,
         player.is_away ? "You are away. Type /away again when you are back." : "You are back.");
}

void Lobby::ShowFigures(Player& player, std::string_view arguments) {
  const Account* account = FindAccount(player, arguments.empty() ? player.name() : arguments);
  if (account == nullptr) {
    return;
  }
  const Figures& figures = account->figures;
  Answer(player, account->name + ": level " + std::to_string(PlayerLevel(figures)) +
                     ", total score " + std::to_string(figures.score) + ", " +
                     std::to_string(figures.wins) + " of " + std::to_string(figures.games_played) +
                     " games won. Statistics Lookup (Ctrl+L) shows the rest.");
}

void Lobby::ShowNews(Player& player, std::string_view /*arguments*/) {
  for (std::string_view line : Split(kNewsText, '\n')) {
    Answer(player, line.substr(0, line.find('\r')));
  }
}

void Lobby::Time(Player& player, std::string_view /*arguments*/) {
  Answer(player, "The server has been running for " + Duration(now_) + ", you have been here for " +
                     Duration(now_ - player.online_since) + ".");
}

void Lobby::Announce(Player& player, std::string_view arguments) {
  if (arguments.empty()) {
    Refuse(player, "Type /announce and what everyone is to know.");
    return;
  }
  SendToAll(messages::ChatLine(MessageKind::Announcement, player.name(), arguments));
}

}  // namespace korvanta::practice
