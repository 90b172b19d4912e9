#include "lobby/language_filter.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "protocol/wire_format.h"

namespace korvanta {
namespace {

std::string Filtered(std::string_view text, std::string words = "Ass;Bad;Dab;Assess") {
  LanguageFilter filter;
  filter.FilterWords = std::move(words);
  return filter.FilterLanguage(text);
}

TEST(LanguageFilter, MasksSubstringsInAnyCase) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {"hello", "hello"},
      {"ass", "***"},
      {"aSS BAD bAd", "*** *** ***"},
      {"a glass, assbad", "a gl***, ******"},
      {"Bad: name and text bad", "***: name and text ***"},
      {"as s b-ad", "as s b-ad"},
      {"ba", "ba"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(Filtered(text), expected) << text;
  }
}

TEST(LanguageFilter, TakesWordsInListOrderWithoutOverlaps) {
  EXPECT_EQ(Filtered("badab"), "***ab");
  EXPECT_EQ(Filtered("dabad"), "da***");
  EXPECT_EQ(Filtered("assess"), "***ess");
  EXPECT_EQ(Filtered("aaaaa", "Aa"), "****a");
}

TEST(LanguageFilter, LeavesEverythingAloneWithoutWords) { EXPECT_EQ(Filtered("bad", ""), "bad"); }

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
