#include "startup/settings_text.h"

#include <gtest/gtest.h>
#include <tuple>

namespace korvanta {
namespace {

TEST(SettingsText, EntriesOfAnyBytesComeBackApart) {
  std::string all_bytes;
  for (int byte = 0; byte < 256; ++byte) {
    all_bytes += static_cast<char>(byte);
  }
  const std::tuple<std::string, std::string, std::string> entries[] = {
      {"Logins", "User/Password", "\xc9\xc7,\xc5;a,b;"},
      {"Logins/User", "Password", all_bytes},
      {"Client Data", "Time", "  two blanks on each side  "},
      {"Client%20Data", "Time", ""},
      {"A]\nb", " edge=[;#]%41", "%41 %zz %"},
      {"A]\nb", " Edge=[;#]%41", "its letters differ in case"}};
  SettingsText text;
  for (const auto& [section, key, value] : entries) {
    text.Set(section, key, "to be replaced");
    text.Set(section, key, value);
  }
  const SettingsText again(text.Text());
  EXPECT_FALSE(again.IsDamaged());
  for (const auto& [section, key, value] : entries) {
    EXPECT_EQ(again.Find(section, key), value) << section << " > " << key;
  }
  EXPECT_EQ(again.Find("Logins", "Time"), std::nullopt);
  EXPECT_TRUE(text.Text().starts_with("[Logins]\nUser/Password=%C9%C7,%C5;a,b;\n"));
}

TEST(SettingsText, ForeignLinesStayInTheirPlacesAndDamagedOnesGo) {
  const std::string mark = "\xef\xbb\xbf";
  const struct {
    std::string before;
    bool is_damaged;
    std::string after;
  } cases[] = {
      {"", false, "[Menu]\nSounds=False\n"},
      {"; mine\n\n[Menu]\nSounds=True\nColour = \"dark\"\n\n[Other]\r\nx=1, 2\n#end\n", false,
       "; mine\n\n[Menu]\nSounds=False\nColour = \"dark\"\n\n[Other]\nx=1, 2\n#end\n"},
      {"[Menu]\nColour=1\n\n[Other]\nx=1", false,
       "[Menu]\nColour=1\nSounds=False\n\n[Other]\nx=1\n"},
      {"[Menu]\nColour=1\nSoun", true, "[Menu]\nColour=1\nSounds=False\n"},
      {"[Menu]\nx\x01=1\n=2\n", true, "[Menu]\nSounds=False\n"},
      // A byte order mark never becomes part of a name.
      {mark + mark + "[Menu]\nSounds=True\n", false, "[Menu]\nSounds=False\n"},
      {"\x01\n " + mark + "[Menu]\nSounds=True\n", true, "[Menu]\nSounds=False\n"},
      {"; mine\n" + mark + "x=1\n" + mark + "[Menu]\n" + mark + "Sounds=True\n" + mark + "y=2\n",
       false, "; mine\n" + mark + "x=1\n" + mark + "[Menu]\nSounds=False\n" + mark + "y=2\n"}};
  for (const auto& c : cases) {
    SettingsText text(c.before);
    EXPECT_EQ(text.IsDamaged(), c.is_damaged) << c.before;
    text.Set("Menu", "Sounds", "False");
    EXPECT_EQ(text.Text(), c.after) << c.before;
  }
}

}  // namespace
}  // namespace korvanta
