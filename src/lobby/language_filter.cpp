#include "lobby/language_filter.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <utility>

#include "base/ascii_case.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

bool OccursAt(std::string_view text, std::size_t at, std::string_view word) {
  return EqualIgnoringCase(text.substr(at, word.size()), word);
}

}  // namespace

constexpr std::string_view modData::kFilterWords =
    "Fuck;Shit;Cunt;Twat;Dick;Damn;Slut;Fag;Wog;Wop;Fuk;Bitch;Whore;Pussy;Nigger;Bastard";

std::string modData::MaskFor(std::string_view word, char mask_character) {
  return std::string(word.size(), mask_character);
}

void LanguageFilter::SetFilterWords(std::string_view words) {
  filter_words_ = words;
  words_.clear();
  words_with_ = {};
  for (const std::string_view word : Split(words, ';')) {
    assert(words_.size() < 16 && word.size() >= words_with_.size());
    const auto bit = static_cast<WordSet>(1U << words_.size());
    for (std::size_t place = 0; place < words_with_.size(); ++place) {
      words_with_[place][static_cast<unsigned char>(LowerCase(word[place]))] |= bit;
      words_with_[place][static_cast<unsigned char>(UpperCase(word[place]))] |= bit;
    }
    words_.emplace_back(word);
  }
}

std::string_view LanguageFilter::FilterLanguage(std::string_view text, std::string& masked) const {
  const auto words_with = [&](std::size_t place, char letter) {
    return words_with_[place][static_cast<unsigned char>(letter)];
  };
  std::vector<std::pair<std::size_t, std::size_t>> found;  // which word, and where
  for (std::size_t at = 0; at + 2 < text.size(); ++at) {
    unsigned words =
        words_with(0, text[at]) & words_with(1, text[at + 1]) & words_with(2, text[at + 2]);
    for (; words != 0; words &= words - 1) {
      const auto word = static_cast<std::size_t>(std::countr_zero(words));
      if (OccursAt(text, at, words_[word])) {
        found.emplace_back(word, at);
      }
    }
  }
  if (found.empty()) {
    return text;
  }
  masked = text;
  std::sort(found.begin(), found.end());  // word by word, and each from left to right
  for (const auto& [word, at] : found) {
    if (OccursAt(masked, at, words_[word])) {  // no other mask reaches into it
      masked.replace(at, words_[word].size(), modData::MaskFor(words_[word], '*'));
    }
  }
  return masked;
}

}  // namespace korvanta
