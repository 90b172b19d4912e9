/// The practice server as a program: started by its script, refusing to start, and under load.
#include "harness/practice_server.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/resource.h>
#include <thread>
#include <vector>

#include "harness/program.h"
#include "harness/scripted_client.h"
#include "harness/socket.h"

namespace korvanta::harness {
namespace {

using namespace std::string_view_literals;

bool IsServerThere() {
  try {
    return Socket::ConnectedTo("127.0.0.1").IsOpen();
  } catch (const HarnessError&) {
    return false;
  }
}

/// The launcher between the real server and a client that stays or ends with status 7.
TEST(PracticeLauncher, EndsTheServerWithTheClientAndBothWhenItIsEnded) {
  if (QFile::exists("/etc/korvanta/deployment.ini") || IsServerThere()) {
    GTEST_SKIP() << "the game is installed on this machine, or a server is running";
  }
  const QTemporaryDir folder;
  QFile client(folder.filePath("korvanta"));
  ASSERT_TRUE(client.open(QIODevice::WriteOnly));
  client.write(
      "#!/bin/bash\nexec 4<>/dev/tcp/127.0.0.1/7678 || exit 1\necho connected\n"
      "[ -z \"$STAYS\" ] || exec sleep 60\nexit 7\n");
  client.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  client.close();
  QFile::link(PracticeServerProgram(), folder.filePath("korvanta-practice-server"));
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PATH", folder.path() + QDir::listSeparator() + environment.value("PATH"));

  for (const bool stays : {false, true}) {
    environment.insert("STAYS", stays ? "yes" : "");
    Program launcher(KORVANTA_PRACTICE_LAUNCHER, {}, environment);
    WaitUntil("the client is connected", [&] { return launcher.Output().contains("connected"); });
    if (stays) {
      ::kill(static_cast<pid_t>(launcher.pid()), SIGTERM);
    }
    EXPECT_EQ(launcher.WaitForExit(), stays ? 128 + SIGTERM : 7);
    EXPECT_FALSE(IsServerThere());
  }
}

TEST(PracticeServer, MischiefComesOverConnectionsByDice) {
  const PracticeServer server({"--mischief", "reset-handshake", "--mischief-seed", "1"});
  std::set<bool> accepted;
  for (int i = 0; i < 20; ++i) {
    ScriptedClient peer(server);
    peer.LogIn("Peer" + std::to_string(i));
    bool is_accepted = false;
    WaitUntil("the login has an end", [&] {
      is_accepted = peer.HasReceived("[con]");
      return is_accepted || peer.HasEnded();
    });
    accepted.insert(is_accepted);
  }
  EXPECT_EQ(accepted.size(), 2U);
}

TEST(PracticeServer, WhatKeepsItFromStartingIsReportedInALineEach) {
  const PracticeServer running;
  const struct {
    QStringList options;
    const char* reason;
    int lines = 1;
  } cases[] = {
      {{"--address", running.address()}, "cannot listen on 127."},
      {{"--address", "192.0.2.1"}, "--allow-remote"},
      {{"--address", "nowhere"}, "'nowhere' is not an IP address"},
      {{"--port", "65536"}, "'65536' is not a port"},
      {{"--players", "50001"}, "'50001' is not a number of players"},
      {{"--pace", "nan"}, "'nan' is not a pace"},
      {{"--pace", "0"}, "'0' is not a pace"},
      {{"--seed", "-1"}, "'-1' is not a seed"},
      {{"--flood", "0"}, "'0' is not a rate"},
      {{"--crowd", "100001"}, "'100001' is not a crowd"},
      {{"--mischief", "cut,spells"}, "'cut,spells' names an unknown kind"},
      {{"7678"}, "unexpected argument '7678'"},
      {{"--sound"}, "sound"},
      {{"--port", "x", "--players", "-1", "--pace", "fast"}, "'fast' is not a pace", 3},
  };
  for (const auto& c : cases) {
    const ToolResult result = RunTool(PracticeServerProgram(), c.options, BareEnvironment());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors.count('\n'), c.lines) << result.errors.constData();
    EXPECT_THAT(result.errors.toStdString(), testing::HasSubstr(c.reason));
  }
}

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
    const auto between_two_lists = [] {
      std::this_thread::sleep_for(std::chrono::milliseconds(110));
    };
    WaitUntil(
        "the one who does not read is cut off",
        [&] {
          deaf.Send("[ctc]away\0"sv);  // changes the online list, and the next time back again
          return deaf.HasEnded();
        },
        kPatience, between_two_lists);
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
