#include "practice/simulation/simulated_talk.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

using List = std::vector<std::string_view>;

/// The first round of names as they are, further ones with a number behind them.
std::string Numbered(const List& names, std::size_t number) {
  const std::string name(names[number % names.size()]);
  const std::size_t round = number / names.size();
  return round == 0 ? name : name + "x" + std::to_string(round + 1);
}

}  // namespace

std::string SimulatedName(std::size_t number) {
  static const List kNames = {
      "Marlow", "Selka",  "Tobrin",  "Ysolde", "Kestrel", "Brannoc", "Odwyn",   "Fenna",
      "Corin",  "Hazel",  "Ruvik",   "Thessa", "Alaric",  "Nimue",   "Garrick", "Petra",
      "Lucan",  "Mirren", "Orsino",  "Vesper", "Dorian",  "Isaura",  "Cedric",  "Wrenna",
      "Ragnor", "Elowen", "Jasper7", "Quilla", "Stellan", "Zephyr",  "Umbra9",  "Xanthe"};
  return Numbered(kNames, number);
}

std::string SimulatedTeamName(std::size_t number) {
  static const List kNames = {"Red Foxes",   "Night Owls",  "Iron Gate",
                              "Quiet Storm", "Golden Mean", "Blue Herons"};
  return Numbered(kNames, number);
}

std::span<const std::string_view> LinesFor(Occasion occasion) {
  static const List kLines[] = {
      // Lobby
      {"anyone up for a game?", "is Industry first still the best opening?", "hello all",
       "% nearly had me last time", "back from a cup of tea", "who wants to ally next game?",
       "my record is 25 ticks to the Golden Knowledge", "Defense level 3 and they leave you alone",
       "looking for a team for the next tournament", "that last game was close",
       "still a few points short of my next award"},
      // Playing
      {"keep an eye on %", "% is growing fast", "I am saving up", "%, truce?",
       "not me, please, I am harmless", "this tick cannot come soon enough",
       "Population makes it all so cheap", "somebody should slow % down"},
      // Closing
      {"somebody stop %!", "everyone on %, now", "% has almost got it",
       "one more tick, just one more tick", "this will be close", "attack %, or it is over"},
      // Ending
      {"good game", "well played!", "gg", "what a finish", "who is in for the next one?",
       "that went fast", "congratulations", "again?"},
      // Greeting
      {"hello %!", "hi %", "welcome, %", "hey %, joining us?"},
      // Question
      {"good question, %", "I would ask the news, %: /news", "depends on who attacks you, %",
       "right-click the board, then \"Information\", %", "%: /help knows"},
      // Mention
      {"yes, %?", "that is me", "busy researching, %", "let us see, %",
       "we shall meet in the game, %", "maybe, %"}};
  return kLines[static_cast<std::size_t>(occasion)];
}

Occasion OccasionOf(std::string_view words) {
  static const List kGreetings = {"hello",     "hi",      "hey",     "hallo",
                                  "greetings", "morning", "evening", "yo"};
  for (auto [word, rest] = FirstWord(words); !word.empty();
       std::tie(word, rest) = FirstWord(rest)) {
    const std::string key = NameKey(word.substr(0, word.find_first_of(",.!?")));
    if (std::find(kGreetings.begin(), kGreetings.end(), key) != kGreetings.end()) {
      return Occasion::Greeting;
    }
  }
  return words.ends_with('?') ? Occasion::Question : Occasion::Mention;
}

}  // namespace korvanta::practice
