/// Plays games against the practice server on a virtual display until it wins one, and photographs
/// that one: login, research, an attack, the Golden Knowledge.
///
/// korvanta-film FOLDER: where the frames go, numbered from frame-100.png, in the order in which
/// they are shown. The exit status is zero only when a game was won.
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QRegularExpression>
#include <deque>
#include <iostream>

#include "harness/player.h"
#include "harness/practice_server.h"

namespace korvanta::harness {
namespace {

constexpr int kPace = 5;
constexpr std::chrono::milliseconds kTick{15000 / kPace};
constexpr int kMostGames = 12;
constexpr int kFirstSeed = 3;  // other players are lucky with those before it
constexpr const char* kName = "Rowan";

constexpr int kMilitary = 0;
constexpr int kIndustry = 1;
constexpr int kPopulation = 2;
constexpr Box kGoldenKnowledge{kIndustry, 5};
/// What wins soonest, and one level of Military to attack with.
constexpr Box kPlan[] = {{kIndustry, 1}, {kPopulation, 1}, {kMilitary, 1}, {kPopulation, 2},
                         {kIndustry, 2}, {kPopulation, 3}, {kIndustry, 3}, {kPopulation, 4},
                         {kIndustry, 4}, kGoldenKnowledge};
constexpr Box kAttackAfter{kPopulation, 2};

class Film {
 public:
  Film(const User& user, Program& program, const QDir& folder)
      : user_(user), player_(user, program), folder_(folder) {}

  /// Returns whether the game was won.
  bool Play();

 private:
  void Shoot(int times = 1);
  void LogIn();
  void Research(const Box& box);
  void Attack();
  /// What has been said in the message view since the last call.
  QString News();
  bool IsOver() const { return said_.contains(" has researched the Golden Knowledge!"); }

  const User& user_;
  Player player_;
  QDir folder_;
  int frames_ = 100;
  QString said_;  ///< all that the message view has shown
  std::deque<Box> plan_{std::begin(kPlan), std::end(kPlan)};
};

void Film::Shoot(int times) {
  for (int i = 0; i < times; ++i) {
    user_.PhotographWithAllAbove(player_.main_window(),
                                 folder_.filePath(QString("frame-%1.png").arg(frames_++)));
  }
}

QString Film::News() {
  const auto known = said_.size();
  said_ = player_.WaitForMessage(said_);
  return said_.mid(known);
}

void Film::LogIn() {
  player_.WaitForStart();
  Shoot(2);
  user_.Activate(player_.login_dialog());
  user_.Type(kName);
  user_.Press({"Tab"});
  user_.Type("secret1");
  Shoot(2);
  user_.Press({"Return"});
  player_.WaitForState("Connected");
  player_.WaitForMessage("Connected as ");
  player_.Choose("ctrl+e");
  player_.WaitForMessage("You enter the game in progress");
  Shoot(2);
}

/// Takes the next box off the plan, or puts before it what must come first.
void Film::Research(const Box& box) {
  player_.OpenBoxMenu(box);
  Shoot();
  player_.ChooseItem(1);
  static const QRegularExpression too_dear("costs (\\d+) points?.* have (\\d+)\\. You get (\\d+)");
  static const QRegularExpression out_of_order("next is (\\w+) level (\\d)");
  static const QStringList topics{"Military", "Industry", "Population", "Defense"};
  const QString news = News();
  const auto left = plan_.size();
  if (const auto match = too_dear.match(news); match.hasMatch()) {
    const int missing = match.captured(1).toInt() - match.captured(2).toInt();
    const int income = match.captured(3).toInt();
    const QDeadlineTimer saved((missing + income - 1) / income * kTick);
    WaitUntil("there are enough points", [&] { return saved.hasExpired(); });
  } else if (const auto level = out_of_order.match(news); level.hasMatch()) {
    plan_.push_front(
        {static_cast<int>(topics.indexOf(level.captured(1))), level.captured(2).toInt()});
  } else if (news.contains("needs two topics at level 4")) {
    plan_.insert(plan_.begin(), {{kPopulation, 4}, {kIndustry, 4}});
  } else {
    plan_.pop_front();
    Shoot();
  }
  if (plan_.size() >= left) {
    --frames_;  // nothing to be seen; the next frame takes its place
  }
}

/// Attacks whoever of the first players in the list can be attacked.
void Film::Attack() {
  for (int row = 0; row < 4; ++row) {
    user_.Press({"alt+4", "Home"});
    user_.Press(QStringList(row, "Down") + QStringList("Menu"));
    Shoot();
    player_.ChooseItem(1);
    const QString news = News();
    if (news.contains(QString("%1 attacks").arg(kName)) ||
        news.contains(QString("attack by %1").arg(kName))) {
      Shoot(3);
      return;
    }
    --frames_;
  }
}

bool Film::Play() {
  LogIn();
  while (!plan_.empty() && !IsOver()) {
    const Box box = plan_.front();
    const auto left = plan_.size();
    Research(box);
    if (plan_.size() < left && box.row == kAttackAfter.row && box.level == kAttackAfter.level) {
      Attack();
    }
  }
  Shoot(4);
  player_.Leave();
  return said_.contains(QString("%1 has researched the Golden Knowledge!").arg(kName));
}

void Run(const QDir& folder) {
  const VirtualDisplay display;
  const User user(display);
  for (int game = 0; game < kMostGames; ++game) {
    for (const QString& frame : folder.entryList({"frame-*.png"})) {
      QFile::remove(folder.filePath(frame));
    }
    const PracticeServer server({"--players", "3", "--pace", QString::number(kPace), "--seed",
                                 QString::number(kFirstSeed + game)});
    const Installation installation(server.address());
    Program program(installation, display);
    if (Film(user, program, folder).Play()) {
      return;
    }
    std::cout << "a game was lost" << std::endl;
  }
  throw HarnessError("no game was won");
}

}  // namespace
}  // namespace korvanta::harness

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (QCoreApplication::arguments().size() != 2) {
    std::cerr << "usage: korvanta-film FOLDER\n";
    return 2;
  }
  try {
    korvanta::harness::Run(QDir(QCoreApplication::arguments().back()));
  } catch (const korvanta::harness::HarnessError& error) {
    std::cerr << "korvanta-film: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
