#include "ui/desktop/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <gmock/gmock.h>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace korvanta {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class IniSettingsStoreTest : public testing::Test {
 protected:
  void Write(const QByteArray& bytes) const {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  static QByteArray Read(const QString& name) {
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
  }

  static std::string Stored(const QString& file, std::string_view section, std::string_view key) {
    return IniSettingsStore(file).Get(section, key, "(default)");
  }

  /// The names in the folder of the settings.
  QStringList Files() const { return QFileInfo(path).dir().entryList(QDir::Files); }

  void SaveOne() const {
    IniSettingsStore store(path);
    store.Save("Menu", "Sounds", "False");
    EXPECT_EQ(store.Commit(), "");
    EXPECT_EQ(Stored(path, "Menu", "Sounds"), "False");
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("config/Korvanta/Korvanta.ini"));
};

TEST_F(IniSettingsStoreTest, EntriesComeBackUnchangedAndApart) {
  std::string all_bytes;
  for (int byte = 0; byte < 256; ++byte) {
    all_bytes += static_cast<char>(byte);
  }
  const struct {
    std::string section, key, text;
  } entries[] = {
      {"Logins", "User/Password", "\xc9\xc7,\xc5;a,b;"},
      {"Logins/User", "Password", "another entry"},
      {"Client Data", "Time", "1"},
      {"Client%20Data", "Time", "2"},
      {"Logins", "Last User", all_bytes},
      {"Menu", "Empty", ""},
      {"Menu", "Blanks", "  two on each side  "},
      {"Menu", " edge=[;#]%41", "%41 %zz %"},
      {"A]\nb", "c\nd", "e\r\nf=g"},
      {"Menu", "empty", "its letters differ in case"},
  };
  IniSettingsStore store(path);
  for (const auto& [section, key, text] : entries) {
    store.Save(section, key, "to be replaced");
    store.Save(section, key, text);
  }
  EXPECT_EQ(store.Commit(), "");
  for (const auto& [section, key, text] : entries) {
    EXPECT_EQ(store.Get(section, key, "(default)"), text) << section << " > " << key;
    EXPECT_EQ(Stored(path, section, key), text) << section << " > " << key;
  }
  EXPECT_THAT(Read(path).toStdString(), HasSubstr("\nUser/Password=%C9%C7,%C5;a,b;\n"));
}

TEST_F(IniSettingsStoreTest, NothingIsStoredBeforeCommitAndReadingWritesNothing) {
  IniSettingsStore store(path);
  store.Save("Menu", "Sounds", "False");
  EXPECT_EQ(store.Get("Menu", "Sounds", "True"), "False");
  EXPECT_EQ(store.Get("Menu", "ScrollLock", "True"), "True");
  EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).path()));
}

TEST_F(IniSettingsStoreTest, ForeignLinesStayInTheirPlaces) {
  Write("; mine\n\n[Menu]\nSounds=True\nColour = \"dark\"\n\n[Other]\r\nx=1, 2\n#end\n");
  IniSettingsStore store(path);
  store.Save("Menu", "Sounds", "False");
  store.Save("Menu", "ScrollLock", "True");
  store.Save("Settings", "Login", "False");
  EXPECT_EQ(store.Commit(), "");
  EXPECT_EQ(Read(path),
            "; mine\n\n[Menu]\nSounds=False\nColour = \"dark\"\nScrollLock=True\n\n"
            "[Other]\nx=1, 2\n#end\n[Settings]\nLogin=False\n");
}

TEST_F(IniSettingsStoreTest, AByteOrderMarkNeverBecomesPartOfAName) {
  const QByteArray mark = "\xef\xbb\xbf";
  for (const QByteArray& start : {mark, mark + mark, "\x01\n" + mark, "\x01\n " + mark + mark}) {
    Write(start + "[Menu]\nSounds=False\n");
    EXPECT_EQ(Stored(path, "Menu", "Sounds"), "False");
    SaveOne();
    EXPECT_EQ(Read(path), "[Menu]\nSounds=False\n");
  }
  Write("; mine\n" + mark + "x=1\n" + mark + "[Menu]\n" + mark + "Sounds=True\n" + mark + "y=2\n");
  SaveOne();
  EXPECT_EQ(Read(path),
            "; mine\n" + mark + "x=1\n" + mark + "[Menu]\nSounds=False\n" + mark + "y=2\n");
}

