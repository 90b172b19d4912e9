/// The language filter: a fixed list of offensive words that are masked in chat lines while the
/// option is on. The dispatcher applies it to each "[msg]" line and to nothing else.
#pragma once

#include <string>
#include <string_view>

#include "lobby/word_finder.h"
#include "protocol/receivers.h"

namespace korvanta {

class LanguageFilter : public ChatFilter {
 public:
  /// At most 16 words of 3 to 7 ASCII letters, joined by ';': set at start-up, fixed from then on.
  /// Until then nothing is masked.
  void SetFilterWords(std::string_view words);
  std::string_view FilterWords() const { return filter_words_; }
  const WordFinder& finder() const { return finder_; }

  std::string_view FilterLanguage(std::string_view text, std::string& masked) const override;

 private:
  std::string filter_words_;
  WordFinder finder_;  // of the same words
};

namespace modData {

/// The word list of every run.
extern const std::string_view kFilterWords;

/// As many mask characters as the word has characters.
std::string MaskFor(std::string_view word, char mask_character);

/// The text with every listed word masked by '*', wherever it stands and in any letter case. Words
/// are taken in list order, each from left to right without overlaps; the length never changes.
/// The result is `text` itself when nothing is masked, else it lies in `masked`.
std::string_view FilterLanguage(const LanguageFilter& filter, std::string_view text,
                                std::string& masked);

}  // namespace modData

}  // namespace korvanta
