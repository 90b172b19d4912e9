#include "ui/desktop/instance_lock.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace korvanta {
namespace {

/// Each test has a folder of its own for lock files.
class InstanceLockTest : public testing::Test {
 protected:
  InstanceLockTest() { qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8()); }
  ~InstanceLockTest() override { qputenv("XDG_RUNTIME_DIR", before_); }

  static bool CanStart(const char* program = "Korvanta") {
    return InstanceLock(QString::fromLatin1(program)).TryAcquire();
  }

  QTemporaryDir folder;

 private:
  QByteArray before_ = qgetenv("XDG_RUNTIME_DIR");
};

TEST_F(InstanceLockTest, SecondCopyIsKeptOutUntilTheFirstEnds) {
  {
    InstanceLock first(QStringLiteral("Korvanta"));
    EXPECT_TRUE(first.TryAcquire());
    EXPECT_FALSE(CanStart());
    EXPECT_FALSE(CanStart()) << "asking must not take the lock away";
    EXPECT_TRUE(CanStart("Another name"));
  }
  EXPECT_TRUE(CanStart());
}

TEST_F(InstanceLockTest, AbandonedFileWhoseProcessNumberIsInUseKeepsNobodyOut) {
  QFile file(folder.filePath(QStringLiteral("Korvanta-Korvanta.lock")));
  const QByteArray ours = QByteArray::number(QCoreApplication::applicationPid());
  for (const QByteArray& left :
       {ours + "\n\n\n", QByteArray("1\nsystemd\nelsewhere\n"), QByteArray()}) {
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(left);
    file.close();
    EXPECT_TRUE(CanStart()) << left.constData();
  }
}

TEST_F(InstanceLockTest, WithoutAPlaceForTheFileThePlayerPlays) {
  const QByteArray before = qgetenv("TMPDIR");
  const QByteArray nowhere = folder.filePath(QStringLiteral("in the way")).toUtf8();
  QFile in_the_way(QString::fromUtf8(nowhere));
  ASSERT_TRUE(in_the_way.open(QIODevice::WriteOnly));
  qputenv("XDG_RUNTIME_DIR", nowhere);
  qputenv("TMPDIR", nowhere);
  EXPECT_TRUE(CanStart());
  before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

}  // namespace
}  // namespace korvanta
