/// The script that starts a practice server and the client against it.
#include <QDir>
#include <QFile>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>

#include "harness/practice_server.h"
#include "harness/program.h"

namespace korvanta::process {
namespace {

constexpr const char* kAddress = "127.0.0.1";
constexpr quint16 kPort = 7678;

bool IsServerThere() {
  QTcpSocket socket;
  socket.connectToHost(QString::fromLatin1(kAddress), kPort);
  return socket.waitForConnected();
}

/// The launcher between the real server and a client that is told to stay or not.
class PracticeLauncher : public testing::Test {
 protected:
  void SetUp() override {
    if (QFile::exists(QStringLiteral("/etc/korvanta/deployment.ini")) || IsServerThere()) {
      GTEST_SKIP() << "the game is installed on this machine, or a server is running";
    }
    QFile client(folder_.filePath(QStringLiteral("korvanta")));
    ASSERT_TRUE(client.open(QIODevice::WriteOnly));
    client.write(
        "#!/bin/bash\nexec 4<>/dev/tcp/127.0.0.1/7678 || exit 1\necho connected\n"
        "[ -z \"$STAYS\" ] || exec sleep 60\nexit 7\n");
    client.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    QFile::link(PracticeServerProgram(),
                folder_.filePath(QStringLiteral("korvanta-practice-server")));
  }

  QProcessEnvironment Environment(const QString& stays) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), folder_.path() + QDir::listSeparator() +
                                                   environment.value(QStringLiteral("PATH")));
    environment.insert(QStringLiteral("STAYS"), stays);
    return environment;
  }

  QTemporaryDir folder_;
};

TEST_F(PracticeLauncher, EndsTheServerWithTheClientAndTellsHowThatEnded) {
  Program launcher(QStringLiteral(KORVANTA_PRACTICE_LAUNCHER), {}, Environment({}));
  EXPECT_EQ(launcher.WaitForExit(), 7);
  EXPECT_TRUE(launcher.Output().contains("connected"));
  EXPECT_FALSE(IsServerThere());
}

TEST_F(PracticeLauncher, EndsBothWhenItIsEnded) {
  Program launcher(QStringLiteral(KORVANTA_PRACTICE_LAUNCHER), {},
                   Environment(QStringLiteral("yes")));
  WaitUntil("the client is connected", [&] { return launcher.Output().contains("connected"); });
  kill(static_cast<pid_t>(launcher.pid()), SIGTERM);
  EXPECT_EQ(launcher.WaitForExit(), 128 + SIGTERM);
  EXPECT_FALSE(IsServerThere());
}

}  // namespace
}  // namespace korvanta::process
