/// The language filter: a fixed list of offensive words that are masked in chat lines while the
/// option is on. The dispatcher applies it to each "[msg]" line and to nothing else.
#pragma once

#include <string>
#include <string_view>

#include "protocol/receivers.h"

namespace korvanta {

class LanguageFilter : public ChatFilter {
 public:
  /// Words of ASCII letters joined by ';'; empty until start-up sets them, fixed from then on.
  std::string FilterWords;

  std::string FilterLanguage(std::string_view text) const override;
};

namespace modData {

/// The word list of every run.
extern const std::string_view kFilterWords;

/// As many mask characters as the word has characters.
std::string MaskFor(std::string_view word, char mask_character);

/// The text with every listed word masked by '*', wherever it stands and in any letter case. Words
/// are taken in list order, each from left to right without overlaps; the length never changes.
std::string FilterLanguage(const LanguageFilter& filter, std::string_view text);

}  // namespace modData

}  // namespace korvanta
