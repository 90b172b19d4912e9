#include "lobby/word_finder.h"

#include <cassert>

namespace korvanta {
namespace {

constexpr std::uint64_t kCountingBits = 0x1F;

/// The index of the pair in each sixteen bits.
constexpr std::uint64_t PairsIn(std::uint64_t bytes) {
  constexpr std::uint64_t kInEachPair = 0x0001000100010001;
  return (bytes & kCountingBits * kInEachPair) |
         (bytes >> 3U & (kCountingBits << 5U) * kInEachPair);
}

}  // namespace

void WordFinder::Add(std::string_view word) {
  assert(words_.size() < kMostWords && IsPossible(word));
  const WordSet here = WordSet{1} << words_.size();
  const WordSet one_on = here << kMostWords;
  begin_[PairsIn(BytesAt(word.substr(0, 2), 0))] |= here;
  go_on_[PairsIn(BytesAt(word.substr(1, 2), 0))] |= one_on;
  for (std::uint64_t any = 0; any <= kCountingBits; ++any) {
    begin_[PairsIn(any | static_cast<std::uint64_t>(word[0]) << 8U)] |= one_on;
    go_on_[PairsIn(static_cast<std::uint64_t>(word[2]) | any << 8U)] |= here;
  }
  const Bytes places = (Bytes{1} << 8U * word.size()) - 1;
  words_.push_back({(BytesAt(word, 0) | kCaseBits) & places, places, word.size()});
}

/// Reads on from a multiple of eight bytes to the end of the text, or until there may be too many
/// beginnings for the list. Returns how far it read.
std::size_t WordFinder::ReadOn(std::string_view text, std::size_t from,
                               Beginnings& beginnings) const {
  constexpr std::size_t kAtATime = sizeof(Bytes);
  beginnings.Clear();
  WordSet begun = from == 0 ? 0 : begin_[PairsIn(BytesAt(text.substr(0, from), from - 2))];
  for (std::size_t at = from; at < text.size(); at += kAtATime) {
    const std::uint64_t pairs = PairsIn(BytesAt(text, at));
    const auto a = static_cast<std::uint16_t>(pairs);
    const auto b = static_cast<std::uint16_t>(pairs >> 16U);
    const auto c = static_cast<std::uint16_t>(pairs >> 32U);
    const auto d = static_cast<std::uint16_t>(pairs >> 48U);
    const WordSet in_a = begun & go_on_[a];
    const WordSet in_b = begin_[a] & go_on_[b];
    const WordSet in_c = begin_[b] & go_on_[c];
    const WordSet in_d = begin_[c] & go_on_[d];
    begun = begin_[d];
    if ((in_a | in_b | in_c | in_d) != 0) {
      std::size_t place = at - 2;
      for (const WordSet words : {in_a, in_b, in_c, in_d}) {
        beginnings.AddUnlessEmpty(place++, words & kLowerHalf);
        beginnings.AddUnlessEmpty(place++, words >> kMostWords);
      }
      if (beginnings.room() < kAtATime) {
        return at + kAtATime;
      }
    }
  }
  return text.size();
}

}  // namespace korvanta
