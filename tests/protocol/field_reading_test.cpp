#include "protocol/field_reading.h"

#include <gtest/gtest.h>
#include <limits>

namespace korvanta {
namespace {

using namespace std::string_view_literals;

TEST(Field, CountsFromZeroAndKeepsEmptyFields) {
  const std::string_view payload = "a\001\001c\001";
  std::string fields;
  for (std::size_t index = 0; index < 4; ++index) {
    fields.append(Field(payload, index)).append("|");
  }
  EXPECT_EQ(fields, "a||c||");
  EXPECT_THROW(Field(payload, 4), MessageError);
  EXPECT_THROW(Field("", 0), MessageError);
}

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(NumberReading, IsStrictOfTheWholeTextOrLenientOfItsBeginning) {
  const std::pair<std::string_view, double> numbers[] = {
      {"12", 12},     {"-7", -7},          {"+3", 3},     {" \t12\r\n", 12},
      {"2.50", 2.5},  {".5", 0.5},         {"5.", 5},     {"1e3", 1000},
      {"1E-2", 0.01}, {"1e999", kLargest}, {"1e-999", 0}, {"-1e999", -kLargest},
  };
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(ReadNumber(text), value) << text;
    EXPECT_EQ(ReadLeadingNumber(text), value) << text;
  }
  const std::pair<std::string_view, double> beginnings[] = {
      {"", 0},     {" ", 0},        {".", 0},     {".x", 0},      {"-", 0},         {"+-1", 0},
      {"- 5", -5}, {"-5x", -5},     {"1 2", 12},  {"\t1\n2", 12}, {" 9 0 x", 90},   {"12abc", 12},
      {"1e", 1},   {"1e+", 1},      {"1ex", 1},   {"0x10", 0},    {"&H10", 0},      {"nan", 0},
      {"inf", 0},  {"infinity", 0}, {"1,000", 1}, {"1.2.3", 1.2}, {"12\000"sv, 12},
  };
  for (const auto& [text, value] : beginnings) {
    EXPECT_THROW(ReadNumber(text), MessageError) << text;
    EXPECT_EQ(ReadLeadingNumber(text), value) << text;
  }
}

TEST(NumberReading, DigitsDoNotDecideBetweenTooLargeAndTooSmall) {
  const std::string zeros(400, '0');
  EXPECT_EQ(ReadNumber("1" + zeros), kLargest);
  EXPECT_EQ(ReadNumber("1" + zeros + "e-5"), kLargest);
  EXPECT_EQ(ReadNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(ReadNumber("0." + zeros + "1e5"), 0);
  EXPECT_EQ(ReadNumber("1e99999999999999999999"), kLargest);
  EXPECT_EQ(ReadNumber("1e-99999999999999999999"), 0);
}

TEST(Int16, RoundsHalvesToEvenAndMustFit) {
  const std::pair<double, int> fitting[] = {
      {2.5, 2},    {3.5, 4},    {-2.5, -2},       {-3.5, -4},       {0.5, 0},   {-0.5, 0},
      {2.4999, 2}, {2.5001, 3}, {32767.4, 32767}, {-32768, -32768}, {-1.5, -2}, {-32768.5, -32768},
  };
  for (const auto& [value, rounded] : fitting) {
    EXPECT_EQ(ToInt16(value), rounded) << value;
  }
  for (const double value : {32767.5, 32768.0, -32769.0, -32768.6, kLargest, -kLargest}) {
    EXPECT_THROW(ToInt16(value), MessageError) << value;
  }
}

TEST(BooleanReading, TakesWordsInAnyCaseAndNumbers) {
  for (std::string_view text : {"true", "TRUE", "True", " tRuE ", "1", "-1", "0.5", "2e0"}) {
    EXPECT_TRUE(ReadBoolean(text)) << text;
  }
  for (std::string_view text : {"false", "FALSE", " False", "0", "0.0", "-0"}) {
    EXPECT_FALSE(ReadBoolean(text)) << text;
  }
  for (std::string_view text : {"", "yes", "tru", "truee", "t rue", "1x", "on"}) {
    EXPECT_THROW(ReadBoolean(text), MessageError) << text;
  }
}

}  // namespace
}  // namespace korvanta
