#include "startup/settings.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

struct Session {
  Options options;
  SavedLogins saved_logins;
  Settings settings{options, saved_logins};
  fakes::MemorySettings store;

  void Load() { modFiles::LoadSettings(settings, store); }
};

TEST(Settings, AFirstStartYieldsDefaultsAndTheFirstExitWritesAllEntries) {
  Session first;
  first.options = {true, false, true, false, false, true};
  first.settings.LoginSetting = true;
  first.settings.TimeSetting = 99;
  first.Load();
  EXPECT_EQ(modFiles::SaveSettings(first.settings, first.store), "");
  EXPECT_EQ(first.store.commits, 1);
  std::string writes;
  for (const std::string& name : first.store.writes) {
    writes += name + "=" + first.store.entries.at(name) + "; ";
  }
  EXPECT_EQ(writes,
            "Menu > ScrollLock=False; Menu > LanguageFilter=True; Menu > IgnoreLogins=False; "
            "Menu > Sounds=True; Client Data > Time=1; Logins > Last User=; "
            "Logins > User/Password=; Settings > Login=False; Menu > Auto Chat=True; "
            "Menu > Auto Ready=False; ");
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
    session.Load();
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
    session.Load();
    EXPECT_EQ(session.options.mnuScrollLock, c.scroll_lock) << c.text;
    EXPECT_EQ(session.options.mSounds, c.sounds) << c.text;
    EXPECT_EQ(session.settings.TimeSetting, c.time) << c.text;
  }
}

}  // namespace
}  // namespace korvanta
