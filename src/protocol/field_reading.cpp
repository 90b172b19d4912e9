#include "protocol/field_reading.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "base/ascii_case.h"
#include "base/trim.h"

namespace korvanta {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t CountDigits(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  return static_cast<std::size_t>(end - text.begin());
}

/// Length of the longest number that the text starts with; 0 if it starts with none.
std::size_t LeadingNumberLength(std::string_view text) {
  std::size_t at = 0;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    ++at;
  }
  std::size_t digits = CountDigits(text.substr(at));
  at += digits;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fraction = CountDigits(text.substr(at + 1));
    digits += fraction;
    at += 1 + fraction;
  }
  if (digits == 0) {
    return 0;
  }
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) {
      ++exponent;
    }
    const std::size_t exponent_digits = CountDigits(text.substr(exponent));
    if (exponent_digits > 0) {
      at = exponent + exponent_digits;
    }
  }
  return at;
}

/// Whether an unsigned number that is out of a double's range is too large rather than too small.
bool Overflows(std::string_view number) {
  const std::size_t e = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, e);
  const std::size_t first_digit = mantissa.find_first_of("123456789");
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto magnitude = static_cast<std::ptrdiff_t>(point - first_digit);
  if (e == std::string_view::npos) {
    return magnitude > 0;
  }
  std::string_view exponent = number.substr(e + 1);
  if (exponent[0] == '+') {
    exponent.remove_prefix(1);
  }
  std::ptrdiff_t shift = 0;
  if (std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift).ec !=
      std::errc()) {
    return exponent[0] != '-';
  }
  return shift > -magnitude;
}

/// The value of a text that is known to be a number.
double NumberValue(std::string_view number) {
  const bool negative = number[0] == '-';
  if (negative || number[0] == '+') {
    number.remove_prefix(1);
  }
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc::result_out_of_range) {
    value = Overflows(number) ? std::numeric_limits<double>::max() : 0.0;
  }
  return negative ? -value : value;
}

[[noreturn]] void MissingField() { throw MessageError("missing field"); }

}  // namespace

std::string_view Field(std::string_view payload, std::size_t index) {
  for (std::string_view field : Split(payload, kFieldSeparator)) {
    if (index == 0) {
      return field;
    }
    --index;
  }
  MissingField();
}

std::string_view FieldReader::Next() {
  if (next_ == Split::end()) {
    MissingField();
  }
  return *next_++;
}

std::optional<double> ParseNumber(std::string_view text) {
  text = Trim(text, kBlanks);
  const std::size_t length = LeadingNumberLength(text);
  if (length == 0 || length != text.size()) {
    return std::nullopt;
  }
  return NumberValue(text);
}

double ReadNumber(std::string_view text) {
  if (const auto number = ParseNumber(text)) {
    return *number;
  }
  throw MessageError("not a number");
}

double ReadLeadingNumber(std::string_view text) {
  std::string without_blanks(text);
  std::erase_if(without_blanks, [](char c) { return kBlanks.find(c) != std::string_view::npos; });
  const std::string_view number(without_blanks.data(), LeadingNumberLength(without_blanks));
  return number.empty() ? 0.0 : NumberValue(number);
}

std::int16_t ToInt16(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2.0) != 0.0);
  const double rounded = up ? below + 1 : below;
  if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
        rounded <= std::numeric_limits<std::int16_t>::max())) {
    throw MessageError("number outside 16 bits");
  }
  return static_cast<std::int16_t>(rounded);
}

std::optional<bool> ParseBoolean(std::string_view text) {
  const std::string_view word = Trim(text, kBlanks);
  if (EqualIgnoringCase(word, "true")) {
    return true;
  }
  if (EqualIgnoringCase(word, "false")) {
    return false;
  }
  if (const auto number = ParseNumber(word)) {
    return *number != 0;
  }
  return std::nullopt;
}

bool ReadBoolean(std::string_view text) {
  if (const auto value = ParseBoolean(text)) {
    return *value;
  }
  throw MessageError("not a Boolean");
}

}  // namespace korvanta
