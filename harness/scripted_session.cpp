/// Plays a short session against the practice server on a virtual display, tells what it sees and
/// photographs each window. The exit status is zero only when all went as it should.
///
/// korvanta-scripted-session [--game] FOLDER [COMMAND...]: where the pictures go. With --game there
/// are simulated players, and a game with them is played until there is something to be seen on
/// every window. A command takes the place of the built programs; it starts both.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <iostream>

#include "harness/player.h"
#include "harness/practice_server.h"

namespace korvanta::harness {
namespace {

void Report(const QString& what) { std::cout << what.toStdString() << std::endl; }

/// One player's session, from the splash to the end of the program.
class Session {
 public:
  Session(const User& user, Program& program, qint64 owner, const QDir& pictures)
      : user_(user),
        program_(program),
        owner_(owner),
        player_(user, program, owner),
        pictures_(pictures) {}

  void Visit();
  void PlayGame();

 private:
  void Photograph(const Window& window, const QString& name) const {
    const QString file = pictures_.filePath(name + ".png");
    user_.Photograph(window, file);
    Report(QString("saw \"%1\": %2").arg(window.title, file));
  }
  void PhotographSideWindows() {
    for (const SideWindow& side : kSideWindows) {
      Photograph(player_.Open(side), side.name);
    }
  }
  void LogIn(const QString& name) {
    player_.WaitForStart();
    Photograph(player_.login_dialog(), "login");
    player_.Login(name, "secret1");
    player_.WaitForState("Connected");
    player_.WaitForMessage("Connected as " + name);
  }
  void Leave() {
    if (const int status = player_.Leave(); status != 0) {
      throw HarnessError(QString("the program ended with status %1").arg(status));
    }
    if (!program_.Output().isEmpty()) {
      throw HarnessError("the program said:\n" + program_.Output());
    }
    Report("left in order");
  }
  void OpenTournament();
  void Research();
  /// All levels of all topics together.
  int LevelsReached();

  const User& user_;
  Program& program_;
  qint64 owner_;
  Player player_;
  QDir pictures_;
};

void Session::Visit() {
  Photograph(user_.WaitForWindow(owner_, "*"), "splash");
  LogIn("Rowan");
  player_.Say("hello from the lobby");
  const QString messages = player_.WaitForMessage("Rowan: hello from the lobby");
  Photograph(player_.main_window(), "main");
  Report("the message view reads:\n" + messages);
  PhotographSideWindows();
  Leave();
}

/// The first player on a server is its administrator; the simulated players form teams by
/// themselves.
void Session::OpenTournament() {
  const Window window = player_.Open(kTournament);
  user_.Press({"alt+a", "alt+e"});
  user_.Type("25");
  user_.Press({"alt+x"});
  user_.Type("4");
  user_.Press({"alt+p"});
  user_.Type("8");
  user_.Press({"Tab", "space", "Escape"});
  user_.WaitUntilGone(window);
  player_.WaitForMessage("A tournament is open for 4 teams");
}

/// The simulated players do not wait for ours; a tick brings the points for about one level.
constexpr int kPace = 6;
constexpr std::chrono::milliseconds kTick{15000 / kPace};

/// Cheap levels, and Defense early: what the others destroy is not there for the picture.
constexpr Box kResearched[] = {{3, 1}, {1, 1}, {2, 1}, {1, 2}, {0, 1},
                               {2, 2}, {3, 2}, {1, 3}, {0, 2}};
constexpr int kFewestLevels = 6;
constexpr int kMostRounds = 3;

void Session::Research() {
  for (const Box& box : kResearched) {
    player_.OpenBoxMenu(box);
    player_.ChooseItem(1);
    const QDeadlineTimer tick(kTick);
    WaitUntil("the next tick is over", [&] { return tick.hasExpired(); });
  }
}

int Session::LevelsReached() {
  const QString mine = "  Rowan: ";
  player_.Say("/game");
  const QString messages = player_.WaitForMessage(mine);
  const QString board = messages.mid(messages.lastIndexOf(mine)).section('\n', 0, 0);
  Report("reached" + board);
  int levels = 0;
  for (auto digits = QRegularExpression(" ([0-4])\\b").globalMatch(board); digits.hasNext();) {
    levels += digits.next().captured(1).toInt();
  }
  return levels;
}

void Session::PlayGame() {
  LogIn("Rowan");
  player_.Choose("ctrl+e");
  player_.WaitForMessage("You enter the game in progress");
  player_.Choose("ctrl+m");  // the others may win before we have come far enough
  OpenTournament();
  int rounds = 0;
  do {
    if (++rounds > kMostRounds) {
      throw HarnessError("too little was researched for a picture");
    }
    Research();
    Photograph(player_.main_window(), "main-window");
  } while (LevelsReached() < kFewestLevels);
  PhotographSideWindows();
  Leave();
}

void Play(const VirtualDisplay& display, Program& program, qint64 owner, bool is_game,
          const QDir& pictures) {
  const User user(display);
  const QString failure = pictures.filePath("failure.png");
  QFile::remove(failure);
  try {
    Session session(user, program, owner, pictures);
    is_game ? session.PlayGame() : session.Visit();
  } catch (const HarnessError&) {
    user.PhotographScreen(failure);
    Report("the screen as it was: " + failure);
    throw;
  }
}

void Run(bool is_game, const QDir& pictures, const QStringList& command) {
  const VirtualDisplay display;
  if (!command.isEmpty()) {
    Program program(command.front(), command.mid(1), display.environment());
    Play(display, program, User::kAnyClient, is_game, pictures);
    return;
  }
  const PracticeServer server(
      is_game ? QStringList{"--players", "6", "--seed", "7", "--pace", QString::number(kPace)}
              : QStringList());
  const Installation installation(server.address());
  Program program(installation, display);
  Play(display, program, program.pid(), is_game, pictures);
}

}  // namespace
}  // namespace korvanta::harness

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QStringList arguments = QCoreApplication::arguments().mid(1);
  const bool is_game = !arguments.isEmpty() && arguments.front() == "--game";
  arguments = arguments.mid(is_game ? 1 : 0);
  if (arguments.isEmpty()) {
    std::cerr << "usage: korvanta-scripted-session [--game] FOLDER [COMMAND...]\n";
    return 2;
  }
  try {
    korvanta::harness::Run(is_game, QDir(arguments.front()), arguments.mid(1));
  } catch (const korvanta::harness::HarnessError& error) {
    std::cerr << "korvanta-scripted-session: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
