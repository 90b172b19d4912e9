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

/// A broken inbound message: a missing field, or text that is no number or Boolean where one must
/// stand. It ends the handling of the received block.
class MessageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Field `index`, counted from 0, of a payload or list. A payload of n separators has n + 1 fields,
/// an empty one has none. Raises MessageError for a field that is missing.
std::string_view Field(std::string_view payload, std::size_t index);

/// The fields of a payload or list from the first on, for those whose fields are all read.
class FieldReader {
 public:
  explicit FieldReader(std::string_view payload) : next_(Split(payload, kFieldSeparator).begin()) {}

  /// Raises MessageError when no field is left.
  std::string_view Next();

 private:
  Split::Iterator next_;
};

/// The number that a text as a whole is, blanks around it allowed; nothing when it is none.
///
/// A number is an optional sign, decimal digits with at most one decimal point among, before or
/// behind them, and an optional exponent (e or E, optional sign, digits). Hexadecimal, "nan", "inf"
/// and thousands separators are not numbers. Magnitudes beyond a double's range become its largest
/// value or zero, so every number is finite. Blanks are space, tab, carriage return and line feed.
std::optional<double> ParseNumber(std::string_view text);

/// Strict number reading: raises MessageError when the text is not a number.
double ReadNumber(std::string_view text);

/// Lenient number reading: the longest leading number, blanks ignored wherever they stand; 0 when
/// there is none. Never an error.
double ReadLeadingNumber(std::string_view text);

/// A value as a 16-bit signed integer, rounded to the nearest, halves to the even neighbour. Raises
/// MessageError when it does not fit.
std::int16_t ToInt16(double value);

/// The entry that a number names, counted from 1; null when it names none.
template <typename Entry, std::size_t count>
const Entry* NumberedEntry(const std::array<Entry, count>& entries, double number) {
  for (std::size_t i = 0; i < count; ++i) {
    if (number == static_cast<double>(i + 1)) {
      return &entries[i];
    }
  }
  return nullptr;
}

/// The truth of a text: true or false in any letter case, or a number, 0 being false; blanks around
/// either allowed. Nothing when it is neither.
std::optional<bool> ParseBoolean(std::string_view text);

/// Boolean reading: raises MessageError for a text that is no Boolean.
bool ReadBoolean(std::string_view text);

}  // namespace korvanta
