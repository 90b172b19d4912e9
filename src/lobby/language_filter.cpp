#include "lobby/language_filter.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr char kWordSeparator = ';';
constexpr char kMaskCharacter = '*';

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

bool SameLetter(char a, char b) { return ToLower(a) == ToLower(b); }

constexpr bool FitsTheFinder(std::string_view words) {
  std::size_t count = 1;
  for (std::size_t end = 0; (end = words.find(kWordSeparator)) != std::string_view::npos; ++count) {
    if (!WordFinder::IsPossible(words.substr(0, end))) {
      return false;
    }
    words.remove_prefix(end + 1);
  }
  return count <= WordFinder::kMostWords && WordFinder::IsPossible(words);
}

/// Occurrences of listed words that overlap each other, from the start of the first to the end of
/// the last. What becomes of them depends on nothing outside.
struct Stretch {
  std::size_t from = 0;
  std::size_t to = 0;
  bool is_one_word = true;
};

/// Puts the mask of a word of `text` into `masked`, and perhaps bytes of `text` behind it: one
/// store for words of every size needs no branch on it, which would be foretold wrongly at most
/// words.
void MaskWord(std::string_view text, std::size_t at, std::size_t size, std::string& masked) {
  constexpr std::uint64_t kMask = kMaskCharacter * 0x0101010101010101U;
  std::uint64_t bytes = 0;
  if (at + sizeof bytes > text.size() || std::endian::native != std::endian::little) {
    std::fill_n(masked.begin() + static_cast<std::ptrdiff_t>(at), size, kMaskCharacter);
    return;
  }
  std::memcpy(&bytes, text.data() + at, sizeof bytes);
  bytes = (bytes >> 8U * size << 8U * size) | kMask >> 8U * (sizeof bytes - size);
  std::memcpy(masked.data() + at, &bytes, sizeof bytes);
}

void MaskWordByWord(const LanguageFilter& filter, std::string_view text, const Stretch& stretch,
                    std::string& masked) {
  const auto begin = masked.begin() + static_cast<std::ptrdiff_t>(stretch.from);
  const auto end = masked.begin() + static_cast<std::ptrdiff_t>(stretch.to);
  std::copy(text.begin() + static_cast<std::ptrdiff_t>(stretch.from),
            text.begin() + static_cast<std::ptrdiff_t>(stretch.to), begin);
  for (std::string_view word : Split(filter.FilterWords(), kWordSeparator)) {
    const std::string mask = modData::MaskFor(word, kMaskCharacter);
    auto at = begin;
    while ((at = std::search(at, end, word.begin(), word.end(), SameLetter)) != end) {
      at = std::copy(mask.begin(), mask.end(), at);
    }
  }
}

}  // namespace

constexpr std::string_view modData::kFilterWords =
    "Fuck;Shit;Cunt;Twat;Dick;Damn;Slut;Fag;Wog;Wop;Fuk;Bitch;Whore;Pussy;Nigger;Bastard";
static_assert(FitsTheFinder(modData::kFilterWords));

std::string modData::MaskFor(std::string_view word, char mask_character) {
  return std::string(word.size(), mask_character);
}

std::string_view modData::FilterLanguage(const LanguageFilter& filter, std::string_view text,
                                         std::string& masked) {
  Stretch last;
  const auto finish = [&] {
    if (!last.is_one_word) {
      MaskWordByWord(filter, text, last, masked);
    }
  };
  filter.finder().Find(text, [&](std::size_t at, std::size_t size) {
    if (at < last.to) {
      last.to = std::max(last.to, at + size);
      last.is_one_word = false;
      return;
    }
    if (last.to == 0) {
      masked = text;
    }
    finish();
    MaskWord(text, at, size, masked);
    last = {at, at + size};
  });
  if (last.to == 0) {
    return text;
  }
  finish();
  return masked;
}

void LanguageFilter::SetFilterWords(std::string_view words) {
  filter_words_ = words;
  finder_ = {};
  for (std::string_view word : Split(filter_words_, kWordSeparator)) {
    finder_.Add(word);
  }
}

std::string_view LanguageFilter::FilterLanguage(std::string_view text, std::string& masked) const {
  return modData::FilterLanguage(*this, text, masked);
}

}  // namespace korvanta
