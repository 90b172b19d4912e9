/// The script that starts a practice server and the client against it.
#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>

#include "harness/practice_server.h"
#include "harness/program.h"
#include "harness/socket.h"

namespace korvanta::harness {
namespace {

bool IsServerThere() {
  try {
    return Socket::ConnectedTo("127.0.0.1").IsOpen();
  } catch (const HarnessError&) {
    return false;
  }
}

/// The launcher between the real server and a client that stays or ends with status 7.
class PracticeLauncher : public testing::Test {
 protected:
  void SetUp() override {
    if (QFile::exists("/etc/korvanta/deployment.ini") || IsServerThere()) {
      GTEST_SKIP() << "the game is installed on this machine, or a server is running";
    }
    QFile client(folder_.filePath("korvanta"));
    ASSERT_TRUE(client.open(QIODevice::WriteOnly));
    client.write(
        "#!/bin/bash\nexec 4<>/dev/tcp/127.0.0.1/7678 || exit 1\necho connected\n"
        "[ -z \"$STAYS\" ] || exec sleep 60\nexit 7\n");
    client.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    QFile::link(PracticeServerProgram(), folder_.filePath("korvanta-practice-server"));
  }

  QProcessEnvironment Environment(const QString& stays) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", folder_.path() + QDir::listSeparator() + environment.value("PATH"));
    environment.insert("STAYS", stays);
    return environment;
  }

  QTemporaryDir folder_;
};

TEST_F(PracticeLauncher, EndsTheServerWithTheClientAndPassesItsStatusOn) {
  Program launcher(KORVANTA_PRACTICE_LAUNCHER, {}, Environment(""));
  EXPECT_EQ(launcher.WaitForExit(), 7);
  EXPECT_TRUE(launcher.Output().contains("connected"));
  EXPECT_FALSE(IsServerThere());
}

TEST_F(PracticeLauncher, EndsBothWhenItIsEnded) {
  Program launcher(KORVANTA_PRACTICE_LAUNCHER, {}, Environment("yes"));
  WaitUntil("the client is connected", [&] { return launcher.Output().contains("connected"); });
  ::kill(static_cast<pid_t>(launcher.pid()), SIGTERM);
  EXPECT_EQ(launcher.WaitForExit(), 128 + SIGTERM);
  EXPECT_FALSE(IsServerThere());
}

}  // namespace
}  // namespace korvanta::harness
