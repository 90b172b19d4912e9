/// The practice server's program: its command line, its signals and what it prints.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHostAddress>
#include <QSocketNotifier>
#include <QString>
#include <array>
#include <csignal>
#include <cstdio>
#include <optional>
#include <random>
#include <string_view>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include "practice/network_server.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

constexpr int kUsageError = 2;

struct Settings {
  QHostAddress address;
  quint16 port = kServerPort;
  std::uint64_t seed = 0;
  bool quiet = false;
};

int Fail(const QString& what) {
  std::fprintf(stderr, "korvanta-practice-server: %s\n", qUtf8Printable(what));
  return kUsageError;
}

void Print(std::string_view line) {
  std::printf("%.*s\n", static_cast<int>(line.size()), line.data());
  std::fflush(stdout);
}

/// What the command line asks for; the error is empty when it makes sense.
Settings ReadCommandLine(const QCoreApplication& application, QString& error) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("A server to try Korvanta with, alone or with others."));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Show this help and end."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Show the version and end."));
  const QCommandLineOption address(QStringLiteral("address"),
                                   QStringLiteral("Listen on this IP address."),
                                   QStringLiteral("address"), QStringLiteral("127.0.0.1"));
  const QCommandLineOption allow_remote(
      QStringLiteral("allow-remote"),
      QStringLiteral("Allow an address that other machines can reach. Passwords travel and stay "
                     "unprotected."));
  const QCommandLineOption port(QStringLiteral("port"),
                                QStringLiteral("Listen on this TCP port; 0 takes a free one."),
                                QStringLiteral("port"), QString::number(kServerPort));
  const QCommandLineOption seed(
      QStringLiteral("seed"),
      QStringLiteral("Throw the dice by this whole number, the same each time."),
      QStringLiteral("number"));
  const QCommandLineOption quiet(QStringLiteral("quiet"),
                                 QStringLiteral("Do not print logins and logouts."));
  parser.addOptions({help, version, address, allow_remote, port, seed, quiet});

  Settings settings;
  if (!parser.parse(application.arguments())) {
    error = parser.errorText();
    return settings;
  }
  if (parser.isSet(help)) {
    parser.showHelp(0);
  }
  if (parser.isSet(version)) {
    parser.showVersion();
  }
  if (!parser.positionalArguments().isEmpty()) {
    error = QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first());
    return settings;
  }
  const QHostAddress loopback(QStringLiteral("127.0.0.0"));
  if (!settings.address.setAddress(parser.value(address))) {
    error = QStringLiteral("'%1' is no IP address").arg(parser.value(address));
  } else if (!settings.address.isInSubnet(loopback, 8) && !parser.isSet(allow_remote)) {
    error = QStringLiteral("%1 is outside 127.0.0.0/8; add --allow-remote if you mean it")
                .arg(parser.value(address));
  }
  bool is_number = false;
  settings.port = parser.value(port).toUShort(&is_number);
  if (!is_number) {
    error = QStringLiteral("'%1' is no port; ports are 0 to 65535").arg(parser.value(port));
  }
  if (parser.isSet(seed)) {
    settings.seed = parser.value(seed).toULongLong(&is_number);
    if (!is_number) {
      error =
          QStringLiteral("'%1' is no seed; seeds are whole numbers from 0").arg(parser.value(seed));
    }
  } else {
    settings.seed = std::random_device{}();
  }
  settings.quiet = parser.isSet(quiet);
  return settings;
}

/// A signal writes one byte here; the event loop hears it at the other end.
std::array<int, 2> signal_pipe;

extern "C" void OnEndSignal(int /*signal*/) {
  const char byte = 0;
  [[maybe_unused]] const auto written = ::write(signal_pipe[0], &byte, 1);
}

bool CatchEndSignals() {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signal_pipe.data()) !=
      0) {
    return false;
  }
  struct sigaction action = {};
  action.sa_handler = OnEndSignal;
  action.sa_flags = SA_RESTART;
  return ::sigaction(SIGTERM, &action, nullptr) == 0 && ::sigaction(SIGINT, &action, nullptr) == 0;
}

/// Each connection takes a file; the usual limit is too low for thousands.
void RaiseFileLimit() {
  rlimit limit = {};
  if (::getrlimit(RLIMIT_NOFILE, &limit) == 0) {
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
  }
}

int Run(const Settings& settings) {
  if (!CatchEndSignals()) {
    return Fail(QStringLiteral("cannot catch the signals that end it"));
  }
  QSocketNotifier end_signal(signal_pipe[1], QSocketNotifier::Read);
  QObject::connect(&end_signal, &QSocketNotifier::activated, &end_signal,
                   [] { QCoreApplication::quit(); });
  RaiseFileLimit();

  NetworkServer server(settings.seed, [&](std::string_view line) {
    if (!settings.quiet) {
      Print(line);
    }
  });
  const QString address = settings.address.toString();
  if (const QString why = server.Listen(settings.address, settings.port); !why.isEmpty()) {
    return Fail(
        QStringLiteral("cannot listen on %1:%2: %3").arg(address).arg(settings.port).arg(why));
  }
  Print(QStringLiteral("Listening on %1:%2").arg(address).arg(server.port()).toStdString());
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace korvanta::practice

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("korvanta-practice-server"));
  QCoreApplication::setApplicationVersion(QStringLiteral("1.6"));
  QString error;
  const auto settings = korvanta::practice::ReadCommandLine(application, error);
  return error.isEmpty() ? korvanta::practice::Run(settings) : korvanta::practice::Fail(error);
}
