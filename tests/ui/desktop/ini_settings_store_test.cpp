#include "ui/desktop/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvanta {
namespace {

using testing::AllOf;
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

TEST_F(IniSettingsStoreTest, DamagedFilesGiveWhatTheyCanAndAreBackedUpAlsoBehindALink) {
  const QString file = folder.filePath(QStringLiteral("elsewhere.ini"));
  QDir().mkpath(QFileInfo(path).path());
  ASSERT_TRUE(QFile::link(file, path));
  const struct {
    const char* name;
    QByteArray bytes;
    std::string last_user;
  } cases[] = {
      {"cut", "[Logins]\nLast User=Ann\nUser/Passw", "Ann"},
      {"binary", QByteArray("\x01\xff\0[\n]=\r;", 9).repeated(10'000), "(default)"},
      {"too long", "[Logins]\nLast User=Ann\n" + QByteArray(kLongestFile, '\n'), "(default)"}};
  EXPECT_EQ(SaveOne(), "") << "the link leads nowhere";
  QString backup = file + QStringLiteral(".bak");
  int number = 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(QFileInfo::exists(backup)) << "a whole file needs no backup";
    Write(c.bytes);
    EXPECT_EQ(Stored("Logins", "Last User"), c.last_user);
    IniSettingsStore store(path);
    store.Save("Menu", "Sounds", "False");
    EXPECT_EQ(store.Commit() + store.Commit(), "");
    EXPECT_EQ(Stored("Logins", "Last User"), c.last_user);
    EXPECT_EQ(Stored("Menu", "Sounds"), "False");
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(Read(backup) == c.bytes);
    EXPECT_EQ(Mode(backup), 0600U);
    backup = file + QStringLiteral(".bak%1").arg(++number);
  }
}

TEST_F(IniSettingsStoreTest, WhatCouldNotBeReadBackIsNotSaved) {
  const std::string longest(kLongestFile - std::string("[A]\nb=\n").size(), 'x');
  IniSettingsStore store(path);
  for (const char* more : {"", "x"}) {
    store.Save("A", "b", longest + more);
    EXPECT_THAT(store.Commit(), HasSubstr(*more == '\0' ? "" : " 4194305 bytes"));
    EXPECT_TRUE(Stored("A", "b") == longest);
  }
}

TEST_F(IniSettingsStoreTest, WhatCannotBeReadOrWrittenIsReportedWithTheFileAndLeftAsItIs) {
  Write("in the way");
  const QString in_the_way = path;
  const QString pipe = folder.filePath(QStringLiteral("pipe.ini"));
  ASSERT_EQ(mkfifo(pipe.toStdString().c_str(), 0600), 0);
  const std::pair<QString, const char*> cases[] = {
      {in_the_way + QStringLiteral("/Korvanta.ini"), "Not a directory"},
      {folder.path(), "not a file"},
      {pipe, "not a file"},  // opening it would wait forever
      {QStringLiteral("/proc/Korvanta.ini"), ""},
      {QStringLiteral("/proc/self/mem"), "Input/output error"},  // opens, but cannot be read
  };
  for (const auto& [file, reason] : cases) {
    path = file;
    EXPECT_EQ(Stored("Menu", "Sounds"), "(default)");
    EXPECT_THAT(SaveOne(), AllOf(StartsWith("The settings could not be saved in \"" +
                                            file.toStdString() + "\": "),
                                 HasSubstr(reason)));
  }
  EXPECT_EQ(Read(in_the_way), "in the way");
}

TEST_F(IniSettingsStoreTest, AFullDiskOrAKillInMidSaveLeavesTheOldFile) {
  const QByteArray before = "[Menu]\nSounds=True\ndamaged\n";
  Write(before);
  const auto commit = [this] {
    IniSettingsStore store(path);
    store.Save("Logins", "User/Password", std::string(100'000, 'x'));
    return store.Commit();
  };
  // A limit on the size of files fails a write half-way, as a full disk does, and then kills the
  // process unless it ignores the signal.
  rlimit old_limit{};
  getrlimit(RLIMIT_FSIZE, &old_limit);
  const rlimit limit{4096, old_limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  const pid_t child = fork();
  if (child == 0) {
    commit();
    _exit(0);
  }
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  EXPECT_THAT(commit(), HasSubstr(path.toStdString()));
  setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) << "it was not killed";
  EXPECT_EQ(Read(path), before);
  EXPECT_EQ(QFileInfo(path).dir().entryList(QDir::Files).size(), 1);
  EXPECT_EQ(commit(), "") << "room again";
}

}  // namespace
}  // namespace korvanta
