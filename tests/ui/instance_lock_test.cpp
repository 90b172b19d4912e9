#include "ui/desktop/instance_lock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace korvanta {
namespace {

/// Each test has a folder of its own for lock files.
class InstanceLockTest : public testing::Test {
 protected:
  InstanceLockTest() { qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8()); }
  ~InstanceLockTest() override { qputenv("XDG_RUNTIME_DIR", before_); }

  bool CanStart(const char* program) const {
    return InstanceLock(QString::fromLatin1(program)).TryAcquire();
  }

  QString OnlyFile() const {
    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), 1);
    return folder.filePath(files.value(0));
  }

  QTemporaryDir folder;

 private:
  QByteArray before_ = qgetenv("XDG_RUNTIME_DIR");
};

/// Another process that holds the lock until it is killed.
class Holder {
 public:
  explicit Holder(const char* program) {
    int ready[2];
    EXPECT_EQ(pipe(ready), 0);
    child_ = fork();
    if (child_ == 0) {
      InstanceLock lock(QString::fromLatin1(program));
      const char answer = lock.TryAcquire() ? 'y' : 'n';
      if (write(ready[1], &answer, 1) == 1) {
        for (;;) {
          pause();
        }
      }
      _exit(1);
    }
    char answer = 0;
    EXPECT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    close(ready[0]);
    close(ready[1]);
  }
  ~Holder() { Kill(); }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

  void Kill() {
    if (child_ > 0) {
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
      child_ = -1;
    }
  }

 private:
  pid_t child_ = -1;
};

TEST_F(InstanceLockTest, SecondCopyIsKeptOutUntilTheFirstEndsHoweverItDoes) {
  Holder first("Korvanta");
  EXPECT_FALSE(CanStart("Korvanta"));
  EXPECT_FALSE(CanStart("Korvanta")) << "asking must not take the lock away";
  EXPECT_TRUE(CanStart("Another name"));
  first.Kill();
  EXPECT_TRUE(QFile::exists(OnlyFile()));
  EXPECT_TRUE(CanStart("Korvanta"));
  EXPECT_TRUE(CanStart("Korvanta")) << "an orderly end frees it too";
}

TEST_F(InstanceLockTest, AbandonedFileWhoseProcessNumberIsInUseKeepsNobodyOut) {
  QByteArray contents;
  QString name;
  {
    InstanceLock lock(QStringLiteral("Korvanta"));
    ASSERT_TRUE(lock.TryAcquire());
    name = OnlyFile();
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    contents = file.readAll();
  }
  ASSERT_TRUE(contents.startsWith(QByteArray::number(getpid()) + '\n'));
  for (const QByteArray& left : {contents, QByteArray("1\nsystemd\nelsewhere\n"), QByteArray()}) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(left);
    file.close();
    EXPECT_TRUE(CanStart("Korvanta")) << left.constData();
  }
}

TEST_F(InstanceLockTest, WithoutAPlaceForTheFileThePlayerPlays) {
  ASSERT_TRUE(QDir(folder.path()).removeRecursively());
  QFile in_the_way(folder.path());
  ASSERT_TRUE(in_the_way.open(QIODevice::WriteOnly));
  const QByteArray before = qgetenv("TMPDIR");
  qputenv("TMPDIR", folder.path().toUtf8());
  EXPECT_TRUE(CanStart("Korvanta"));
  qputenv("TMPDIR", before);
  in_the_way.remove();
}

}  // namespace
}  // namespace korvanta

#endif
