/// The command line of the practice server's program; read once by main.cpp.
#pragma once

#include <QHostAddress>
#include <QStringList>
#include <optional>

#include "practice/network/network_server.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {

struct CommandLine {
  QHostAddress address;
  quint16 port = kServerPort;
  bool allow_remote = false;
  bool quiet = false;
  NetworkServer::Options server;
  /// Lines that name the seeds that nobody chose, so that a run can be repeated.
  QStringList random_seeds;
};

/// What the command line of the application asks for, or nothing and one line for each of its
/// faults. Shows help or version and ends the program when that is asked for.
std::optional<CommandLine> ReadCommandLine(const QStringList& arguments, QStringList& faults);

}  // namespace korvanta::practice
