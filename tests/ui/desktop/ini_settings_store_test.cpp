#include "ui/desktop/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <gmock/gmock.h>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvanta {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr std::size_t kLongestFile = std::size_t{4} << 20;

class IniSettingsStoreTest : public testing::Test {
 protected:
  void Write(const QByteArray& bytes, mode_t mode = 0644) const {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    ASSERT_EQ(fchmod(file.handle(), mode), 0);
  }

  static QByteArray Read(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  static mode_t Mode(const QString& file) {
    struct stat status {};
    return stat(file.toStdString().c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
  }

  std::string Stored(std::string_view section, std::string_view key) const {
    return IniSettingsStore(path).Get(section, key, "(default)");
  }

  /// What a commit says of a file that has one entry more.
  std::string SaveOne() const {
    IniSettingsStore store(path);
    store.Save("Menu", "Sounds", "False");
    return store.Commit();
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("config/Korvanta/Korvanta.ini"));
};

TEST_F(IniSettingsStoreTest, CommitAloneWritesAFileForTheUserAlone) {
  IniSettingsStore store(path);
  store.Save("Menu", "Sounds", "False");
  EXPECT_EQ(store.Get("Menu", "Sounds", "True"), "False");
  EXPECT_EQ(store.Get("Menu", "ScrollLock", "True"), "True");
  EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).path()));
  EXPECT_EQ(store.Commit(), "");
  EXPECT_EQ(Read(path), "[Menu]\nSounds=False\n");
  EXPECT_EQ(Mode(path), 0600U);
  Write("[Other]\nx=1\n", 0664);
  EXPECT_EQ(SaveOne(), "");
  EXPECT_EQ(Read(path), "[Other]\nx=1\n[Menu]\nSounds=False\n");
  EXPECT_EQ(Mode(path), 0600U);
}

TEST_F(IniSettingsStoreTest, DamagedFilesGiveWhatTheyCanAndAreBackedUp) {
  const struct {
    const char* name;
    QByteArray bytes;
    std::string last_user;
  } cases[] = {
      {"cut", "[Logins]\nLast User=Ann\nUser/Passw", "Ann"},
      {"binary", QByteArray("\x01\xff\0[\n]=\r;", 9).repeated(10'000), "(default)"},
      {"too long", "[Logins]\nLast User=Ann\n" + QByteArray(kLongestFile, '\n'), "(default)"},
  };
  QString backup = path + QStringLiteral(".bak");
  int number = 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Write(c.bytes);
    EXPECT_EQ(Stored("Logins", "Last User"), c.last_user);
    EXPECT_EQ(SaveOne(), "");
    EXPECT_EQ(Stored("Logins", "Last User"), c.last_user);
    EXPECT_EQ(Stored("Menu", "Sounds"), "False");
    EXPECT_TRUE(Read(backup) == c.bytes);
    EXPECT_EQ(Mode(backup), 0600U);
    backup = path + QStringLiteral(".bak%1").arg(++number);
    EXPECT_EQ(SaveOne(), "");
    EXPECT_FALSE(QFileInfo::exists(backup)) << "a whole file needs no backup";
  }
}

TEST_F(IniSettingsStoreTest, WhatCouldNotBeReadBackIsNotSaved) {
  const std::string around = "[A]\nb=\n";
  const std::string longest(kLongestFile - around.size(), 'x');
  IniSettingsStore store(path);
  store.Save("A", "b", longest);
  EXPECT_EQ(store.Commit(), "");
  EXPECT_TRUE(Stored("A", "b") == longest);
  store.Save("A", "b", longest + "x");
  EXPECT_THAT(store.Commit(), HasSubstr(" 4194305 bytes"));
  EXPECT_TRUE(Stored("A", "b") == longest);
}

TEST_F(IniSettingsStoreTest, WhatCannotBeWrittenIsReportedInOneSentenceWithTheFile) {
  Write("in the way");
  const QString in_the_way = path;
  QDir().mkpath(folder.filePath(QStringLiteral("folder.ini")));
  for (const QString& file :
       {in_the_way + QStringLiteral("/Korvanta.ini"), folder.filePath(QStringLiteral("folder.ini")),
        QStringLiteral("/proc/Korvanta.ini"), QStringLiteral("/dev/zero")}) {
    path = file;
    EXPECT_EQ(Stored("Menu", "Sounds"), "(default)");
    const std::string sentence = SaveOne();
    EXPECT_THAT(sentence,
                StartsWith("The settings could not be saved in \"" + file.toStdString() + "\": "));
    EXPECT_EQ(sentence.find('\n'), std::string::npos);
  }
  EXPECT_EQ(Read(in_the_way), "in the way");
}

TEST_F(IniSettingsStoreTest, FileIsNamedAfterTheProgramUnderTheUsersConfiguration) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  EXPECT_EQ(IniSettingsStore::FileFor(QStringLiteral("My copy")),
            folder.filePath(QStringLiteral("Korvanta/My copy.ini")));
  qputenv("XDG_CONFIG_HOME", before);
}

