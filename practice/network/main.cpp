/// The practice server's program: its command line, how it ends and what it prints.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "practice/network/native.h"
#include "practice/network/network_server.h"
#include "protocol/connection.h"
#include "protocol/wire_format.h"
#include "system/end_requests.h"

namespace korvanta::practice {
namespace {

using namespace Qt::StringLiterals;

struct CommandLine {
  QHostAddress address{QHostAddress::LocalHost};
  quint16 port = kServerPort;
  bool allow_remote = false;
  bool quiet = false;
  ServerOptions rules;
  LoadOptions load;
  MischiefOptions mischief;
};

constexpr int kUsageError = 2;

int Fail(const QString& what) {
  std::fprintf(stderr, "korvanta-practice-server: %s\n", qUtf8Printable(what));
  return kUsageError;
}

/// Takes the value of an option over; false when it makes no sense.
using Take = std::function<bool(const QString& value)>;

struct Option {
  const char* name;
  const char* value;  ///< name of its value; null when it has none
  const char* purpose;
  const char* fault;  ///< said of a value that makes no sense, which stands at %1
  Take take;
};

/// NaN is within nothing.
template <typename Number>
Take Within(std::type_identity_t<Number> lowest, std::type_identity_t<Number> highest,
            Number& into) {
  return [=, &into](const QString& value) {
    const std::string text = value.toStdString();
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), into);
    const bool is_number = error == std::errc() && end == text.data() + text.size();
    return is_number && into >= lowest && into <= highest;
  };
}

Take Seed(std::uint64_t& into) { return Within(0, UINT64_MAX, into); }

Take Switch(bool& into) {
  return [&into](const QString& /*text*/) { return into = true; };
}

std::vector<Option> OptionsInto(CommandLine& read) {
  return {
      {"address", "address", "Listen on this IP address; the default is 127.0.0.1.",
       "'%1' is not an IP address",
       [&](const QString& value) { return read.address.setAddress(value); }},
      {"allow-remote", nullptr,
       "Allow an address that other machines can reach. Passwords are sent and kept unprotected.",
       "", Switch(read.allow_remote)},
      {"port", "port", "Listen on this TCP port; the default is 7678, and 0 picks a free one.",
       "'%1' is not a port; ports are 0 to 65535", Within(0, 65535, read.port)},
      {"players", "number", "Simulate this many players; the default is 6.",
       "'%1' is not a number of players; 0 to 50000 can be simulated",
       Within(0, 50000, read.rules.players)},
      {"pace", "factor", "Run the game's clock this many times faster than usual.",
       "'%1' is not a pace; paces are 0.1 to 1000", Within(0.1, 1000, read.rules.pace)},
      {"seed", "number",
       "Seed the dice with this whole number: the same seed plays the same evening.",
       "'%1' is not a seed; seeds are whole numbers from 0", Seed(read.rules.seed)},
      {"flood", "rate",
       "Send everyone this many lines of chat a second; 'max' sends as much as each connection "
       "takes.",
       "'%1' is not a rate; a flood is 1 to 100000 lines a second, or 'max'",
       [&](const QString& value) {
         read.load.is_unbounded = value == u"max"_s;
         return read.load.is_unbounded || Within(1, 100000, read.load.lines_per_second)(value);
       }},
      {"crowd", "number", "Put this many invented players into each online list.",
       "'%1' is not a crowd; 0 to 100000 players can be invented",
       Within(0, 100000, read.load.crowd)},
      {"mischief", "kinds",
       "Behave badly: a comma-separated list of kinds of mischief, 'all' for any of them by "
       "chance, or 'help' for the list.",
       "'%1' names an unknown kind of mischief; --mischief help lists them",
       [&](const QString& value) {
         const auto kinds = ReadMischiefKinds(value.toStdString());
         read.mischief.kinds = kinds.value_or(MischiefKinds());
         return kinds.has_value();
       }},
      {"mischief-seed", "number", "Seed the dice of the mischief with this whole number.",
       "'%1' is not a seed; seeds are whole numbers from 0", Seed(read.mischief.seed)},
      {"quiet", nullptr, "Do not print logins and logouts.", "", Switch(read.quiet)},
  };
}

