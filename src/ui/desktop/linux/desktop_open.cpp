#include "ui/desktop/desktop_open.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <unistd.h>
#include <utility>

#include "platform/web_opener.h"

namespace korvanta {
namespace {

/// Milliseconds. A process that ran for longer has found a browser, and its exit status does not
/// concern the page.
constexpr qint64 kLaunchTime = 60000;

/// The code for the exit status of `xdg-open`.
WebOpener::Code OpenCode(int exit_status) {
  switch (exit_status) {
    case 0:
      return WebOpener::Opened;
    case 2:  // no such file
      return WebOpener::FileNotFound;
    case 3:  // no program to open it with
      return WebOpener::NoAssociation;
    default:
      return WebOpener::Refused;
  }
}

/// A process that is independent of this one and survives this object and this program.
class IndependentProcess : public QProcess {
 public:
  explicit IndependentProcess(QObject* parent) : QProcess(parent) {
    setStandardInputFile(nullDevice());
    setStandardOutputFile(nullDevice());
    setStandardErrorFile(nullDevice());
    setChildProcessModifier([] { ::setsid(); });
  }
  IndependentProcess(const IndependentProcess&) = delete;
  IndependentProcess& operator=(const IndependentProcess&) = delete;
  /// The toolkit would kill a process that it considers running.
  ~IndependentProcess() override { setProcessState(NotRunning); }
};

void Start(const QString& program, const QString& address, QObject& context,
           std::function<void(int code)> done) {
  auto* const process = new IndependentProcess(&context);
  const auto end = [process, done = std::move(done)](int code) {
    process->deleteLater();
    done(code);
  };
  QElapsedTimer running;
  running.start();
  QObject::connect(process, &QProcess::finished, &context,
                   [end, running](int exit_status, QProcess::ExitStatus way) {
                     const WebOpener::Code code =
                         way == QProcess::NormalExit ? OpenCode(exit_status) : WebOpener::Refused;
                     end(running.hasExpired(kLaunchTime) ? WebOpener::Opened : code);
                   });
  QObject::connect(process, &QProcess::errorOccurred, &context,
                   [end](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) {  // and so will never finish
                       end(WebOpener::Refused);
                     }
                   });
  process->start(program, {address});
}

}  // namespace

/// Runs `xdg-open`, whose exit status gives the reason of a failure, and which may live as long as
/// the browser. The toolkit, which would ignore the status, is used where there is no `xdg-open`.
void OpenWithDesktop(const QString& address, QObject& context, std::function<void(int code)> done) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (program.isEmpty()) {
    return done(QDesktopServices::openUrl(QUrl(address)) ? WebOpener::Opened
                                                         : WebOpener::NoAssociation);
  }
  Start(program, address, context, std::move(done));
}

}  // namespace korvanta
