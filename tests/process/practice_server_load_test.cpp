/// The practice server's program under load: floods, crowds, those who do not read, thousands at
/// once.
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <memory>
#include <sys/resource.h>
#include <vector>

#include "tests/process/peer.h"

namespace korvanta::process {
namespace {

const std::string kAway("[ctc]away\0", 10);

/// A number of the server's entry in the process table.
qint64 StatusOf(const PracticeServer& server, const QString& name) {
  QFile file(QString("/proc/%1/status").arg(server.pid()));
  if (!file.open(QIODevice::ReadOnly)) {
    throw HarnessError("there is no process " + QString::number(server.pid()));
  }
  const auto match =
      QRegularExpression("\\b" + name + ":\\s+(\\d+)").match(QString::fromLatin1(file.readAll()));
  return match.captured(1).toLongLong();
}

TEST(PracticeServerLoad, OneWhoDoesNotReadIsCutOffWhenTooMuchWaits) {
  struct Case {
    const char* what;
    QStringList options;
  };
  const Case cases[] = {
      {"a flood of a rate does not wait for readers", {"--flood", "100000"}},
      // A flood without a rate leaves no backlog; the lists that follow from what players do can.
      {"online lists come on top of the flood", {"--flood", "max", "--crowd", "100000"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const PracticeServer server(c.options);
    Peer deaf(server, Peer::Reads::Nothing);
    deaf.LogIn("Deafened");
    WaitUntil("the one who does not read is cut off", [&] {
      deaf.Send(kAway);  // changes the online list
      return deaf.HasEnded();
    });
    Peer next(server);
    next.LogIn("Deafened");
    next.WaitFor("[con]Deafened\001");
  }
}

TEST(PracticeServerLoad, AFloodWithoutARateKeepsLittleForWhoDoesNotRead) {
  const PracticeServer server({"--flood", "max"});
  Peer deaf(server, Peer::Reads::Nothing);
  deaf.LogIn("Deafened");
  Peer reader(server);
  reader.LogIn("Reader");
  reader.WaitFor("[con]Reader\001");
  [[maybe_unused]] const qint64 before = StatusOf(server, "VmRSS");
  qint64 heard = 0;
  WaitUntil("much has been said", [&] {
    heard += reader.TakeHeard().size();
    return heard > qint64{50} * 1024 * 1024;
  });
#ifndef __SANITIZE_ADDRESS__  // it keeps what is freed for a while
  EXPECT_LT(StatusOf(server, "VmRSS") - before, 2 * 1024) << "kilobytes";
#endif
  EXPECT_FALSE(deaf.HasEnded());
}

TEST(PracticeServerLoad, EndsInOrderInTheMiddleOfAFlood) {
  PracticeServer server({"--flood", "max"});
  Peer deaf(server, Peer::Reads::Nothing);
  deaf.LogIn("Deafened");
  Peer reader(server);
  reader.LogIn("Reader");
  reader.WaitFor("[msg]cht\001");
  server.AskToStop();
  reader.WaitFor("Goodbye!");
  reader.WaitForEnd();
  EXPECT_EQ(server.WaitForExit(), 0);
}

TEST(PracticeServerLoad, ServesTwoThousandOnOneThread) {
  constexpr std::size_t kPeers = 2000;
  rlimit limit = {};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  limit.rlim_cur = limit.rlim_max;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);

  const PracticeServer server({"--quiet"});
  std::vector<std::unique_ptr<Peer>> peers;
  for (std::size_t i = 0; i < kPeers; ++i) {
    peers.push_back(std::make_unique<Peer>(server));
    peers.back()->LogIn("Peer" + std::to_string(i));
  }
  peers.front()->WaitFor("Peer1999 logged in");
  peers.back()->Send(std::string("[ctc]c hello to all\0", 20));
  for (const auto& peer : peers) {
    peer->WaitFor("[msg]cht\001Peer1999: hello to all\001");
  }
  EXPECT_EQ(StatusOf(server, "Threads"), 1);
}

}  // namespace
}  // namespace korvanta::process
