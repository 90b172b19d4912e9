#include "startup/saved_logins.h"

#include <gtest/gtest.h>

namespace korvanta {
namespace {

std::string Scrambled(std::string_view text) {
  return modData::ScrambleLoginText(text, true).value();
}

std::string Piece(std::string_view name, std::string_view password) {
  return Scrambled(name) + "," + Scrambled(password) + ";";
}

/// "name/password" of every slot from 1 up, joined by blanks.
std::string Show(const SavedLogins& logins) {
  std::string text;
  for (const SavedLogin& login : logins.Logins()) {
    text += (text.empty() ? "" : " ") + login.UserName + "/" + login.Password;
  }
  return text;
}

TEST(ScrambleLoginText, DecodingUndoesEncodingAndRoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(Scrambled("abc"), "\xc9\xc7\xc5");
  for (int code = 0; code < 256; ++code) {
    const std::string text = {'x', static_cast<char>(code)};
    const auto scrambled = modData::ScrambleLoginText(text, true);
    ASSERT_EQ(scrambled.has_value(), code <= 126) << code;
    EXPECT_TRUE(!scrambled || modData::ScrambleLoginText(*scrambled, false) == text) << code;
    EXPECT_EQ(modData::ScrambleLoginText(text, false).has_value(), code >= 3) << code;
  }
  EXPECT_EQ(modData::ScrambleLoginText("\x04\x06\x3a\xfe", false),
            "\x7e\x1c\x02" + std::string(1, '\0'));
}

TEST(SavedLogins, ReadsPiecesAndSkipsWhatMakesNoSense) {
  const std::string good = Piece("good", "pass");
  const struct {
    const char* what;
    std::string stored;
    std::string logins;
  } cases[] = {
      {"pieces of at most one character", ";;x;", ""},
      {"no comma", "xyz;" + good, "good/pass"},
      {"character below the scramble", std::string("a\x02z,\xc9;") + good, "good/pass"},
      {"the same behind the password", Scrambled("four") + ",," + "\x01;" + good,
       "four/ good/pass"},
      {"no name", "," + Scrambled("only") + ";", "/only"},
      {"last piece without its end", Piece("ann1", "") + Scrambled("bob1") + ",", "ann1/ bob1/"},
      {"duplicates", good + good, "good/pass good/pass"}};
  for (const auto& c : cases) {
    SavedLogins logins;
    logins.AddStored(c.stored);
    EXPECT_EQ(Show(logins), c.logins) << c.what;
  }
}

TEST(SavedLogins, WritesWhatItCanInSlotOrderAndItComesBack) {
  SavedLogins logins;
  logins.Add({"Anna", "pass1"});
  logins.Add({"", "left"});
  logins.Add({"Ren\xe9", "pass"});
  logins.Add({"Luis", "se\xf1or"});
  logins.Add({"Anna", "1\x1c,;"});  // the code 28 scrambles to a semicolon
  EXPECT_TRUE(logins.ToStored().starts_with(Piece("Anna", "pass1") + Piece("Luis", "")));
  SavedLogins again;
  again.AddStored(logins.ToStored());
  EXPECT_EQ(Show(again), "Anna/pass1 Luis/ Anna/1\x1c,;");
}

}  // namespace
}  // namespace korvanta
