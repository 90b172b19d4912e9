#include "lobby/language_filter.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr std::string_view kWords = "Ass;Bad;Dab;Assess";

std::string Filtered(std::string_view text, std::string_view words = kWords) {
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

TEST(LanguageFilter, MasksSubstringsInAnyCaseAndListOrder) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {"hello", "hello"},
      {"ass", "***"},
      {"aSS BAD bAd", "*** *** ***"},
      {"a glass, assbad", "a gl***, ******"},
      {"Bad: name and text bad", "***: name and text ***"},
      {"as s b-ad", "as s b-ad"},
      {"ba", "ba"},
      {"badab dabad assess", "***ab da*** ***ess"},  // the word earlier in the list goes first
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(Filtered(text), expected) << text;
  }
  EXPECT_EQ(Filtered("aaaaaaa", "Aaa"), "******a");
  EXPECT_EQ(Filtered("bad", ""), "bad");
}

/// Texts of bits of words, of strays between them, and of bytes that are a letter but for one bit.
TEST(LanguageFilter, MasksWhatAPassForEachWordMasks) {
  std::mt19937 random;
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  for (const std::string_view words :
       {modData::kFilterWords, std::string_view("Ass;Bad;Dab;Assess;Seas;Adabadd;Aaa")}) {
    const std::vector<std::string_view> list(Split(words, ';').begin(), Split(words, ';').end());
    LanguageFilter filter;
    filter.SetFilterWords(words);
    for (int round = 0; round < 5'000; ++round) {
      std::string text;
      for (std::size_t pieces = below(below(50) == 0 ? 200 : 12); pieces > 0; --pieces) {
        const std::string_view word = list[below(list.size())];
        const std::size_t from = below(4) == 0 ? below(word.size()) : 0;
        text += word.substr(from, below(3) == 0 ? below(word.size()) : word.size());
        if (below(4) == 0) {
          text += "* @[\n\xE1"[below(6)];
        }
      }
      for (char& letter : text) {
        constexpr int kFlips[] = {0x20, 0x20, 0x20, 0x20, 0x20, 0x20, 0x40, 0x80};
        if (below(3) == 0) {
          letter = static_cast<char>(letter ^ kFlips[below(8)]);
        }
      }
      std::string masked;
      ASSERT_EQ(filter.FilterLanguage(text, masked), InPasses(text, words)) << text;
    }
  }
}

TEST(LanguageFilter, TheFixedListHasItsForm) {
  EXPECT_EQ(modData::kFilterWords.size(), 83U);
  std::vector<std::string_view> words;
  for (std::string_view word : Split(modData::kFilterWords, ';')) {
    words.push_back(word);
    EXPECT_GE(word.size(), 3U);
    EXPECT_LE(word.size(), 7U);
    EXPECT_TRUE(word[0] >= 'A' && word[0] <= 'Z') << word;
    EXPECT_TRUE(std::all_of(word.begin() + 1, word.end(), [](char c) {
      return c >= 'a' && c <= 'z';
    })) << word;
  }
  EXPECT_EQ(words.size(), 16U);
  EXPECT_EQ(std::count_if(words.begin(), words.end(), [](auto word) { return word.size() == 3; }),
            4);
}

}  // namespace
}  // namespace korvanta
