#include "harness/program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace korvanta::harness {
namespace {

void Write(const QString& path, const QByteArray& text) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size() ||
      !file.flush()) {
    throw HarnessError(QString("%1 cannot be written: %2").arg(path, file.errorString()));
  }
}

void Copy(const QString& from, const QString& to) {
  if (!QFile::copy(from, to)) {
    throw HarnessError(QString("%1 cannot be copied; is it built?").arg(from));
  }
}

QString PrivateFolder(const QString& folder) {
  QDir().mkpath(folder);
  QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return folder;
}

}  // namespace

Installation::Installation(const QString& server_address) {
  const QDir built(KORVANTA_PROGRAM_FOLDER);
  PrivateFolder(folder_.filePath("program/sounds"));
  Copy(built.filePath("Korvanta"), program_file());
  for (const QString& sound : QDir(built.filePath("sounds")).entryList(QDir::Files)) {
    Copy(built.filePath("sounds/" + sound), folder_.filePath("program/sounds/" + sound));
  }
  Write(folder_.filePath("program/deployment.ini"),
        "[Deployment]\nServerAddress=" + server_address.toLatin1() + "\n");
}

QString Installation::program_file() const { return folder_.filePath("program/Korvanta"); }

QString Installation::settings_file() const {
  return folder_.filePath("config/Korvanta/Korvanta.ini");
}

QByteArray Installation::Settings() const {
  QFile file(settings_file());
  if (!file.open(QIODevice::ReadOnly)) {
    throw HarnessError(QString("%1 cannot be read: %2").arg(file.fileName(), file.errorString()));
  }
  return file.readAll();
}

void Installation::WriteSettings(const QByteArray& text) const { Write(settings_file(), text); }

QProcessEnvironment Installation::EnvironmentOn(const VirtualDisplay& display) const {
  QProcessEnvironment environment = display.environment();
  environment.insert("HOME", PrivateFolder(folder_.filePath("home")));
  environment.insert("XDG_CONFIG_HOME", PrivateFolder(folder_.filePath("config")));
  environment.insert("XDG_RUNTIME_DIR", PrivateFolder(folder_.filePath("runtime")));
  environment.insert("QT_QPA_PLATFORM", "xcb");
  // Neither is there to be found or started.
  environment.insert("PULSE_SERVER", "unix:" + folder_.filePath("runtime/no-sound"));
  environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder_.filePath("runtime/no-bus"));
  return environment;
}

Program::Program(const Installation& installation, const VirtualDisplay& display)
    : Program(installation.program_file(), {}, installation.EnvironmentOn(display)) {}

Program::Program(const QString& file, const QStringList& arguments,
                 const QProcessEnvironment& environment) {
  process_.setProcessEnvironment(environment);
  process_.setProcessChannelMode(QProcess::MergedChannels);
  StartChild(process_, file, arguments);
}

Program::~Program() { Kill(); }

int Program::WaitForExit() {
  WaitUntil("the program ends", [this] { return !IsRunning(); });
  if (process_.exitStatus() != QProcess::NormalExit) {
    throw HarnessError("the program crashed; it said:\n" + QString::fromUtf8(Output()));
  }
  return process_.exitCode();
}

void Program::Kill() {
  process_.kill();
  process_.waitForFinished();
}

QByteArray Program::Output() {
  output_ += process_.readAll();
  return output_;
}

}  // namespace korvanta::harness
