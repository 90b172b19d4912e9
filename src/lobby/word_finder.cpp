#include "lobby/word_finder.h"

#include <cassert>

namespace korvanta {
namespace {

constexpr char kCaseBit = 0x20;

std::uint8_t ByteAt(const char* byte) { return static_cast<std::uint8_t>(*byte); }

}  // namespace

void WordFinder::Add(std::string_view word) {
  assert(words_.size() < kMostWords && IsPossible(word));
  const WordSet here = WordSet{1} << words_.size();
  const WordSet one_before = here << kHalf;
  for (unsigned cases = 0; cases < 1U << kShortest; ++cases) {
    std::array<char, kShortest> first;
    for (std::size_t i = 0; i < kShortest; ++i) {
      const char lower = static_cast<char>(word[i] | kCaseBit);
      first[i] = (cases >> i & 1U) != 0 ? static_cast<char>(lower ^ kCaseBit) : lower;
    }
    by_pair_[PairAt(&first[0])] |= here;
    by_pair_[PairAt(&first[1])] |= one_before;
    by_next_[ByteAt(&first[2])] |= here;
    by_previous_[ByteAt(&first[0])] |= one_before;
  }
  Letters places = 0;
  std::memset(&places, 0xFF, word.size());
  words_.push_back({LettersAt(word, 0) & places, places, word.size()});
}

/// The first place from `from` on where the first three letters of a word stand, or the end.
std::size_t WordFinder::NextBeginning(std::string_view text, std::size_t from) const {
  const char* const bytes = text.data();
  const WordSet* const by_pair = by_pair_.data();
  std::size_t at = from + 1;
  for (; at + 2 < text.size(); at += 2) {
    const WordSet words = by_pair[PairAt(bytes + at)] &
                          (by_next_[ByteAt(bytes + at + 2)] | by_previous_[ByteAt(bytes + at - 1)]);
    if (words != 0) {
      return at - static_cast<std::size_t>(words >> kHalf != 0);
    }
  }
  const bool is_pair_left = at + 2 == text.size();
  return is_pair_left && BeginningAt(text, at - 1) != 0 ? at - 1 : text.size();
}

}  // namespace korvanta
