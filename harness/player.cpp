#include "harness/player.h"

namespace korvanta::harness {
namespace {

constexpr const char* kTitle = "Korvanta - v1.6 - ";

// In fractions of the main window's width and height.
constexpr QPointF kMessageView{0.35, 0.75};
constexpr QPointF kChatInput{0.20, 0.955};

}  // namespace

void Player::WaitForStart() {
  main_ = user_.WaitForWindow(owner_, QString(kTitle) + "*");
  login_ = user_.WaitForWindow(owner_, "Connection Screen");
}

void Player::Login(const QString& name, const QString& password) {
  user_.Activate(login_);
  user_.Type(name);
  user_.Press({"Tab"});
  user_.Type(password);
  user_.Press({"Return"});
  user_.WaitUntilGone(login_);
}

void Player::WaitForState(const QString& state) {
  main_ = user_.WaitForWindow(owner_, kTitle + state);
}

void Player::Say(const QString& line) {
  user_.Activate(main_);
  user_.Click(main_, kChatInput);
  user_.Type(line);
  user_.Press({"Return"});
}

QString Player::WaitForMessage(const QString& text) {
  return user_.WaitForText(main_, kMessageView, text);
}

void Player::Choose(const QString& shortcut) {
  user_.Activate(main_);
  user_.Press({shortcut});
}

Window Player::Open(const SideWindow& side) {
  Choose(side.shortcut);
  Window window = user_.WaitForWindow(owner_, side.title);
  user_.Activate(window);
  return window;
}

void Player::OpenBoxMenu(const Box& box) const {
  user_.Activate(main_);
  user_.Press({"alt+1"});
  user_.Press(QStringList(4, "Left") + QStringList(3, "Up"));
  user_.Press(QStringList(box.row, "Down") + QStringList(box.level - 1, "Right") +
              QStringList("Menu"));
}

void Player::ChooseItem(int position) const {
  const Window menu = user_.WaitForWindow(owner_, "Korvanta");  // no title of its own
  user_.Press(QStringList(position - 1, "Down") + QStringList("Return"));
  user_.WaitUntilGone(menu);
}

int Player::Leave() {
  Choose("F12");
  return program_.WaitForExit();
}

}  // namespace korvanta::harness