TEST_F(IniSettingsStoreTest, DamagedFilesGiveWhatTheyCanAndArePutAside) {
  QByteArray binary;
  for (int i = 0; i < 100'000; ++i) {
    binary += static_cast<char>(i * 7 ^ i >> 5);
  }
  const struct {
    const char* name;
    QByteArray bytes;
    std::string last_user;
  } cases[] = {
      {"cut", "[Logins]\nLast User=Ann\nUser/Passw", "Ann"},
      {"binary", binary, "(default)"},
      {"too long", QByteArray("[Logins]\nLast User=Ann\n") + QByteArray(100 << 20, '\n'),
       "(default)"},
      {"zeros", QByteArray(4096, '\0'), "(default)"},
  };
  QString aside = path + QStringLiteral(".bak");
  int number = 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Write(c.bytes);
    EXPECT_EQ(Stored(path, "Logins", "Last User"), c.last_user);
    SaveOne();
    EXPECT_EQ(Stored(path, "Logins", "Last User"), c.last_user);
    EXPECT_TRUE(Read(aside) == c.bytes);
    aside = path + QStringLiteral(".bak%1").arg(++number);
    SaveOne();
    EXPECT_FALSE(QFileInfo::exists(aside)) << "a whole file is not put aside";
  }
}

TEST_F(IniSettingsStoreTest, WhatCannotBeWrittenIsToldInOneSentenceWithTheFile) {
  Write("in the way");
  const QString below_a_file = path + QStringLiteral("/Korvanta.ini");
  QDir().mkpath(folder.filePath(QStringLiteral("folder.ini")));
  for (const QString& file : {below_a_file, folder.filePath(QStringLiteral("folder.ini")),
                              QStringLiteral("/proc/Korvanta.ini"), QStringLiteral("/dev/zero")}) {
    IniSettingsStore store(file);
    EXPECT_EQ(store.Get("Menu", "Sounds", "True"), "True");
    store.Save("Menu", "Sounds", "False");
    const std::string sentence = store.Commit();
    EXPECT_THAT(sentence,
                StartsWith("The settings could not be saved in \"" + file.toStdString() + "\": "));
    EXPECT_EQ(sentence.find("\n"), std::string::npos);
  }
  EXPECT_EQ(Read(path), "in the way");
}

TEST_F(IniSettingsStoreTest, FileIsNamedAfterTheProgramUnderTheUsersConfiguration) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  EXPECT_EQ(IniSettingsStore::FileFor(QStringLiteral("My copy")),
            folder.filePath(QStringLiteral("Korvanta/My copy.ini")));
  qputenv("XDG_CONFIG_HOME", before);
}

#ifdef Q_OS_UNIX

QFileDevice::Permissions Mode(const QString& file) {
  return QFileInfo(file).permissions() &
         (QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup |
          QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther);
}

constexpr auto kUserOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

TEST_F(IniSettingsStoreTest, OnlyTheUserMayReadTheFile) {
  SaveOne();
  EXPECT_EQ(Mode(path), kUserOnly);
  QFile::setPermissions(path, kUserOnly | QFileDevice::ReadGroup | QFileDevice::ReadOther);
  SaveOne();
  EXPECT_EQ(Mode(path), kUserOnly);

  Write("damaged");
  QFile::setPermissions(path, kUserOnly | QFileDevice::ReadGroup | QFileDevice::ReadOther);
  SaveOne();
  EXPECT_EQ(Mode(path + QStringLiteral(".bak")), kUserOnly);
}

TEST_F(IniSettingsStoreTest, BehindALinkTheFileIsReplacedAndKeptAside) {
  const QString elsewhere = folder.filePath(QStringLiteral("elsewhere.ini"));
  Write("");
  ASSERT_TRUE(QFile::rename(path, elsewhere) && QFile::link(elsewhere, path));
  SaveOne();
  EXPECT_TRUE(QFileInfo(path).isSymLink());
  EXPECT_EQ(Read(elsewhere), "[Menu]\nSounds=False\n");

  Write("damaged");
  SaveOne();
  EXPECT_TRUE(QFileInfo(path).isSymLink());
  EXPECT_EQ(Read(elsewhere + QStringLiteral(".bak")), "damaged");
}

TEST_F(IniSettingsStoreTest, WhatStandsWhereTheNewFileGrowsIsInNobodysWay) {
  const QString unsaved = path + QStringLiteral(".unsaved");
  const QString precious = folder.filePath(QStringLiteral("precious"));
  Write("precious");
  ASSERT_TRUE(QFile::rename(path, precious) && QFile::link(precious, unsaved));
  SaveOne();
  EXPECT_EQ(Read(precious), "precious") << "no link is followed";
  EXPECT_EQ(Files(), QStringList(QFileInfo(path).fileName()));

  ASSERT_TRUE(QDir().mkpath(unsaved));
  SaveOne();
  EXPECT_FALSE(QFileInfo::exists(unsaved)) << "an empty folder is replaced";
  ASSERT_TRUE(QDir().mkpath(unsaved + QStringLiteral("/with a folder in it")));
  SaveOne();
  SaveOne();
  EXPECT_EQ(Files(), QStringList(QFileInfo(path).fileName()));
}

