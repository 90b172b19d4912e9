#include "ui/desktop/deployment_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace korvanta {
namespace {

using testing::HasSubstr;

class DeploymentFile : public testing::Test {
 protected:
  DeploymentResult ReadText(const QByteArray& text) const {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(text);
    file.close();
    return ReadDeploymentFile(path);
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("deployment.ini"));
  const DeploymentValues built_in;
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
  const std::pair<QByteArray, std::string> cases[] = {
      {"HomepageAddress=http:///", " HomepageAddress the value \"http:///\""},
      {"RightsLine=" + long_line, " RightsLine the value \"xxx"},
      {"MakerName=" + long_line, " MakerName the value \"xxx"},
      {"ServerAddress 127.0.0.1", "\"ServerAddress 127.0.0.1\""},
      {"Years=20\x01", "not an entry"},
      {QByteArray(65537, '\n'), "65536"},
      {"ServerAddress=" + QByteArray(5000, '9'), "999\x85\""}};
  for (const char* address : {"", "1.2.3", "256.0.0.1", "127.0.0.1 x", "localhost", "::1"}) {
    EXPECT_THAT(ReadText(QByteArray("[Deployment]\nServerAddress=") + address).error,
                HasSubstr(std::string(" ServerAddress the value \"") + address + "\""));
  }
  for (const auto& [line, named] : cases) {
    EXPECT_THAT(ReadText("[Deployment]\n" + line + "\n").error,
                testing::AllOf(HasSubstr(path.toStdString()), HasSubstr(named)));
  }
  EXPECT_THAT(ReadDeploymentFile(folder.path()).error, HasSubstr("not a file"));
}

}  // namespace
}  // namespace korvanta
