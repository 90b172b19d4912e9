/// The practice server's program: its signals and what it prints.
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QString>
#include <array>
#include <csignal>
#include <cstdio>
#include <string_view>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

#include "practice/network/command_line.h"
#include "practice/network/network_server.h"
#include "protocol/connection.h"

namespace korvanta::practice {
namespace {

constexpr int kUsageError = 2;

int Fail(const QString& what) {
  std::fprintf(stderr, "korvanta-practice-server: %s\n", qUtf8Printable(what));
  return kUsageError;
}

void Print(std::string_view line) {
  std::printf("%.*s\n", static_cast<int>(line.size()), line.data());
  std::fflush(stdout);
}

/// A signal writes one byte to the one end; the event loop reads it from the other.
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

int Run(const CommandLine& command) {
  if (!CatchEndSignals()) {
    return Fail(QStringLiteral("cannot catch the signals that end it"));
  }
  RaiseFileLimit();

  NetworkServer server(command.server, [&](std::string_view line) {
    if (!command.quiet) {
      Print(line);
    }
  });
  const QString address = command.address.toString();
  if (const QString why = server.Listen(command.address, command.port); !why.isEmpty()) {
    return Fail(
        QStringLiteral("cannot listen on %1:%2: %3").arg(address).arg(command.port).arg(why));
  }
  for (const QString& line : command.random_seeds) {
    Print(line.toStdString());
  }

  // The first signal lets the farewell reach the players, a second one ends the program at once.
  bool is_ending = false;
  QSocketNotifier end_signal(signal_pipe[1], QSocketNotifier::Read);
  QObject::connect(&end_signal, &QSocketNotifier::activated, &end_signal, [&] {
    char byte = 0;
    [[maybe_unused]] const auto taken = ::read(signal_pipe[1], &byte, 1);
    if (std::exchange(is_ending, true)) {
      QCoreApplication::quit();
    } else {
      server.End([] { QCoreApplication::quit(); });
    }
  });
  Print(QStringLiteral("Listening on %1:%2").arg(address).arg(server.port()).toStdString());
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace korvanta::practice

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("korvanta-practice-server"));
  QCoreApplication::setApplicationVersion(
      QString::fromLatin1(korvanta::kVersionText.data(), korvanta::kVersionText.size()));
  QStringList faults;
  const auto command = korvanta::practice::ReadCommandLine(QCoreApplication::arguments(), faults);
  int status = 0;
  for (const QString& fault : faults) {
    status = korvanta::practice::Fail(fault);
  }
  return command ? korvanta::practice::Run(*command) : status;
}
