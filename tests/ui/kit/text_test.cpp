#include "ui/kit/text.h"

#include <gtest/gtest.h>

namespace korvanta {
namespace {

TEST(Text, BytesShowTheCharactersOfTheirCodePageAndComeBackUnchanged) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) {
    all += static_cast<char>(byte);
  }
  EXPECT_EQ(ToBytes(ToQString(all)), all);
  EXPECT_EQ(ToQString("caf\xe9 \x80\x99"), QStringLiteral(u"caf\u00e9 \u20ac\u2122"));
  // One '?' for each character outside the set.
  EXPECT_EQ(ToBytes(QStringLiteral(u"a\u03a9b\U0001F600c\u202ed")), "a?b?c?d");
}

}  // namespace
}  // namespace korvanta
