#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <gmock/gmock.h>

#include "tests/process/story_test.h"

namespace korvanta::process {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SettingsStory : public StoryTest {
 protected:
  QString Folder() const { return QFileInfo(installation_.settings_file()).path(); }

  /// An evening's shortest form; the main window is closing at its end.
  void PlayAndLeave() {
    const int known = server_.clients();
    Start();
    player_->Login("Marlow", "secret1");
    server_.WaitForClient(known);
    server_.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
    server_.Send(Bytes("[con]Marlow\0017\0"));
    player_->WaitForState("Connected");
    player_->Say("hello");
    server_.Expect(Bytes("[ctc]c hello\0"));
    user_.Press({"F12"});
    server_.Expect(Bytes("[dis]\0"));
  }

  /// The files of the player in which the bytes stand.
  std::vector<std::string> FilesWith(const QByteArray& bytes) const {
    std::vector<std::string> names;
    const QString root = QFileInfo(installation_.program_file()).path() + "/..";
    for (const char* part : {"/home", "/config", "/runtime"}) {
      QDirIterator files(root + part, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
      while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains(bytes)) {
          names.push_back(QFileInfo(file).fileName().toStdString());
        }
      }
    }
    return names;
  }
};

TEST_F(SettingsStory, WithoutAPlaceToSaveThePlayerPlaysAndIsTold) {
  const struct {
    const char* name;
    std::function<void()> prepare;
  } cases[] = {
      {"a folder where the file would be",
       [this] { QDir().mkpath(installation_.settings_file() + "/folder"); }},
      {"a file where its folder would be",
       [this] {
         QDir(Folder()).removeRecursively();
         QFile file(Folder());
         ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("precious") > 0);
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    c.prepare();
    PlayAndLeave();
    const Window box = WaitFor("Korvanta");
    user_.Activate(box);
    user_.Press({"Return"});
    user_.WaitUntilGone(box);
    EXPECT_EQ(program_->WaitForExit(), 0);
    EXPECT_EQ(program_->Output().toStdString(), "");
  }
  EXPECT_THAT(FilesWith("precious"), ElementsAre("Korvanta")) << "what stands there stays";
}

TEST_F(SettingsStory, DamagedSettingsArePutAsideAndNoPasswordIsLeftAnywhere) {
  const std::pair<const char*, QByteArray> cases[] = {
      {"cut", "[Logins]\nLast User=Ann\nUser/Passw"},
      {"binary", QByteArray("\x01\xff\0[\n]=\r;", 9).repeated(10'000)},
      {"far too long", QByteArray(100 << 20, '\n')},
  };
  QString aside = installation_.settings_file() + ".bak";
  int number = 1;
  for (const auto& [name, bytes] : cases) {
    SCOPED_TRACE(name);
    installation_.WriteSettings(bytes);
    PlayAndLeave();
    EXPECT_EQ(program_->WaitForExit(), 0);
    EXPECT_THAT(installation_.Settings().toStdString(), HasSubstr("Last User=Marlow\n"));
    QFile kept(aside);
    EXPECT_TRUE(kept.open(QIODevice::ReadOnly) && kept.readAll() == bytes);
    aside = installation_.settings_file() + QString(".bak%1").arg(++number);
  }
  EXPECT_THAT(FilesWith("secret1"), IsEmpty());
}

}  // namespace
}  // namespace korvanta::process
