/// The fixture of the long tests, each an evening with the program: a scripted server, one copy of
/// the program, and a picture of every step.
#pragma once

#include <QImage>
#include <memory>

#include "tests/process/player.h"
#include "tests/process/process_test.h"

namespace korvanta::process {

class StoryTest : public ProcessTest {
 protected:
  /// Starts the program and waits for its windows.
  void Start() {
    program_.reset();
    program_ = std::make_unique<Program>(installation_, display_);
    player_ = std::make_unique<Player>(user_, *program_);
    player_->WaitForStart();
  }

  /// Logs in as Marlow through the login dialog that is open; the server gives `user_id`.
  void Login(const QByteArray& user_id) {
    const int known = server_.clients();
    if (known == 0) {
      player_->Login("Marlow", "secret1");
    } else {  // the name is remembered
      user_.Activate(WaitFor("Connection Screen"));
      user_.Type("secret1");
      user_.Press({"Return"});
    }
    server_.WaitForClient(known);
    server_.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
    server_.Send("[con]Marlow\001" + user_id + '\0');
    player_->WaitForState("Connected");
  }

  const Window& main_window() const { return player_->main_window(); }
  Window WaitFor(const QString& title) const { return user_.WaitForWindow(program_->pid(), title); }

  /// Answers the message box of that title by a key.
  void Answer(const QString& title, const QString& key) {
    const Window box = WaitFor(title);
    Keep("asks-" + title.toLower().remove('?'), box);
    user_.Activate(box);
    user_.Press({key});
    user_.WaitUntilGone(box);
  }

  /// Chooses an item of the popup menu, counted from 1, once it is open; the first one is ready.
  void ChooseItem(int position, const QString& picture) {
    const Window menu = WaitFor("Korvanta");  // no title of its own
    Keep(picture);
    user_.Press(QStringList(position - 1, "Down") + QStringList("Return"));
    user_.WaitUntilGone(menu);
  }

  /// Waits until the text box with that access key holds `text`.
  void ExpectField(const Window& window, const QString& access_key, const QString& text) const {
    user_.Activate(window);
    WaitUntil("a text box holds " + text, [&] {
      user_.Press({access_key, "ctrl+a", "ctrl+c"});
      return user_.Clipboard() == text;
    });
  }

  /// Passes only when the client has sent nothing since the last expected message: a chat line is
  /// the next that comes.
  void ExpectNothingSent() {
    player_->Say("so far");
    server_.Expect(Bytes("[ctc]c so far\0"));
  }

  /// What a window shows now.
  QImage Look(const Window& window) const {
    const QString file = QStringLiteral(KORVANTA_STORY_FOLDER "/look.png");
    user_.Photograph(window, file);
    return QImage(file);
  }

  /// Keeps a picture of a window, or of the whole screen, among those of this test.
  void Keep(const QString& step, const Window& window = {}) {
    const QString file = QString(KORVANTA_STORY_FOLDER "/%1/%2-%3.png")
                             .arg(testing::UnitTest::GetInstance()->current_test_info()->name())
                             .arg(++kept_, 2, 10, QChar('0'))
                             .arg(step);
    window.id.isEmpty() ? user_.PhotographScreen(file) : user_.Photograph(window, file);
  }

  ScriptedServer server_;
  Installation installation_{server_.address()};
  std::unique_ptr<Program> program_;
  std::unique_ptr<Player> player_;

 private:
  int kept_ = 0;
};

}  // namespace korvanta::process
