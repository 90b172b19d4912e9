#include "startup/settings.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

struct Loaded {
  Options options;
  SavedLogins saved_logins;
  Settings settings{options, saved_logins};
  fakes::MemorySettings store;

  void Load() { modFiles::LoadSettings(settings, store); }
};

TEST(Settings, AFirstStartYieldsDefaultsAndTheFirstExitWritesAllEntries) {
  Loaded first;
  first.options = {true, false, true, false, false, true};
  first.settings.LoginSetting = true;
  first.settings.TimeSetting = 99;
  first.Load();
  EXPECT_TRUE(first.store.entries.empty());
  EXPECT_THAT(
      first.store.reads,
      ElementsAre("Menu > ScrollLock", "Menu > LanguageFilter", "Menu > IgnoreLogins",
                  "Settings > Login", "Client Data > Time", "Menu > Sounds", "Logins > Last User",
                  "Logins > User/Password", "Menu > Auto Chat", "Menu > Auto Ready"));

  EXPECT_EQ(modFiles::SaveSettings(first.settings, first.store), "");
  EXPECT_EQ(first.store.commits, 1);
  EXPECT_THAT(first.store.writes,
              ElementsAre("Menu > ScrollLock", "Menu > LanguageFilter", "Menu > IgnoreLogins",
                          "Menu > Sounds", "Client Data > Time", "Logins > Last User",
                          "Logins > User/Password", "Settings > Login", "Menu > Auto Chat",
                          "Menu > Auto Ready"));
  const std::map<std::string, std::string> defaults = {
      {"Menu > ScrollLock", "False"},   {"Menu > LanguageFilter", "True"},
      {"Menu > IgnoreLogins", "False"}, {"Menu > Sounds", "True"},
      {"Client Data > Time", "1"},      {"Logins > Last User", ""},
      {"Logins > User/Password", ""},   {"Settings > Login", "False"},
      {"Menu > Auto Chat", "True"},     {"Menu > Auto Ready", "False"},
  };
  EXPECT_EQ(first.store.entries, defaults);
}

TEST(Settings, EveryEntryComesBackInItsOwnPlace) {
  const std::string keys[] = {"Menu > ScrollLock", "Menu > LanguageFilter", "Menu > IgnoreLogins",
                              "Menu > Sounds",     "Settings > Login",      "Menu > Auto Chat",
                              "Menu > Auto Ready"};
  for (const std::string& odd_one : keys) {
    Loaded run;
    for (const std::string& key : keys) {
      run.store.entries[key] = key == odd_one ? "True" : "False";
    }
    run.store.entries["Client Data > Time"] = "-12";
    run.store.entries["Logins > Last User"] = "J\xfcrgen;,\x01";
    run.store.entries["Logins > User/Password"] = "\xc9\xc7\xc5\xcb,\xc9;";
    const auto stored = run.store.entries;
    run.Load();
    const Options& options = run.options;
    const bool values[] = {options.mnuScrollLock, options.mnuFilter,         options.mnuLogins,
                           options.mSounds,       run.settings.LoginSetting, options.mnuAutoChat,
                           options.mAuto};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
      EXPECT_EQ(values[i], keys[i] == odd_one) << keys[i];
    }
    EXPECT_EQ(run.saved_logins.LastUser, "J\xfcrgen;,\x01");
    ASSERT_NE(run.saved_logins.Find("DABC"), nullptr);

    modFiles::SaveSettings(run.settings, run.store);
    EXPECT_EQ(run.store.entries, stored);
  }
}

TEST(Settings, BooleansAreReadLenientlyAndFallBackToTheirDefault) {
  const struct {
    const char* text;
    bool scroll_lock;  // default false
    bool sounds;       // default true
  } cases[] = {{"true", true, true}, {"FALSE", false, false}, {"0", false, false},
               {"-1", true, true},   {"", false, true},       {"yes", false, true}};
  for (const auto& c : cases) {
    Loaded run;
    run.store.entries["Menu > ScrollLock"] = c.text;
    run.store.entries["Menu > Sounds"] = c.text;
    run.Load();
    EXPECT_EQ(run.options.mnuScrollLock, c.scroll_lock) << c.text;
    EXPECT_EQ(run.options.mSounds, c.sounds) << c.text;
  }
}

TEST(Settings, TheWholeNumberIsRoundedAndFallsBackOutsideItsRange) {
  const std::pair<const char*, std::int32_t> cases[] = {
      {" 42 ", 42},        {"1.5", 2},
      {"-2.5", -2},        {"2147483647.4", 2147483647},
      {"2147483647.5", 1}, {"-2147483648.5", -2147483647 - 1},
      {"-2147483649", 1},  {"1e400", 1},
      {"ten", 1},
  };
  for (const auto& [text, value] : cases) {
    Loaded run;
    run.store.entries["Client Data > Time"] = text;
    run.Load();
    EXPECT_EQ(run.settings.TimeSetting, value) << text;
  }
}

}  // namespace
}  // namespace korvanta