TEST_F(IniSettingsStoreTest, FullDiskLeavesTheOldFile) {
  SaveOne();
  const QByteArray before = Read(path);
  Write(before + "damaged\n");
  IniSettingsStore store(path);
  store.Save("Logins", "User/Password", std::string(100'000, 'x'));
  // A limit on the size of files fails a write half-way, as a full disk does.
  rlimit old_limit{};
  getrlimit(RLIMIT_FSIZE, &old_limit);
  const rlimit limit{4096, old_limit.rlim_max};
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limit);
  const std::string sentence = store.Commit();
  setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_THAT(sentence, HasSubstr(path.toStdString()));
  EXPECT_EQ(Read(path), before + "damaged\n");
  EXPECT_EQ(Files(), QStringList(QFileInfo(path).fileName()));
  EXPECT_EQ(store.Commit(), "") << "room again";
  EXPECT_EQ(Stored(path, "Menu", "Sounds"), "False");
}

TEST_F(IniSettingsStoreTest, ReadOnlyFolderAndUnreadableFileAreLeftAsTheyAre) {
  SaveOne();
  const QByteArray before = Read(path);
  const std::string file = path.toStdString();
  const std::string above = QFileInfo(path).path().toStdString();
  // Modes do not bind the superuser, so as one the test goes on as somebody else.
  const bool is_superuser = geteuid() == 0;
  constexpr uid_t kSomebody = 65534;
  ASSERT_EQ(chmod(folder.path().toStdString().c_str(), 0755), 0);
  if (is_superuser) {
    ASSERT_EQ(chown(file.c_str(), kSomebody, kSomebody), 0);
    ASSERT_EQ(chown(above.c_str(), kSomebody, kSomebody), 0);
    ASSERT_EQ(seteuid(kSomebody), 0);
  }
  for (const bool can_read : {true, false}) {
    chmod(file.c_str(), can_read ? 0600 : 0);
    chmod(above.c_str(), can_read ? 0500 : 0700);
    IniSettingsStore store(path);
    EXPECT_EQ(store.Get("Menu", "Sounds", "True"), can_read ? "False" : "True");
    store.Save("Menu", "Sounds", "True");
    EXPECT_THAT(store.Commit(), HasSubstr(file));
  }
  chmod(file.c_str(), 0600);
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_EQ(Read(path), before);
}

TEST_F(IniSettingsStoreTest, KilledAtAnyInstantItIsTheOldFileOrTheNewWhole) {
  constexpr int kKeys = 200;
  const auto value = [](int generation) { return std::string(200, static_cast<char>(generation)); };
  SaveOne();
  int seen_changes = 0;
  char last = 0;
  for (int kill_count = 0; kill_count < 150; ++kill_count) {
    int committed[2];
    ASSERT_EQ(pipe(committed), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      IniSettingsStore store(path);
      for (int generation = 'A' + kill_count % 13;;
           generation = generation == 'Z' ? 'A' : generation + 1) {
        for (int i = 0; i < kKeys; ++i) {
          store.Save("Logins", std::to_string(i), value(generation));
        }
        store.Commit();
        if (write(committed[1], "c", 1) != 1) {
          _exit(1);
        }
      }
    }
    // From its first commit on the child does nothing but commit; the kill comes at any point.
    char first_commit = 0;
    ASSERT_EQ(read(committed[0], &first_commit, 1), 1);
    QThread::usleep(static_cast<unsigned long>(kill_count * 137 % 5000));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    waitpid(child, nullptr, 0);
    close(committed[0]);
    close(committed[1]);

    IniSettingsStore store(path);
    const std::string first = store.Get("Logins", "0", "");
    for (int i = 0; i < kKeys; ++i) {
      ASSERT_EQ(store.Get("Logins", std::to_string(i), ""), first);
    }
    ASSERT_EQ(store.Get("Menu", "Sounds", "True"), "False");
    if (!first.empty()) {
      ASSERT_EQ(first, value(first.front()));
      seen_changes += first.front() == last ? 0 : 1;
      last = first.front();
    }
    // Unfinished copies too are for the user's eyes only.
    for (const QFileInfo& file : QFileInfo(path).dir().entryInfoList(QDir::Files)) {
      ASSERT_EQ(Mode(file.filePath()), kUserOnly) << file.filePath().toStdString();
    }
  }
  EXPECT_GT(seen_changes, 20) << "the kills came too early to mean anything";
  SaveOne();
  EXPECT_EQ(Files(), QStringList(QFileInfo(path).fileName())) << "the next save clears up";
}

#endif

}  // namespace
}  // namespace korvanta
