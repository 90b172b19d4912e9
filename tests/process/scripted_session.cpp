/// Plays a short session against the practice server on a virtual display, tells what it sees and
/// photographs each window. The exit status is zero only when all went as it should.
///
/// korvanta-scripted-session FOLDER: where the pictures go.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <iostream>

#include "tests/process/player.h"
#include "tests/process/practice_server.h"

namespace korvanta::process {
namespace {

struct SideWindow {
  const char* shortcut;
  const char* title;
  const char* picture;
};

constexpr SideWindow kSideWindows[] = {
    {"ctrl+l", "Search Online User", "statistics"},
    {"F3", "News", "news"},
    {"ctrl+t", "Tournament Window", "tournament"},
};

void Tell(const QString& what) { std::cout << what.toStdString() << std::endl; }

void Play(const User& user, Program& program, const QDir& pictures) {
  const auto photograph = [&](const Window& window, const QString& name) {
    user.Photograph(window, pictures.filePath(name + ".png"));
    Tell(QString("saw \"%1\": %2").arg(window.title, pictures.filePath(name + ".png")));
  };

  photograph(user.WaitForWindow(program.pid(), "*"), "splash");
  Player player(user, program);
  player.WaitForStart();
  photograph(player.login_dialog(), "login");

  player.Login("Marlow", "secret1");
  player.WaitForState("Connected");
  player.WaitForMessage("Connected as Marlow");
  player.Say("hello from the lobby");
  const QString messages = player.WaitForMessage("Marlow: hello from the lobby");
  photograph(player.main_window(), "main");
  Tell("the message view reads:\n" + messages);

  for (const SideWindow& side : kSideWindows) {
    player.Choose(side.shortcut);
    photograph(user.WaitForWindow(program.pid(), side.title), side.picture);
  }

  if (const int status = player.Leave(); status != 0) {
    throw HarnessError(QString("the program ended with status %1").arg(status));
  }
  Tell("left in order");
}

int Run(const QDir& pictures) {
  const QString failure = pictures.filePath("failure.png");
  QFile::remove(failure);
  try {
    const VirtualDisplay display;
    const User user(display);
    const PracticeServer server;
    const Installation installation(server.address());
    Program program(installation, display);
    try {
      Play(user, program, pictures);
    } catch (const HarnessError&) {
      user.PhotographScreen(failure);
      Tell("the screen as it was: " + failure);
      throw;
    }
  } catch (const HarnessError& error) {
    std::cerr << "korvanta-scripted-session: " << error.what() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace
}  // namespace korvanta::process

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (QCoreApplication::arguments().size() != 2) {
    std::cerr << "usage: korvanta-scripted-session FOLDER\n";
    return 2;
  }
  const QDir pictures(QCoreApplication::arguments().at(1));
  return korvanta::process::Run(pictures);
}
