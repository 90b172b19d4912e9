/// The practice server's program under load: floods, crowds, those who do not read, thousands at
/// once.
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <vector>

#include "harness/scripted_client.h"

namespace korvanta::harness {
namespace {

using namespace std::string_view_literals;

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
  const QStringList cases[] = {
      {"--flood", "100000"},  // does not wait for readers
      // A flood without a rate leaves no backlog; the lists that follow from what players do can.
      {"--flood", "max", "--crowd", "100000"},
  };
  for (const QStringList& options : cases) {
    SCOPED_TRACE(options.join(' ').toStdString());
    const PracticeServer server(options);
    const ScriptedClient deaf(server);
    deaf.LogIn("Deafened");
    WaitUntil("the one who does not read is cut off", [&] {
      deaf.Send("[ctc]away\0"sv);  // changes the online list
      return deaf.HasEnded();
    });
    ScriptedClient next(server);
    next.LogIn("Deafened");
    next.WaitFor("[con]Deafened\001");
  }
}

TEST(PracticeServerLoad, AFloodWithoutARateKeepsLittleForWhoDoesNotReadAndEndsInOrder) {
  PracticeServer server({"--flood", "max"});
  const ScriptedClient deaf(server);
  deaf.LogIn("Deafened");
  ScriptedClient reader(server);
  reader.LogIn("Reader");
  reader.WaitFor("[con]Reader\001");
  [[maybe_unused]] const qint64 before = StatusOf(server, "VmRSS");
  std::size_t received = 0;
  WaitUntil(
      "much has been said", [&] { return received > std::size_t{50} * 1024 * 1024; }, kPatience,
      [&] { received += reader.Discard(); });
#ifndef __SANITIZE_ADDRESS__  // it keeps what is freed for a while
  EXPECT_LT(StatusOf(server, "VmRSS") - before, 2 * 1024) << "kilobytes";
#endif
  EXPECT_FALSE(deaf.HasEnded());
  server.AskToStop();
  reader.WaitFor("Goodbye!");
  reader.WaitForEnd();
  EXPECT_EQ(server.WaitForExit(), 0);
}

TEST(PracticeServerLoad, ServesTwoThousandOnOneThread) {
  constexpr std::size_t kClients = 2000;
  rlimit limit = {};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  limit.rlim_cur = limit.rlim_max;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);

  const PracticeServer server({"--quiet"});
  std::vector<ScriptedClient> clients;
  for (std::size_t i = 0; i < kClients; ++i) {
    clients.emplace_back(server).LogIn("Player" + std::to_string(i));
  }
  clients.front().WaitFor("Player1999 logged in");
  clients.back().Send("[ctc]c hello to all\0"sv);
  for (ScriptedClient& client : clients) {
    client.WaitFor("[msg]cht\001Player1999: hello to all\001");
  }
  EXPECT_EQ(StatusOf(server, "Threads"), 1);
}

}  // namespace
}  // namespace korvanta::harness