TEST_F(IniSettingsStoreTest, BehindALinkTheFileIsReplacedAndBackedUp) {
  const QString elsewhere = folder.filePath(QStringLiteral("elsewhere.ini"));
  QDir().mkpath(QFileInfo(path).path());
  ASSERT_TRUE(QFile::link(elsewhere, path));
  for (const char* before : {"", "damaged"}) {  // at first the link leads nowhere
    if (*before != '\0') {
      Write(before);
    }
    EXPECT_EQ(SaveOne(), "");
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(Read(elsewhere), "[Menu]\nSounds=False\n");
    EXPECT_EQ(Read(elsewhere + QStringLiteral(".bak")), before);
  }
}

TEST_F(IniSettingsStoreTest, FullDiskLeavesTheOldFile) {
  Write("[Menu]\nSounds=True\ndamaged\n");
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
  EXPECT_EQ(Read(path), "[Menu]\nSounds=True\ndamaged\n");
  EXPECT_EQ(QFileInfo(path).dir().entryList(QDir::Files).size(), 1);
  EXPECT_EQ(store.Commit(), "") << "room again";
  EXPECT_EQ(Stored("Menu", "Sounds"), "True");
}

TEST_F(IniSettingsStoreTest, ReadOnlyFolderAndUnreadableFileAreLeftAsTheyAre) {
  EXPECT_EQ(SaveOne(), "");
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
    EXPECT_EQ(Stored("Menu", "Sounds"), can_read ? "False" : "(default)");
    EXPECT_THAT(SaveOne(), HasSubstr(file));
  }
  chmod(file.c_str(), 0600);
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_EQ(Read(path), before);
}

TEST_F(IniSettingsStoreTest, KilledAtAnyInstantItIsTheOldFileOrTheNewWhole) {
  const auto value = [](char letter) { return std::string(40'000, letter); };
  EXPECT_EQ(SaveOne(), "");
  std::set<std::string> seen;
  for (int kill_count = 0; kill_count < 150; ++kill_count) {
    int committed[2];
    ASSERT_EQ(pipe(committed), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      IniSettingsStore store(path);
      for (int save = kill_count;; ++save) {
        const std::string text = value(static_cast<char>('A' + save % 26));
        store.Save("Logins", "first", text);
        store.Save("Logins", "last", text);
        if (!store.Commit().empty() || write(committed[1], "c", 1) != 1) {
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
    const std::string first = store.Get("Logins", "first", "?");
    ASSERT_EQ(first, value(first.front()));
    ASSERT_EQ(store.Get("Logins", "last", ""), first);
    ASSERT_EQ(store.Get("Menu", "Sounds", "True"), "False");
    seen.insert(first);
    // A temporary file that a kill left behind is for the user alone, too.
    for (const QFileInfo& file : QFileInfo(path).dir().entryInfoList(QDir::Files)) {
      ASSERT_EQ(Mode(file.filePath()), 0600U) << file.filePath().toStdString();
    }
  }
  EXPECT_GT(seen.size(), 10U) << "the kills came too early to mean anything";
}

}  // namespace
}  // namespace korvanta
