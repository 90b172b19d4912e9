#include "ui/desktop/deployment_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace korvanta {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class DeploymentFile : public testing::Test {
 protected:
  DeploymentReading ReadText(const QByteArray& text) const {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(text);
    file.close();
    return ReadDeploymentFile(path);
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("deployment.ini"));
};

TEST_F(DeploymentFile, GivesTheValuesOfItsGroupAndKeepsTheOthers) {
  const DeploymentReading reading = ReadText(
      "\xef\xbb\xbf; ours\r\n[Other]\r\nServerAddress=nonsense\r\n[Deployment]\r\n"
      "ServerAddress = "
      "192.0.2.10\r\nHomepageAddress=https://play.example:8080/Korvanta/?a=b%20c\r\n"
      "Years=\xc2\xa9 2019, 2026; \xe2\x82\xac\r\nUnknown=1\r\n");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.values.server_address, "192.0.2.10");
  EXPECT_EQ(reading.values.homepage_address, "https://play.example:8080/Korvanta/?a=b%20c");
  const DeploymentValues built_in;
  EXPECT_THAT(
      reading.values.rights_notice,
      ElementsAre(built_in.rights_notice[0], built_in.rights_notice[1], "\xa9 2019, 2026; \x80"));
}

TEST_F(DeploymentFile, AbsentFileAndTheOneAsBuiltGiveTheBuiltInValues) {
  const DeploymentValues built_in;
  const QString as_built =
      QCoreApplication::applicationDirPath() + QStringLiteral("/deployment.ini");
  ASSERT_TRUE(QFile::exists(as_built));
  for (const QString& file : {path, as_built}) {
    const DeploymentReading reading = ReadDeploymentFile(file);
    EXPECT_EQ(reading.error, "");
    EXPECT_EQ(reading.values.server_address, built_in.server_address);
    EXPECT_EQ(reading.values.homepage_address, built_in.homepage_address);
    EXPECT_EQ(reading.values.rights_notice, built_in.rights_notice);
  }
}

TEST_F(DeploymentFile, MalformedValuesAreNamedWithFileAndKey) {
  const std::string long_line(121, 'x');
  const struct {
    std::string key, value;
  } cases[] = {
      {"ServerAddress", ""},           {"ServerAddress", "1.2.3"},
      {"ServerAddress", "256.0.0.1"},  {"ServerAddress", "127.0.0.1 x"},
      {"ServerAddress", "localhost"},  {"ServerAddress", "::1"},
      {"HomepageAddress", ""},         {"HomepageAddress", "korvanta.example/Korvanta/"},
      {"HomepageAddress", "http:///"}, {"HomepageAddress", "javascript:alert(1)"},
      {"RightsLine", long_line},       {"MakerName", long_line},
  };
  for (const auto& [key, value] : cases) {
    const DeploymentReading reading =
        ReadText(QByteArray::fromStdString("[Deployment]\n" + key + "=" + value + "\n"));
    EXPECT_THAT(reading.error, AllOf(HasSubstr(path.toStdString()), HasSubstr(" " + key + " "),
                                     HasSubstr("\"" + value + "\"")));
  }
}

TEST_F(DeploymentFile, WhatIsNoSuchFileIsTold) {
  const std::pair<QByteArray, const char*> cases[] = {
      {"[Deployment]\nServerAddress 127.0.0.1\n", "\"ServerAddress 127.0.0.1\""},
      {"[Deployment]\nYears=20\x01\n", "no entry"},
      {QByteArray(65537, '\n'), "65536"},
      {"[Deployment]\nServerAddress=" + QByteArray(5000, '9'), "999\x85\""}};
  for (const auto& [text, told] : cases) {
    EXPECT_THAT(ReadText(text).error, AllOf(HasSubstr(path.toStdString()), HasSubstr(told)));
  }
  EXPECT_THAT(ReadDeploymentFile(folder.path()).error, HasSubstr("not a file"));
}

}  // namespace
}  // namespace korvanta
