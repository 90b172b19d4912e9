#include "practice/simulation/simulated_talk.h"

#include <algorithm>

#include "practice/base/player_text.h"
#include "practice/base/texts.h"

namespace korvanta::practice {
namespace {

constexpr auto kNames =
    Texts("Marlow", "Selka", "Tobrin", "Ysolde", "Kestrel", "Brannoc", "Odwyn", "Fenna", "Corin",
          "Hazel", "Ruvik", "Thessa", "Alaric", "Nimue", "Garrick", "Petra", "Lucan", "Mirren",
          "Orsino", "Vesper", "Dorian", "Isaura", "Cedric", "Wrenna", "Ragnor", "Elowen", "Jasper7",
          "Quilla", "Stellan", "Zephyr", "Umbra9", "Xanthe");

constexpr auto kTeamNames =
    Texts("Red Foxes", "Night Owls", "Iron Gate", "Quiet Storm", "Golden Mean", "Blue Herons");

constexpr auto kLobby = Texts(
    "anyone up for a game?", "Auto Ready is on, I never miss a start",
    "is Industry first still the best opening?",
    "I say Population. Everything gets cheaper, every time", "% nearly had me last time",
    "back from a cup of tea", "who wants to ally next game?",
    "my record is 25 ticks to the Golden Knowledge", "Defense level 3 and they leave you alone",
    "looking for a team for the next tournament", "hello all", "that last game was close",
    "does anyone ever go Military and Defense? I might try",
    "still a few points short of my next award");
constexpr auto kOpening =
    Texts("good luck everyone", "Industry pays, I tell you", "an ally would be nice about now",
          "%, truce?", "here we go again", "not me first, please",
          "no attacks before tick five, agreed?", "%, are you going for Military again?");
constexpr auto kPlaying = Texts("keep an eye on %", "% is growing fast", "I am saving up",
                                "not me, please, I am harmless", "who has Military at 3 already?",
                                "this tick cannot come soon enough",
                                "Population makes it all so cheap", "somebody should slow % down");
constexpr auto kClosing =
    Texts("somebody stop %!", "everyone on %, now", "% has almost got it",
          "one more tick, just one more tick", "this will be close", "attack %, or it is over");
constexpr auto kSetBack =
    Texts("ouch", "not again!", "I will remember that", "there goes my research",
          "fine, Defense next", "and I thought we were friends", "you will regret this");
constexpr auto kEnding =
    Texts("good game", "well played!", "gg", "what a finish", "who is in for the next one?",
          "that went fast", "congratulations", "again?");
constexpr auto kGreeting = Texts("hello %!", "hi %", "welcome, %", "hey %, joining us?");
constexpr auto kQuestion =
    Texts("good question, %", "I would ask the news, %: /news", "depends on who attacks you, %",
          "right-click the board, then \"Information\", %", "%: /help knows");
constexpr auto kMention = Texts("yes, %?", "that is me", "busy researching, %", "let us see, %",
                                "we shall meet in the game, %", "maybe, %");

template <typename List>
bool HasAnyWord(std::string_view words, const List& wanted) {
  std::string_view rest = words;
  while (!rest.empty()) {
    const auto [word, behind] = FirstWord(rest);
    const std::string key = NameKey(word.substr(0, word.find_first_of(",.!?")));
    if (std::find(wanted.begin(), wanted.end(), key) != wanted.end()) {
      return true;
    }
    rest = behind;
  }
  return false;
}

/// The first round of names as they are, further ones with a number behind them.
template <typename List>
std::string Numbered(const List& names, std::size_t number) {
  const std::string name(names[number % names.size()]);
  const std::size_t round = number / names.size();
  return round == 0 ? name : name + "x" + std::to_string(round + 1);
}

}  // namespace

std::string SimulatedName(std::size_t number) { return Numbered(kNames, number); }

std::string SimulatedTeamName(std::size_t number) { return Numbered(kTeamNames, number); }

std::span<const std::string_view> LinesFor(Occasion occasion) {
  switch (occasion) {
    case Occasion::Lobby:
      return kLobby;
    case Occasion::Opening:
      return kOpening;
    case Occasion::Closing:
      return kClosing;
    case Occasion::Playing:
      return kPlaying;
    case Occasion::SetBack:
      return kSetBack;
    case Occasion::Ending:
      return kEnding;
    case Occasion::Greeting:
      return kGreeting;
    case Occasion::Question:
      return kQuestion;
    case Occasion::Mention:
      return kMention;
  }
  return {};
}

bool IsGreeting(std::string_view words) {
  constexpr auto kWords =
      Texts("hello", "hi", "hey", "hallo", "greetings", "morning", "evening", "yo");
  return HasAnyWord(words, kWords);
}

bool IsQuestion(std::string_view words) { return words.ends_with('?'); }

}  // namespace korvanta::practice
