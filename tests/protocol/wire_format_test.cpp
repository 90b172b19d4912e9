#include "protocol/wire_format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Pieces(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (std::string_view piece : Split(text, separator)) {
    pieces.emplace_back(piece);
  }
  return pieces;
}

TEST(Split, KeepsEmptyPiecesAndAnEmptyTextHasNone) {
  EXPECT_THAT(Pieces("", ';'), IsEmpty());
  EXPECT_THAT(Pieces("a", ';'), ElementsAre("a"));
  EXPECT_THAT(Pieces(";", ';'), ElementsAre("", ""));
  EXPECT_THAT(Pieces("a;;b;", ';'), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(Pieces(std::string_view("x\0y\0", 4), '\0'), ElementsAre("x", "y", ""));
}

}  // namespace
}  // namespace korvanta