void Print(const QString& line) {
  std::puts(qUtf8Printable(line));
  std::fflush(stdout);
}

/// Chooses and prints one, so that the run can be repeated.
std::uint64_t RandomSeed(const QString& line) {
  const std::uint64_t seed = std::random_device{}();  // of 32 bits, to be quick to type
  Print(line.arg(seed));
  return seed;
}

QString MischiefHelp() {
  QString help = u"Kinds of mischief:\n"_s;
  for (const MischiefKind& kind : MischiefTable()) {
    help +=
        u"  %1%2\n"_s.arg(QLatin1StringView(kind.name), -17).arg(QLatin1StringView(kind.purpose));
  }
  return help;
}

[[noreturn]] void ShowAndEnd(const QString& text) {
  std::fputs(qUtf8Printable(text), stdout);
  std::exit(0);
}

/// What the command line of the application asks for; nothing, and a line for each of its faults,
/// when it has any. Shows help or version and ends the program when that is asked for.
std::optional<CommandLine> ReadCommandLine(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(u"A server to try Korvanta with, alone or with others."_s);
  const QCommandLineOption help({u"h"_s, u"help"_s}, u"Show this help and end."_s);
  const QCommandLineOption version({u"v"_s, u"version"_s}, u"Show the version and end."_s);
  parser.addOptions({help, version});
  CommandLine read;
  const std::vector<Option> options = OptionsInto(read);
  for (const Option& option : options) {
    parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.purpose),
                      QString::fromLatin1(option.value)});
  }

  if (!parser.parse(arguments)) {
    Fail(parser.errorText());
    return std::nullopt;
  }
  if (parser.isSet(help)) {
    ShowAndEnd(parser.helpText() + u'\n' + MischiefHelp());
  }
  if (parser.isSet(version)) {
    parser.showVersion();
  }
  const QString mischief = u"mischief"_s;
  if (parser.value(mischief) == u"help"_s) {
    ShowAndEnd(MischiefHelp());
  }
  QStringList faults;
  for (const QString& argument : parser.positionalArguments()) {
    faults += u"unexpected argument '%1'"_s.arg(argument);
  }

  for (const Option& option : options) {
    const QString name = QString::fromLatin1(option.name);
    if (parser.isSet(name) && !option.take(parser.value(name))) {
      faults += QString::fromLatin1(option.fault).arg(parser.value(name));
    }
  }
  if (!read.allow_remote && !read.address.isNull() &&
      !read.address.isInSubnet(QHostAddress(u"127.0.0.0"_s), 8)) {
    faults += u"%1 is outside 127.0.0.0/8; add --allow-remote if you mean it"_s.arg(
        read.address.toString());
  }
  std::for_each(faults.begin(), faults.end(), Fail);
  if (!faults.isEmpty()) {
    return std::nullopt;
  }
  if (!parser.isSet(u"seed"_s)) {
    read.rules.seed = RandomSeed(u"Seed %1"_s);
  }
  if (parser.isSet(mischief) && !parser.isSet(u"mischief-seed"_s)) {
    read.mischief.seed = RandomSeed(u"Mischief seed %1"_s);
  }
  return read;
}

int Run(const CommandLine& command) {
  RaiseConnectionLimit();
  NetworkServer server(command.rules, command.load, command.mischief, [&](std::string_view line) {
    if (!command.quiet) {
      Print(QString::fromUtf8(line));
    }
  });
  QObject context;
  OnEndRequest(context, [&] { server.End(QCoreApplication::quit); });
  const QString address = command.address.toString();
  if (const QString why = server.Listen(command.address, command.port); !why.isEmpty()) {
    return Fail(u"cannot listen on %1:%2: %3"_s.arg(address).arg(command.port).arg(why));
  }
  Print(u"Listening on %1:%2"_s.arg(address).arg(server.port()));
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace korvanta::practice

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("korvanta-practice-server"));
  QCoreApplication::setApplicationVersion(QLatin1StringView(korvanta::kVersionText));
  const auto command = korvanta::practice::ReadCommandLine(QCoreApplication::arguments());
  return command ? korvanta::practice::Run(*command) : korvanta::practice::kUsageError;
}
