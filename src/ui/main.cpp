/// The program: creates the Qt implementation of the platform, one client on top of it, and its
/// windows.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QLoggingCategory>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

#include "client/client.h"
#include "system/end_requests.h"
#include "ui/desktop/deployment_file.h"
#include "ui/desktop/desktop_web_opener.h"
#include "ui/desktop/ini_settings_store.h"
#include "ui/desktop/instance_lock.h"
#include "ui/desktop/qt_client_socket.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/desktop/qt_timers.h"
#include "ui/desktop/sound_player.h"
#include "ui/kit/picture.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"
#include "ui/windows/frmMain.h"
#include "ui/windows/frmSplash.h"

namespace {

using namespace korvanta;

static_assert(kVersionText == KORVANTA_VERSION,
              "the version shown and sent must be the one packaged");

/// Runs a function once, right after a widget's first paint.
class AfterFirstPaint : public QObject {
 public:
  AfterFirstPaint(QWidget& widget, std::function<void()> run)
      : QObject(&widget), run_(std::move(run)) {
    widget.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QTimer::singleShot(0, this, run_);
    }
    return false;
  }

 private:
  std::function<void()> run_;
};

/// Rendered in the sizes that window managers use: given the SVG file, the toolkit would load all
/// its image plug-ins before the first window is shown.
QIcon ProgramIcon() {
  QIcon icon;
  for (const int side : {16, 32, 64, 128}) {
    icon.addPixmap(RenderPicture(QStringLiteral("korvanta"), {side, side}, 1));
  }
  return icon;
}

int RunClient(const QString& folder, const QString& program_name,
              const DeploymentValues& deployment, QtMessageBox& message_box) {
  QtClientSocket socket;
  QtTimerFactory timers;
  IniSettingsStore settings(IniSettingsStore::FileFor(program_name));
  const auto sounds = MakeSoundPlayer(folder);
  DesktopWebOpener web;
  InstanceLock instance(program_name);
  Client client({socket, timers, settings, *sounds, web, message_box, instance}, deployment);

  std::unique_ptr<frmSplash> splash;
  std::unique_ptr<frmMain> main_window;
  const auto load_main_window = [&] {
    if (!main_window) {
      main_window = std::make_unique<frmMain>(client);
    }
  };
  client.splash.window().on_show = [&] {
    splash = std::make_unique<frmSplash>(client.splash);
    new AfterFirstPaint(*splash, load_main_window);
    splash->show();
  };
  client.splash.window().on_unload = [&] {
    load_main_window();  // a splash on a hidden workspace is never painted
    splash->hide();
    splash.release()->deleteLater();  // it may be handling an event of its own
  };
  if (!client.StartUp()) {
    return 0;
  }
  QObject context;
  OnEndRequest(context, [&] {
    if (main_window && main_window->isVisible()) {
      main_window->close();
    } else {
      QApplication::quit();
    }
  });
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  // Where there is no sound server, session bus or runtime folder, the toolkit prints warnings that
  // are of no use to a player. Those about the display are.
  QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false\nqt.qpa.*.warning=true"));
  QApplication application(argc, argv);
  QApplication::setApplicationName(ToQString(kApplicationTitle));
  QApplication::setApplicationVersion(ToQString(kVersionText));
  QApplication::setDesktopFileName(QStringLiteral("korvanta"));
  QApplication::setWindowIcon(ProgramIcon());
  QApplication::setQuitOnLastWindowClosed(false);
  theme::Apply(application);

  const QString folder = QApplication::applicationDirPath();
  const QFileInfo program(QApplication::applicationFilePath());
  QtMessageBox message_box;
  const DeploymentResult deployment =
      ReadDeploymentFile(QDir(folder).filePath(QStringLiteral("deployment.ini")));
  if (!deployment.error.empty()) {
    message_box.Show(deployment.error, kApplicationTitle, MessageIcon::Critical);
    return 1;
  }
  return RunClient(folder, program.completeBaseName(), deployment.values, message_box);
}
