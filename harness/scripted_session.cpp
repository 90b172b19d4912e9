/// Plays a short session against the practice server on a virtual display, reports what it sees and
/// photographs each window. The exit status is zero only when all went as it should.
///
/// korvanta-scripted-session [OPTIONS] FOLDER [COMMAND...]: where the pictures go. A command takes
/// the place of the built programs; it starts both. The options:
///   --game           plays a game with simulated players until every window has something to show,
///                    and on until the board is cleared for the next game
///   --saved          logs in with what an earlier session has saved
///   --end COMMAND    has the shell end the program, in place of the menu
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <iostream>
#include <utility>

#include "harness/player.h"
#include "harness/practice_server.h"

namespace korvanta::harness {
namespace {

void Report(const QString& what) { std::cout << what.toStdString() << std::endl; }

constexpr const char* kName = "Rowan";

/// In fractions of the main window's width and height.
constexpr QRectF kBoxes{0.14, 0.09, 0.46, 0.46};

struct Options {
  bool is_game = false;
  bool is_saved = false;
  QString end;  ///< a command; empty for the menu
  QDir pictures;
};

/// One player's session, from the splash to the end of the program.
class Session {
 public:
  Session(const User& user, Program& program, qint64 owner, Options options)
      : user_(user),
        program_(program),
        owner_(owner),
        player_(user, program, owner),
        options_(std::move(options)) {}

  void Visit();
  void PlayGame();

 private:
  void Photograph(const Window& window, const QString& name) const {
    const QString file = options_.pictures.filePath(name + ".png");
    user_.Photograph(window, file);
    Report(QString("saw \"%1\": %2").arg(window.title, file));
  }
  void PhotographSideWindows() {
    for (const SideWindow& side : kSideWindows) {
      const Window window = player_.Open(side);
      Photograph(window, side.name);
      user_.Press({"Escape"});
      user_.WaitUntilGone(window);
    }
  }
  void LogIn();
  void Leave();
  void OpenTournament();
  void Research();
  /// All levels of all topics together.
  int LevelsReached();
  /// The boxes as they look while the message view has the keyboard.
  QByteArray BoxesOfBoard() const { return user_.Pixels(player_.main_window(), kBoxes); }
  void WaitForNextGame(const QByteArray& empty_board);

  const User& user_;
  Program& program_;
  qint64 owner_;
  Player player_;
  Options options_;
};

void Session::LogIn() {
  player_.WaitForStart();
  user_.Activate(player_.login_dialog());
  Photograph(player_.login_dialog(), "login");
  if (!options_.is_saved) {
    user_.Type(kName);
    user_.Press({"Tab"});
    user_.Type("secret1");
    user_.Press({"Tab", "Tab", "space"});  // "Save Password"
  }
  user_.Press({"Return"});
  player_.WaitForState("Connected");
  player_.WaitForMessage(QString("Connected as ") + kName);
}

void Session::Leave() {
  int status = 0;
  if (options_.end.isEmpty()) {
    status = player_.Leave();
  } else {
    user_.RunCommand(options_.end);
    status = program_.WaitForExit();
  }
  if (status != 0) {
    throw HarnessError(QString("the program ended with status %1").arg(status));
  }
  if (!program_.Output().isEmpty()) {
    throw HarnessError("the program said:\n" + program_.Output());
  }
  Report("left in order");
}

void Session::Visit() {
  Photograph(user_.WaitForWindow(owner_, "*"), "splash");
  LogIn();
  player_.Say("hello from the lobby");
  const QString messages = player_.WaitForMessage("Rowan: hello from the lobby");
  Photograph(player_.main_window(), "main");
  Report("the message view reads:\n" + messages);
  PhotographSideWindows();
  player_.Choose("ctrl+f");  // no longer the default
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
constexpr const char* kVictory = " has researched the Golden Knowledge!";
constexpr std::chrono::minutes kLongestGame{5};

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

void Session::WaitForNextGame(const QByteArray& empty_board) {
  QString said = player_.WaitForMessage({});
  if (BoxesOfBoard() == empty_board) {
    throw HarnessError("no box of the board is lit");
  }
  const auto known = said.size();
  WaitUntil(
      "somebody wins the game",
      [&] {
        said = player_.WaitForMessage(said);
        return said.indexOf(kVictory, known) >= 0;
      },
      kLongestGame);
  WaitUntil("the board is cleared", [&] { return BoxesOfBoard() == empty_board; });
}

void Session::PlayGame() {
  LogIn();
  const QByteArray empty_board = BoxesOfBoard();
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
  WaitForNextGame(empty_board);
  player_.Choose("ctrl+m");  // off again, for the next session
  Leave();
}

void Play(const VirtualDisplay& display, Program& program, qint64 owner, const Options& options) {
  const User user(display);
  const QString failure = options.pictures.filePath("failure.png");
  QFile::remove(failure);
  try {
    Session session(user, program, owner, options);
    options.is_game ? session.PlayGame() : session.Visit();
  } catch (const HarnessError&) {
    user.PhotographScreen(failure);
    Report("the screen as it was: " + failure);
    throw;
  }
}

void Run(const Options& options, const QStringList& command) {
  const VirtualDisplay display;
  if (!command.isEmpty()) {
    Program program(command.front(), command.mid(1), display.environment());
    Play(display, program, User::kAnyClient, options);
    return;
  }
  const PracticeServer server(options.is_game ? QStringList{"--players", "6", "--seed", "7",
                                                            "--pace", QString::number(kPace)}
                                              : QStringList());
  const Installation installation(server.address());
  Program program(installation, display);
  Play(display, program, program.pid(), options);
}

}  // namespace
}  // namespace korvanta::harness

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QCommandLineParser parser;
  parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
  parser.addOptions({{"game", {}}, {"saved", {}}, {"end", {}, "command"}});
  QStringList arguments;
  if (parser.parse(QCoreApplication::arguments())) {
    arguments = parser.positionalArguments();
  }
  if (arguments.isEmpty()) {
    std::cerr << "usage: korvanta-scripted-session [--game] [--saved] [--end COMMAND] FOLDER "
                 "[COMMAND...]\n";
    return 2;
  }
  try {
    korvanta::harness::Run(
        {parser.isSet("game"), parser.isSet("saved"), parser.value("end"), QDir(arguments.front())},
        arguments.mid(1));
  } catch (const korvanta::harness::HarnessError& error) {
    std::cerr << "korvanta-scripted-session: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
