#include "ui/desktop/instance_lock.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace korvanta {
namespace {

bool CanStart(const char* program = "Korvanta") {
  return !InstanceLock(QString::fromLatin1(program)).IsAnotherRunning();
}

TEST(InstanceLock, ASecondCopyIsKeptOutWhileTheFirstRunsAndNobodyElse) {
  const QTemporaryDir folder;
  const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
  const QByteArray temporary = qgetenv("TMPDIR");
  qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
  {
    InstanceLock first(QStringLiteral("Korvanta"));
    EXPECT_FALSE(first.IsAnotherRunning());
    EXPECT_FALSE(CanStart() || CanStart()) << "asking must not take the lock away";
    EXPECT_TRUE(CanStart("Another name"));
  }
  EXPECT_TRUE(CanStart());

  QFile abandoned(folder.filePath(QStringLiteral("Korvanta-Korvanta.lock")));
  const QByteArray ours = QByteArray::number(QCoreApplication::applicationPid());
  for (const QByteArray& left :
       {ours + "\n\n\n", QByteArray("1\nsystemd\nelsewhere\n"), QByteArray()}) {
    ASSERT_TRUE(abandoned.open(QIODevice::WriteOnly));
    abandoned.write(left);
    abandoned.close();
    EXPECT_TRUE(CanStart()) << "left by a process whose number is in use: " << left.constData();
  }

  qputenv("XDG_RUNTIME_DIR", "/proc/nowhere");
  qputenv("TMPDIR", "/proc/nowhere");
  EXPECT_TRUE(CanStart()) << "without a place for the file the player plays";
  qputenv("XDG_RUNTIME_DIR", runtime);
  temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary);
}

}  // namespace
}  // namespace korvanta
