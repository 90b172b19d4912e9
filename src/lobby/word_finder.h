/// Finds a few short words in a text that is read once, whatever their number. The language filter
/// is its one user.
///
/// The text is taken as pairs of bytes, one behind the other. The first three letters of a word lie
/// in two neighbouring pairs, either as both bytes of the first and one of the second, or as one
/// and both. A table tells for each pair which words it may begin and which it may go on with, so
/// two looks at it and one AND find the words that may begin at two places; only there are whole
/// words compared. Eight bytes are handled at a time, and no branch depends on where words are
/// before a word may have begun.
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
    Beginnings beginnings;
    for (std::size_t read = 0; read < text.size();) {
      read = ReadOn(text, read, beginnings);
      for (std::size_t i = 0; i < beginnings.size(); ++i) {
        const std::size_t at = beginnings.at(i);
        const Bytes bytes = BytesAt(text, at) | kCaseBits;
        for (WordSet words = beginnings.words(i); words != 0; words &= words - 1) {
          const Word& word = words_[static_cast<std::size_t>(std::countr_zero(words))];
          if ((bytes & word.places) == word.letters) {
            visit(at, word.size);
          }
        }
      }
    }
  }

 private:
  /// Eight bytes of a text, the first of them lowest.
  using Bytes = std::uint64_t;
  static constexpr Bytes kCaseBits = 0x2020202020202020;  // turn letters, and only these, to lower
  static_assert(kLongest <= sizeof(Bytes));

  struct Word {
    Bytes letters;  ///< in lower case
    Bytes places;   ///< all bits of the bytes that hold the word
    std::size_t size;
  };

  /// A bit for each word: the lower half for words that begin with a pair, the upper half for those
  /// that begin with its second byte.
  using WordSet = std::uint32_t;
  static constexpr WordSet kLowerHalf = (WordSet{1} << kMostWords) - 1;

  /// Where words may begin, in order, and which. Kept as one number each, for that is quicker.
  class Beginnings {
   public:
    std::size_t size() const { return size_; }
    std::size_t room() const { return list_.size() - size_; }
    std::size_t at(std::size_t i) const { return list_[i] >> kMostWords; }
    WordSet words(std::size_t i) const { return list_[i] & kLowerHalf; }

    void Clear() { size_ = 0; }
    void AddUnlessEmpty(std::size_t at, WordSet words) {
      list_[size_] = at << kMostWords | words;
      size_ += static_cast<std::size_t>(words != 0);
    }

   private:
    std::size_t size_ = 0;
    std::array<std::uint64_t, 64> list_;
  };

  std::size_t ReadOn(std::string_view text, std::size_t from, Beginnings& beginnings) const;

  static constexpr Bytes LowestFirst(Bytes bytes) {
    return std::endian::native == std::endian::little ? bytes : __builtin_bswap64(bytes);
  }

  /// The bytes from `at` on, and zeros beyond the end of the text.
  static Bytes BytesAt(std::string_view text, std::size_t at) {
    Bytes bytes = 0;
    if (at + sizeof bytes <= text.size()) {
      std::memcpy(&bytes, text.data() + at, sizeof bytes);
      return LowestFirst(bytes);
    }
    if (text.size() < sizeof bytes) {
      std::memcpy(&bytes, text.data(), text.size());
      return LowestFirst(bytes) >> 8U * at;
    }
    std::memcpy(&bytes, text.data() + text.size() - sizeof bytes, sizeof bytes);
    return LowestFirst(bytes) >> 8U * (at + sizeof bytes - text.size());
  }

  std::vector<Word> words_;

  // By a pair of bytes, of each of which five bits count: letters differ in these, whatever their
  // case, and what else shares them is told apart when whole words are compared.
  static constexpr std::size_t kPairs = 1 << 10;
  std::array<WordSet, kPairs> begin_{};  ///< the words that may begin in a pair
  std::array<WordSet, kPairs> go_on_{};  ///< the words that may have begun in the pair before
};

}  // namespace korvanta
