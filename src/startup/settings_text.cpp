#include "startup/settings_text.h"

#include <charconv>

namespace korvanta {
namespace {

constexpr std::string_view kEndOfName = "=[];#";

/// `special` are the characters to escape in addition to those that always are.
std::string Escape(std::string_view text, std::string_view special) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool is_outer_blank = byte == ' ' && (i == 0 || i + 1 == text.size());
    if (byte < 0x20 || byte > 0x7e || byte == '%' || is_outer_blank ||
        special.find(text[i]) != std::string_view::npos) {
      escaped += '%';
      escaped += kDigits[byte >> 4U];
      escaped += kDigits[byte & 0xfU];
    } else {
      escaped += text[i];
    }
  }
  return escaped;
}

/// A '%' that is not followed by two hexadecimal digits is literal.
std::string Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const std::string_view digits = text.substr(i).substr(1, 2);
    if (text[i] == '%' && digits.size() == 2 &&
        std::from_chars(digits.data(), digits.data() + 2, byte, 16).ptr == digits.data() + 2) {
      plain += static_cast<char>(byte);
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

}  // namespace

std::optional<std::string> SettingsText::Find(std::string_view section,
                                              std::string_view key) const {
  const auto value = lines_.Find(Escape(section, kEndOfName), Escape(key, kEndOfName));
  return value ? std::optional(Unescape(*value)) : std::nullopt;
}

void SettingsText::Set(std::string_view section, std::string_view key, std::string_view text) {
  lines_.Set(Escape(section, kEndOfName), Escape(key, kEndOfName), Escape(text, {}));
}

}  // namespace korvanta
