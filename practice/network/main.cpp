/// The practice server's program: how it ends and what it prints.
#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <cstdio>
#include <string_view>
#include <utility>

#include "practice/network/command_line.h"
#include "practice/network/native_process.h"
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

int Run(const CommandLine& command) {
  RaiseConnectionLimit();

  NetworkServer server(command.server, [&](std::string_view line) {
    if (!command.quiet) {
      Print(line);
    }
  });
  // The first request lets the farewell reach the players, a second one ends the program at once.
  QObject context;
  const bool can_end = OnEndRequest(context, [&, is_ending = false]() mutable {
    if (std::exchange(is_ending, true)) {
      QCoreApplication::quit();
    } else {
      server.End([] { QCoreApplication::quit(); });
    }
  });
  if (!can_end) {
    return Fail(QStringLiteral("cannot catch the signals that end it"));
  }
  const QString address = command.address.toString();
  if (const QString why = server.Listen(command.address, command.port); !why.isEmpty()) {
    return Fail(
        QStringLiteral("cannot listen on %1:%2: %3").arg(address).arg(command.port).arg(why));
  }
  for (const QString& line : command.random_seeds) {
    Print(line.toStdString());
  }
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
