#include "ui/desktop/desktop_web_opener.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include "ui/desktop/web_address.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr int kOpened = 33;
constexpr int kNotFound = 2;
constexpr int kNoAssociation = 31;
constexpr int kOtherFailure = 5;

/// Milliseconds. What runs for longer has found a browser, and its exit status says nothing about
/// the page.
constexpr qint64 kLongestTry = 60000;

/// The code for the exit status of `xdg-open`.
int OpenCode(int exit_status) {
  switch (exit_status) {
    case 0:
      return kOpened;
    case 2:  // no such file
      return kNotFound;
    case 3:  // no program to open it with
      return kNoAssociation;
    default:
      return kOtherFailure;
  }
}

/// A process that shares nothing with this one and goes on when this object, or this program, ends.
class IndependentProcess : public QProcess {
 public:
  explicit IndependentProcess(QObject* parent) : QProcess(parent) {
    setStandardInputFile(nullDevice());
    setStandardOutputFile(nullDevice());
    setStandardErrorFile(nullDevice());
#ifdef Q_OS_UNIX
    setChildProcessModifier([] { ::setsid(); });
#endif
  }
  IndependentProcess(const IndependentProcess&) = delete;
  IndependentProcess& operator=(const IndependentProcess&) = delete;
  /// The toolkit would end a process that it takes to be running.
  ~IndependentProcess() override { setProcessState(NotRunning); }
};

}  // namespace

void DesktopWebOpener::Open(std::string_view address, std::function<void(int code)> done) {
  const QString text = ToQString(address);
  const QUrl url(text, QUrl::StrictMode);
  if (!IsWebAddress(text)) {
    return done(text.contains(QLatin1Char(':')) ? kOtherFailure : kNotFound);
  }
  const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (program.isEmpty()) {
    return done(QDesktopServices::openUrl(url) ? kOpened : kNoAssociation);
  }
  Start(program, url.toString(QUrl::FullyEncoded), std::move(done));
}

void DesktopWebOpener::Start(const QString& program, const QString& address,
                             std::function<void(int code)> done) {
  auto* const process = new IndependentProcess(&processes_);
  const auto end = [process, done = std::move(done)](int code) {
    process->deleteLater();
    done(code);
  };
  QElapsedTimer running;
  running.start();
  QObject::connect(process, &QProcess::finished, &processes_,
                   [end, running](int exit_status, QProcess::ExitStatus way) {
                     const int code =
                         way == QProcess::NormalExit ? OpenCode(exit_status) : kOtherFailure;
                     end(running.hasExpired(kLongestTry) ? kOpened : code);
                   });
  QObject::connect(process, &QProcess::errorOccurred, &processes_,
                   [end](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) {  // and so will never finish
                       end(kOtherFailure);
                     }
                   });
  process->start(program, {address});
}

}  // namespace korvanta
