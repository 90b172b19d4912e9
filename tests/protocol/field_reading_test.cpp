#include "protocol/field_reading.h"

#include <gtest/gtest.h>
#include <limits>

namespace korvanta {
namespace {

using namespace std::string_view_literals;

TEST(Field, CountsFromZeroAndKeepsEmptyFields) {
  EXPECT_EQ(Field("a\001\001c\001", 0), "a");
  EXPECT_EQ(Field("a\001\001c\001", 1), "");
  EXPECT_EQ(Field("a\001\001c\001", 2), "c");
  EXPECT_EQ(Field("a\001\001c\001", 3), "");
  EXPECT_THROW(Field("a\001\001c\001", 4), MessageError);
  EXPECT_EQ(Field("one", 0), "one");
  EXPECT_THROW(Field("one", 1), MessageError);
  EXPECT_THROW(Field("", 0), MessageError);
}

constexpr double kLargest = std::numeric_limits<double>::max();

struct StrictCase {
  std::string_view text;
  std::optional<double> value;
};

TEST(StrictReading, TakesWholeNumbersOnly) {
  const StrictCase cases[] = {
      {"12", 12},       {"-7", -7},          {"+3", 3},     {" \t12\r\n", 12},
      {"2.50", 2.5},    {".5", 0.5},         {"5.", 5},     {"1e3", 1000},
      {"1E-2", 0.01},   {"1e999", kLargest}, {"1e-999", 0}, {"-1e999", -kLargest},
      {"", {}},         {" ", {}},           {".", {}},     {"-", {}},
      {"+-1", {}},      {"1 2", {}},         {"12abc", {}}, {"1e", {}},
      {"1e+", {}},      {"0x10", {}},        {"&H10", {}},  {"nan", {}},
      {"inf", {}},      {"infinity", {}},    {"1,000", {}}, {"1.2.3", {}},
      {"12\000"sv, {}},
  };
  for (const StrictCase& c : cases) {
    EXPECT_EQ(ParseNumber(c.text), c.value) << c.text;
    if (c.value) {
      EXPECT_EQ(ReadNumber(c.text), *c.value) << c.text;
    } else {
      EXPECT_THROW(ReadNumber(c.text), MessageError) << c.text;
    }
  }
}

TEST(StrictReading, DigitsDoNotDecideBetweenTooLargeAndTooSmall) {
  const std::string zeros(400, '0');
  EXPECT_EQ(ReadNumber("1" + zeros), kLargest);
  EXPECT_EQ(ReadNumber("1" + zeros + "e-5"), kLargest);
  EXPECT_EQ(ReadNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(ReadNumber("0." + zeros + "1e5"), 0);
  EXPECT_EQ(ReadNumber("1e99999999999999999999"), kLargest);
  EXPECT_EQ(ReadNumber("1e-99999999999999999999"), 0);
}

struct LenientCase {
  std::string_view text;
  double value;
};

TEST(LenientReading, TakesTheLongestLeadingNumberAndNeverFails) {
  const LenientCase cases[] = {
      {"90", 90}, {"90abc", 90}, {"", 0},     {"abc", 0},    {" 9 0 x", 90},      {"\t1\n2", 12},
      {"-", 0},   {"-5x", -5},   {"- 5", -5}, {"2.50", 2.5}, {"1.2.3", 1.2},      {".", 0},
      {".x", 0},  {"1e2", 100},  {"1e", 1},   {"1e+", 1},    {"1ex", 1},          {"nan", 0},
      {"inf", 0}, {"0x1F", 0},   {"&H10", 0}, {"1,5", 1},    {"1e999", kLargest},
  };
  for (const LenientCase& c : cases) {
    EXPECT_EQ(ReadLeadingNumber(c.text), c.value) << c.text;
  }
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
