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
  std::string Stored(std::string_view section, std::string_view key) const {
    return IniSettingsStore(path).Get(section, key, "(default)");
  }
  /// What a commit says of a file that has one entry more.
  std::string SaveOne(const std::string& value = "False") const {
    IniSettingsStore store(path);
    store.Save("Menu", "Sounds", value);
    return store.Commit();
  }
  /// What is wrong with the file, or nothing, and the values, one a line.
  std::string Deployment() const {
    const auto [values, error] = ReadDeploymentFile(path);
    std::string text = error + '\n' + values.server_address + '\n' + values.homepage_address;
    for (const std::string& line : values.rights_notice) {
      text += '\n' + line;
    }
    return text;
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("Korvanta.ini"));
};

TEST_F(IniFileTest, CommitAloneWritesAFileForTheUserAlone) {
  path = folder.filePath(QStringLiteral("config/Korvanta/Korvanta.ini"));
  IniSettingsStore store(path);
  store.Save("Menu", "Sounds", "False");
  EXPECT_EQ(store.Get("Menu", "Sounds", "True"), "False");
  EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).path()));
  EXPECT_EQ(store.Commit(), "");
  EXPECT_EQ(Read(path), "[Menu]\nSounds=False\n");
  EXPECT_EQ(QFile::permissions(path), kUserOnly);
  Write("[Other]\nx=1\n");
  EXPECT_EQ(SaveOne(), "");
  EXPECT_EQ(Read(path), "[Other]\nx=1\n[Menu]\nSounds=False\n");
  EXPECT_EQ(QFile::permissions(path), kUserOnly);
}

TEST_F(IniFileTest, DamagedFilesGiveWhatTheyCanAndAreBackedUpAlsoBehindALink) {
  const QString file = folder.filePath(QStringLiteral("elsewhere.ini"));
  ASSERT_TRUE(QFile::link(file, path));
  EXPECT_EQ(SaveOne(), "") << "the link leads nowhere";
  const std::tuple<QByteArray, std::string, const char*> cases[] = {
      {"[Logins]\nLast User=Ann\nUser/Passw", "Ann", ".bak"},
      {"[Logins]\nLast User=Ann\n" + QByteArray(kLongestSettings, '\n'), "(default)", ".bak2"}};
  for (const auto& [bytes, last_user, ending] : cases) {
    const QString backup = file + QLatin1String(ending);
    EXPECT_FALSE(QFileInfo::exists(backup)) << "a whole file needs no backup";
    Write(bytes);
    EXPECT_EQ(Stored("Logins", "Last User"), last_user);
    IniSettingsStore store(path);
    store.Save("Menu", "Sounds", "False");
    EXPECT_EQ(store.Commit() + store.Commit(), "");
    EXPECT_EQ(Stored("Logins", "Last User"), last_user);
    EXPECT_EQ(Stored("Menu", "Sounds"), "False");
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(Read(backup) == bytes);
    EXPECT_EQ(QFile::permissions(backup), kUserOnly);
  }
}

TEST_F(IniFileTest, WhatCouldNotBeReadBackIsNotSaved) {
  const std::string longest(kLongestSettings - std::string("[Menu]\nSounds=\n").size(), 'x');
  EXPECT_EQ(SaveOne(longest), "");
  EXPECT_THAT(SaveOne(longest + "x"), HasSubstr(" 4194305 bytes"));
  EXPECT_TRUE(Stored("Menu", "Sounds") == longest);
}

TEST_F(IniFileTest, WhatCannotBeReadOrWrittenIsReportedWithTheFileAndLeftAsItIs) {
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

TEST_F(IniFileTest, AFullDiskInMidSaveLeavesTheOldFile) {
  const QByteArray before = "[Menu]\nSounds=True\ndamaged\n";
  Write(before);
  const std::string long_value(100'000, 'x');
  // A limit on the size of files fails a write half-way, as a full disk does.
  rlimit old_limit{};
  getrlimit(RLIMIT_FSIZE, &old_limit);
  const rlimit limit{4096, old_limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  EXPECT_THAT(SaveOne(long_value), HasSubstr(path.toStdString()));
  setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(Read(path), before);
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
  EXPECT_EQ(SaveOne(long_value), "") << "room again";
}

TEST_F(IniFileTest, DeploymentValuesReplaceTheBuiltInOnes) {
  const std::string built_in =
      "\n127.0.0.1\nhttp://korvanta.example/Korvanta/\n"
      "All rights reserved\nThe makers of Korvanta\n2026";
  EXPECT_EQ(Deployment(), built_in) << "without a file";
  const QByteArray as_built =
      Read(QCoreApplication::applicationDirPath() + QStringLiteral("/deployment.ini"));
  ASSERT_TRUE(as_built.contains("[Deployment]"));
  Write(as_built);
  EXPECT_EQ(Deployment(), built_in);
  Write(
      "\xef\xbb\xbf; ours\r\n[Other]\r\nServerAddress=nonsense\r\n[Deployment]\r\n"
      "ServerAddress = 192.0.2.10\r\nHomepageAddress=https://play.example:8080/?a=b%20c\r\n"
      "Years=\xc2\xa9 2019, 2026; \xe2\x82\xac\r\nUnknown=1\r\n");
  EXPECT_EQ(Deployment(),
            "\n192.0.2.10\nhttps://play.example:8080/?a=b%20c\n"
            "All rights reserved\nThe makers of Korvanta\n\xa9 2019, 2026; \x80");
}

TEST_F(IniFileTest, WhatIsMalformedIsNamedWithFileKeyAndValue) {
  const QByteArray long_line(121, 'x');
  const std::pair<QByteArray, std::string> cases[] = {
      {"ServerAddress=1.2.3", " ServerAddress the value \"1.2.3\""},
      {"ServerAddress=::1", " ServerAddress the value \"::1\""},
      {"HomepageAddress=http:///", " HomepageAddress the value \"http:///\""},
      {"RightsLine=" + long_line, " RightsLine the value \"xxx"},
      {"MakerName=" + long_line, " MakerName the value \"xxx"},
      {"ServerAddress 127.0.0.1", "has the line \"ServerAddress 127.0.0.1\", which is not an"},
      {"Years=20\x01", "not an entry"},
      {QByteArray(65537, '\n'), "65536"},
      {"ServerAddress=" + QByteArray(5000, '9'), "999\x85\""}};
  for (const auto& [line, named] : cases) {
    Write("[Deployment]\n" + line + "\n");
    EXPECT_THAT(Deployment(), AllOf(HasSubstr(path.toStdString()), HasSubstr(named)));
  }
  EXPECT_THAT(ReadDeploymentFile(folder.path()).error, HasSubstr("not a file"));
}

}  // namespace
}  // namespace korvanta
