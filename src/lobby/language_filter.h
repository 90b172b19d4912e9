/// The language filter: a fixed list of offensive words that are masked in chat lines while the
/// option is on. The dispatcher applies it to each chat line and to nothing else.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/receivers.h"

namespace korvanta {

class LanguageFilter : public ChatFilter {
 public:
  /// At most 16 words of 3 or more ASCII letters, joined by ';'. Set once, at start-up; until then
  /// nothing is masked.
  void SetFilterWords(std::string_view words);
  std::string_view FilterWords() const { return filter_words_; }

  /// The text with every listed word masked by '*', anywhere and in any letter case. Words are
  /// masked in list order, each from left to right without overlaps; the length never changes. The
  /// result is `text` itself if nothing is masked, otherwise it is stored in `masked`.
  std::string_view FilterLanguage(std::string_view text, std::string& masked) const override;

 private:
  using WordSet = std::uint16_t;  // a bit for each word

  std::string filter_words_;
  std::vector<std::string> words_;

  /// For the first, second and third letter: by byte, the words that have it in that position, in
  /// either case.
  std::array<std::array<WordSet, 256>, 3> words_with_{};
};

namespace modData {

/// The built-in word list.
extern const std::string_view kFilterWords;

/// As many mask characters as the word has characters.
std::string MaskFor(std::string_view word, char mask_character);

}  // namespace modData

}  // namespace korvanta
