/// Finds a few short words in a text that is read once, whatever their number. The language filter
/// is its one user.
///
/// The first three letters of a word are two pairs of neighbours, and one of them lies where every
/// other pair of the text lies. So looking at every other pair, and at the byte on either side of
/// it, finds each place where a word may begin; only there are whole words compared.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace korvanta {

class WordFinder {
 public:
  static constexpr std::size_t kMostWords = 16;
  static constexpr std::size_t kShortest = 3;
  static constexpr std::size_t kLongest = 7;

  /// Whether the word consists of ASCII letters, kShortest to kLongest of them.
  static constexpr bool IsPossible(std::string_view word) {
    return word.size() >= kShortest && word.size() <= kLongest &&
           std::all_of(word.begin(), word.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); });
  }

  /// Adds a possible word, as long as there are fewer than kMostWords.
  void Add(std::string_view word);

  /// Calls `visit(at, size)` for each occurrence of each word in any letter case, overlapping ones
  /// included, from left to right.
  template <typename Visitor>
  void Find(std::string_view text, Visitor visit) const {
    for (std::size_t at = NextBeginning(text, 0); at < text.size();
         at = NextBeginning(text, at + 1)) {
      const Letters letters = LettersAt(text, at);
      for (WordSet words = BeginningAt(text, at); words != 0; words &= words - 1) {
        const Word& word = words_[static_cast<std::size_t>(std::countr_zero(words))];
        if ((letters & word.places) == word.letters) {
          visit(at, word.size);
        }
      }
    }
  }

 private:
  /// Eight bytes as they lie in memory, letters in lower case.
  using Letters = std::uint64_t;
  static_assert(kLongest <= sizeof(Letters));

  struct Word {
    Letters letters;
    Letters places;  ///< all bits of the bytes that hold the word
    std::size_t size;
  };

  /// A bit for each word. Where two sets are kept together, the lower half is of the words that may
  /// begin at a place, the upper half of those that may have begun one byte before it.
  using WordSet = std::uint32_t;
  static constexpr std::size_t kHalf = kMostWords;

  std::size_t NextBeginning(std::string_view text, std::size_t from) const;

  static std::uint16_t PairAt(const char* bytes) {
    std::uint16_t pair = 0;
    std::memcpy(&pair, bytes, sizeof pair);
    return pair;
  }

  /// The words whose first three letters stand at `at`.
  WordSet BeginningAt(std::string_view text, std::size_t at) const {
    return by_pair_[PairAt(text.data() + at)] & by_pair_[PairAt(text.data() + at + 1)] >> kHalf;
  }

  /// The bytes from `at` on, and zeros beyond the end of the text. Only letters become letters.
  static Letters LettersAt(std::string_view text, std::size_t at) {
    constexpr Letters kCaseBits = 0x2020202020202020;
    const char* const bytes = text.data() + at;
    const std::size_t count = text.size() - at;
    Letters letters = 0;
    if (count >= sizeof letters) {
      std::memcpy(&letters, bytes, sizeof letters);
    } else {
      std::memcpy(&letters, bytes, count);
    }
    return letters | kCaseBits;
  }

  std::vector<Word> words_;

  // By the two bytes at a place, by the byte behind these, and by the byte before them.
  std::vector<WordSet> by_pair_ = std::vector<WordSet>(std::size_t{1} << 16U);
  std::array<WordSet, 256> by_next_{};
  std::array<WordSet, 256> by_previous_{};
};

}  // namespace korvanta
