#include "lobby/language_filter.h"

#include <algorithm>

#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr char kWordSeparator = ';';
constexpr char kMaskCharacter = '*';

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

}  // namespace

const std::string_view modData::kFilterWords =
    "Fuck;Shit;Cunt;Twat;Dick;Damn;Slut;Fag;Wog;Wop;Fuk;Bitch;Whore;Pussy;Nigger;Bastard";

std::string modData::MaskFor(std::string_view word, char mask_character) {
  return std::string(word.size(), mask_character);
}

std::string modData::FilterLanguage(const LanguageFilter& filter, std::string_view text) {
  std::string filtered(text);
  const auto same_letter = [](char a, char b) { return ToLower(a) == ToLower(b); };
  for (std::string_view word : Split(filter.FilterWords, kWordSeparator)) {
    const std::string mask = MaskFor(word, kMaskCharacter);
    auto at = filtered.begin();
    while ((at = std::search(at, filtered.end(), word.begin(), word.end(), same_letter)) !=
           filtered.end()) {
      at = std::copy(mask.begin(), mask.end(), at);
    }
  }
  return filtered;
}

std::string LanguageFilter::FilterLanguage(std::string_view text) const {
  return modData::FilterLanguage(*this, text);
}

}  // namespace korvanta
