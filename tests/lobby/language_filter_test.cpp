#include "lobby/language_filter.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "protocol/wire_format.h"

namespace korvanta {
namespace {

std::string Filtered(std::string_view text, std::string_view words) {
  LanguageFilter filter;
  filter.SetFilterWords(words);
  std::string masked;
  return std::string(filter.FilterLanguage(text, masked));
}

/// The rule taken word by word: a pass over the whole text for each.
std::string InPasses(std::string text, std::string_view words) {
  for (std::string_view word : Split(words, ';')) {
    for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
      if (std::equal(word.begin(), word.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                     [](unsigned char a, unsigned char b) { return tolower(a) == tolower(b); })) {
        text.replace(at, word.size(), word.size(), '*');
      }
    }
  }
  return text;
}

/// Texts of bits of words, of strays between them, and of bytes that are a letter but for one bit.
TEST(LanguageFilter, MasksWhatAPassForEachWordMasks) {
  std::mt19937 random;
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  for (const std::string_view words :
       {modData::kFilterWords, std::string_view("Ass;Bad;Dab;Assess;Seas;Adabadd;Aaa")}) {
    const std::vector<std::string_view> list(Split(words, ';').begin(), Split(words, ';').end());
    for (int round = 0; round < 5'000; ++round) {
      std::string text;
      for (std::size_t pieces = below(below(50) == 0 ? 200 : 12); pieces > 0; --pieces) {
        const std::string_view word = list[below(list.size())];
        text += word.substr(below(4) == 0 ? below(word.size()) : 0,
                            below(3) == 0 ? below(word.size()) : word.size());
        if (below(4) == 0) {
          text += "* @[\n\xE1"[below(6)];
        }
      }
      for (char& letter : text) {
        constexpr int kFlips[] = {0x20, 0x20, 0x20, 0x20, 0x20, 0x20, 0x40, 0x80};
        letter = static_cast<char>(letter ^ (below(3) == 0 ? kFlips[below(8)] : 0));
      }
      ASSERT_EQ(Filtered(text, words), InPasses(text, words)) << text;
    }
  }
}

}  // namespace
}  // namespace korvanta
