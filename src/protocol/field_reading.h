/// Reading of fields and numbers from inbound messages; the only place that decides what text
/// counts as a number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "protocol/wire_format.h"

namespace korvanta {

/// A malformed inbound message: a field is missing, or is not the number or Boolean that it must
/// be. Ends the handling of the received block.
class MessageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Field `index`, counted from 0, of a payload or list. A payload with n separators has n + 1
/// fields, an empty one has none. Throws MessageError if the field is missing.
std::string_view Field(std::string_view payload, std::size_t index);

/// Reads the fields of a payload or list in order.
class FieldReader {
 public:
  explicit FieldReader(std::string_view payload) : next_(Split(payload, kFieldSeparator).begin()) {}

  /// Throws MessageError if no field is left.
  std::string_view Next();

 private:
  Split::Iterator next_;
};

/// Parses the whole text as a number, with blanks allowed around it; nothing if it is not one.
///
/// A number is an optional sign, decimal digits with at most one decimal point before, between or
/// after them, and an optional exponent (e or E, optional sign, digits). Hexadecimal, "nan", "inf"
/// and thousands separators are not numbers. Magnitudes beyond a double's range become its largest
/// value or zero, so every number is finite. Blanks are space, tab, carriage return and line feed.
std::optional<double> ParseNumber(std::string_view text);

/// Reads a number strictly: throws MessageError if the text is not a number.
double ReadNumber(std::string_view text);

/// Reads a number leniently: the longest leading number, ignoring blanks anywhere; 0 if there is
/// none. Never throws.
double ReadLeadingNumber(std::string_view text);

/// A value as a 16-bit signed integer, rounded to the nearest, ties to even. Throws MessageError if
/// it is out of range.
std::int16_t ToInt16(double value);

/// The entry with that number, counted from 1; null if there is none.
template <typename Entry, std::size_t count>
const Entry* NumberedEntry(const std::array<Entry, count>& entries, double number) {
  for (std::size_t i = 0; i < count; ++i) {
    if (number == static_cast<double>(i + 1)) {
      return &entries[i];
    }
  }
  return nullptr;
}

/// Parses true or false in any letter case, or a number, of which only 0 is false; blanks are
/// allowed around either. Nothing if the text is neither.
std::optional<bool> ParseBoolean(std::string_view text);

/// Reads a Boolean: throws MessageError if the text is not one.
bool ReadBoolean(std::string_view text);

}  // namespace korvanta
