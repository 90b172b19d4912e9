#include "chat_lines.h"

#include <random>
#include <string_view>

#include "lobby/language_filter.h"
#include "protocol/wire_format.h"

namespace korvanta::bench {
namespace {

constexpr std::string_view kNames = "Marlow Aster Corin Benedikt Ysolde Shirley Derek Basil";

constexpr std::string_view kVocabulary =
    "the a and to you I of in it is that this we have for not on with do be was are what why when "
    "there here would could can will just about your my his them they their which good well much "
    "attack defend defense upgrade research industry science military tech level points board "
    "turn round game player team alliance war peace city tower shield sword damage cost gold "
    "all some more less many few other same new old fast slow early late more than only even "
    "three four five six seven eight nine ten hundred half maybe almost enough too far near "
    "a bit should shift basic who night push point pause keep going now later please thanks wait "
    "ready again first second third last next both either never always think know need want get "
    "lol gg brb ok yes no hello hi bye welcome back where did everyone go see make take give come "
    "left right under over between against them all before after since until while during let us";

std::vector<std::string_view> WordsOf(std::string_view text, char separator) {
  std::vector<std::string_view> words;
  for (std::string_view word : Split(text, separator)) {
    words.push_back(word);
  }
  return words;
}

}  // namespace

// Plain arithmetic on the generator's numbers: distributions differ between libraries.

std::vector<std::string> CleanLines(std::size_t count) {
  const auto names = WordsOf(kNames, ' ');
  const auto words = WordsOf(kVocabulary, ' ');
  std::mt19937 random;
  std::vector<std::string> lines(count);
  for (std::string& line : lines) {
    line = names[random() % names.size()];
    line += ':';
    while (line.size() < kLineLength) {
      line += ' ';
      line += words[random() % words.size()];
    }
    line.resize(kLineLength);
  }
  return lines;
}

std::vector<std::string> OffensiveLines(std::size_t count) {
  const auto words = WordsOf(modData::kFilterWords, ';');
  std::mt19937 random;
  std::vector<std::string> lines(count);
  for (std::string& line : lines) {
    while (line.size() < kLineLength) {
      for (const char letter : words[random() % words.size()]) {
        line += static_cast<char>(random() % 2 == 0 ? letter : letter ^ 0x20);
      }
      if (random() % 4 == 0) {
        line += ' ';
      }
    }
    line.resize(kLineLength);
  }
  return lines;
}

benchmark::Counter SecondsEach(std::size_t items) {
  return {static_cast<double>(items),
          benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert};
}

}  // namespace korvanta::bench
