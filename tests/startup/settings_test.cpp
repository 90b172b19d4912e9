/// What is kept from one run to the next: options, saved logins, and the text of the settings file.
#include "startup/settings.h"

#include <gtest/gtest.h>
#include <map>
#include <tuple>

#include "startup/saved_logins.h"
#include "startup/settings_text.h"
#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

struct Session {
  Options options;
  SavedLogins saved_logins;
  Settings settings{options, saved_logins};
  fakes::MemorySettings store;
};

TEST(Settings, AFirstStartYieldsDefaultsAndTheFirstExitWritesAllEntries) {
  Session first;
  first.options = {true, false, true, false, false, true};
  first.settings.LoginSetting = true;
  first.settings.TimeSetting = 99;
  modFiles::LoadSettings(first.settings, first.store);
  EXPECT_EQ(modFiles::SaveSettings(first.settings, first.store), "");
  EXPECT_EQ(first.store.commits, 1);
  const std::map<std::string, std::string> defaults = {
      {"Menu > ScrollLock", "False"},   {"Menu > LanguageFilter", "True"},
      {"Menu > IgnoreLogins", "False"}, {"Menu > Sounds", "True"},
      {"Client Data > Time", "1"},      {"Logins > Last User", ""},
      {"Logins > User/Password", ""},   {"Settings > Login", "False"},
      {"Menu > Auto Chat", "True"},     {"Menu > Auto Ready", "False"}};
  EXPECT_EQ(first.store.entries, defaults);
}

TEST(Settings, EveryEntryComesBackInItsOwnPlace) {
  const std::string keys[] = {"Menu > ScrollLock", "Menu > LanguageFilter", "Menu > IgnoreLogins",
                              "Menu > Sounds",     "Settings > Login",      "Menu > Auto Chat",
                              "Menu > Auto Ready"};
  for (const std::string& odd_one : keys) {
    Session session;
    for (const std::string& key : keys) {
      session.store.entries[key] = key == odd_one ? "True" : "False";
    }
    session.store.entries["Client Data > Time"] = "-12";
    session.store.entries["Logins > Last User"] = "J\xfcrgen;,\x01";
    session.store.entries["Logins > User/Password"] = "\xc9\xc7\xc5\xcb,\xc9;";
    const auto stored = session.store.entries;
    modFiles::LoadSettings(session.settings, session.store);
    const Options& o = session.options;
    const bool values[] = {
        o.mnuScrollLock, o.mnuFilter, o.mnuLogins, o.mSounds, session.settings.LoginSetting,
        o.mnuAutoChat,   o.mAuto};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
      EXPECT_EQ(values[i], keys[i] == odd_one) << keys[i];
    }
    modFiles::SaveSettings(session.settings, session.store);
    EXPECT_EQ(session.store.entries, stored);
  }
}

TEST(Settings, ValuesAreReadLenientlyAndFallBackToTheirDefault) {
  const struct {
    const char* text;
    bool scroll_lock, sounds;
    std::int32_t time;
  } cases[] = {{"FALSE", false, false, 1},      {"0", false, false, 0},
               {"yes", false, true, 1},         {" 42 ", true, true, 42},
               {"-2.5", true, true, -2},        {"2147483647.4", true, true, 2147483647},
               {"2147483647.5", true, true, 1}, {"-2147483648.5", true, true, -2147483647 - 1},
               {"-2147483649", true, true, 1}};
  for (const auto& c : cases) {
    Session session;
    for (const char* key : {"Menu > ScrollLock", "Menu > Sounds", "Client Data > Time"}) {
      session.store.entries[key] = c.text;
    }
    modFiles::LoadSettings(session.settings, session.store);
    EXPECT_EQ(session.options.mnuScrollLock, c.scroll_lock) << c.text;
    EXPECT_EQ(session.options.mSounds, c.sounds) << c.text;
    EXPECT_EQ(session.settings.TimeSetting, c.time) << c.text;
  }
}

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
