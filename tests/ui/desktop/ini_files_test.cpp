/// The two files that the desktop client reads: its settings, which it also writes, and the values
/// of a deployment.
#include <QCoreApplication>
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

#include "ui/desktop/deployment_file.h"
#include "ui/desktop/ini_settings_store.h"

namespace korvanta {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::size_t kLongestSettings = std::size_t{4} << 20;
constexpr QFileDevice::Permissions kUserOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                               QFileDevice::ReadUser | QFileDevice::WriteUser;

class IniFileTest : public testing::Test {
 protected:
  void Write(const QByteArray& bytes) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.setPermissions(kUserOnly | QFileDevice::ReadGroup | QFileDevice::ReadOther);
  }

  static QByteArray Read(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("Korvanta.ini"));
};

class IniSettingsStoreTest : public IniFileTest {
 protected:
  std::string Stored(std::string_view section, std::string_view key) const {
    return IniSettingsStore(path).Get(section, key, "(default)");
  }

  /// What a commit says of a file that has one entry more.
  std::string SaveOne() const {
    IniSettingsStore store(path);
    store.Save("Menu", "Sounds", "False");
    return store.Commit();
  }
};

TEST_F(IniSettingsStoreTest, CommitAloneWritesAFileForTheUserAlone) {
  path = folder.filePath(QStringLiteral("config/Korvanta/Korvanta.ini"));
  IniSettingsStore store(path);
  store.Save("Menu", "Sounds", "False");
  EXPECT_EQ(store.Get("Menu", "Sounds", "True"), "False");
  EXPECT_EQ(store.Get("Menu", "ScrollLock", "True"), "True");
  EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).path()));
  EXPECT_EQ(store.Commit(), "");
  EXPECT_EQ(Read(path), "[Menu]\nSounds=False\n");
  EXPECT_EQ(QFile::permissions(path), kUserOnly);
  Write("[Other]\nx=1\n");
  EXPECT_EQ(SaveOne(), "");
  EXPECT_EQ(Read(path), "[Other]\nx=1\n[Menu]\nSounds=False\n");
  EXPECT_EQ(QFile::permissions(path), kUserOnly);
}

TEST_F(IniSettingsStoreTest, DamagedFilesGiveWhatTheyCanAndAreBackedUpAlsoBehindALink) {
  const QString file = folder.filePath(QStringLiteral("elsewhere.ini"));
  ASSERT_TRUE(QFile::link(file, path));
  EXPECT_EQ(SaveOne(), "") << "the link leads nowhere";
  const struct {
    const char* name;
    QByteArray bytes;
    std::string last_user;
    const char* backup;
  } cases[] = {
      {"cut", "[Logins]\nLast User=Ann\nUser/Passw", "Ann", ".bak"},
      {"binary", QByteArray("\x01\xff\0[\n]=\r;", 9).repeated(10'000), "(default)", ".bak2"},
      {"too long", "[Logins]\nLast User=Ann\n" + QByteArray(kLongestSettings, '\n'), "(default)",
       ".bak3"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const QString backup = file + QLatin1String(c.backup);
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
    EXPECT_EQ(QFile::permissions(backup), kUserOnly);
  }
}

TEST_F(IniSettingsStoreTest, WhatCouldNotBeReadBackIsNotSaved) {
  const std::string longest(kLongestSettings - std::string("[A]\nb=\n").size(), 'x');
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
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
  EXPECT_EQ(commit(), "") << "room again";
}

class DeploymentFile : public IniFileTest {
 protected:
  DeploymentResult ReadText(const QByteArray& text) const {
    Write(text);
    return ReadDeploymentFile(path);
  }

  const DeploymentValues built_in{};
};

TEST_F(DeploymentFile, GivesTheValuesOfItsGroupAndKeepsTheOthers) {
  const DeploymentResult reading = ReadText(
      "\xef\xbb\xbf; ours\r\n[Other]\r\nServerAddress=nonsense\r\n[Deployment]\r\n"
      "ServerAddress = 192.0.2.10\r\n"
      "HomepageAddress=https://play.example:8080/Korvanta/?a=b%20c\r\n"
      "Years=\xc2\xa9 2019, 2026; \xe2\x82\xac\r\nUnknown=1\r\n");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.values.server_address, "192.0.2.10");
  EXPECT_EQ(reading.values.homepage_address, "https://play.example:8080/Korvanta/?a=b%20c");
  EXPECT_THAT(reading.values.rights_notice,
              testing::ElementsAre(built_in.rights_notice[0], built_in.rights_notice[1],
                                   "\xa9 2019, 2026; \x80"));
}

TEST_F(DeploymentFile, AbsentFileAndTheOneAsBuiltGiveTheBuiltInValues) {
  const QString as_built =
      QCoreApplication::applicationDirPath() + QStringLiteral("/deployment.ini");
  ASSERT_TRUE(QFile::exists(as_built));
  for (const QString& file : {path, as_built}) {
    const DeploymentResult reading = ReadDeploymentFile(file);
    EXPECT_EQ(reading.error, "");
    EXPECT_EQ(reading.values.server_address, built_in.server_address);
    EXPECT_EQ(reading.values.homepage_address, built_in.homepage_address);
    EXPECT_EQ(reading.values.rights_notice, built_in.rights_notice);
  }
}

TEST_F(DeploymentFile, WhatIsMalformedIsNamedWithFileKeyAndValue) {
  const QByteArray long_line(121, 'x');
  std::vector<std::pair<QByteArray, std::string>> cases = {
      {"HomepageAddress=http:///", " HomepageAddress the value \"http:///\""},
      {"RightsLine=" + long_line, " RightsLine the value \"xxx"},
      {"MakerName=" + long_line, " MakerName the value \"xxx"},
      {"ServerAddress 127.0.0.1", "\"ServerAddress 127.0.0.1\""},
      {"Years=20\x01", "not an entry"},
      {QByteArray(65537, '\n'), "65536"},
      {"ServerAddress=" + QByteArray(5000, '9'), "999\x85\""}};
  for (const char* address : {"", "1.2.3", "256.0.0.1", "127.0.0.1 x", "localhost", "::1"}) {
    cases.emplace_back(QByteArray("ServerAddress=") + address,
                       std::string(" ServerAddress the value \"") + address + "\"");
  }
  for (const auto& [line, named] : cases) {
    EXPECT_THAT(ReadText("[Deployment]\n" + line + "\n").error,
                AllOf(HasSubstr(path.toStdString()), HasSubstr(named)));
  }
  EXPECT_THAT(ReadDeploymentFile(folder.path()).error, HasSubstr("not a file"));
}

}  // namespace
}  // namespace korvanta
