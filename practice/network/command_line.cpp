#include "practice/network/command_line.h"

#include <QCommandLineParser>
#include <QString>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace korvanta::practice {
namespace {

QString Latin1(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

struct Option {
  const char* name;
  const char* value;  ///< name of its value; null when it has none
  const char* purpose;
  /// Takes the value over; false when it makes no sense.
  bool (*take)(const QString& value, CommandLine& into);
  const char* fault = "";  ///< said of a value that makes no sense, which stands at %1
};

bool TakeWithin(double lowest, double highest, const QString& text, double& into) {
  bool is_number = false;
  const double number = text.toDouble(&is_number);
  if (!is_number || !(number >= lowest && number <= highest)) {
    return false;
  }
  into = number;
  return true;
}

bool TakeWithin(int lowest, int highest, const QString& text, int& into) {
  bool is_number = false;
  const int number = text.toInt(&is_number);
  if (!is_number || number < lowest || number > highest) {
    return false;
  }
  into = number;
  return true;
}

bool TakeSeed(const QString& text, std::uint64_t& into) {
  bool is_number = false;
  into = text.toULongLong(&is_number);
  return is_number;
}

constexpr Option kOptions[] = {
    {"address", "address", "Listen on this IP address; the default is 127.0.0.1.",
     [](const QString& value, CommandLine& into) { return into.address.setAddress(value); },
     "'%1' is not an IP address"},
    {"allow-remote", nullptr,
     "Allow an address that other machines can reach. Passwords are sent and kept unprotected.",
     [](const QString&, CommandLine& into) { return into.allow_remote = true; }},
    {"port", "port", "Listen on this TCP port; the default is 7678, and 0 picks a free one.",
     [](const QString& value, CommandLine& into) {
       int port = 0;
       const bool is_port = TakeWithin(0, 65535, value, port);
       into.port = static_cast<quint16>(port);
       return is_port;
     },
     "'%1' is not a port; ports are 0 to 65535"},
    {"players", "number", "Simulate this many players; the default is 6.",
     [](const QString& value, CommandLine& into) {
       return TakeWithin(0, 50000, value, into.server.rules.players);
     },
     "'%1' is not a number of players; 0 to 50000 can be simulated"},
    {"pace", "factor", "Run the game's clock this many times faster than usual.",
     [](const QString& value, CommandLine& into) {
       return TakeWithin(0.1, 1000.0, value, into.server.rules.pace);
     },
     "'%1' is not a pace; paces are 0.1 to 1000"},
    {"seed", "number",
     "Seed the dice with this whole number: the same seed plays the same evening.",
     [](const QString& value, CommandLine& into) {
       return TakeSeed(value, into.server.rules.seed);
     },
     "'%1' is not a seed; seeds are whole numbers from 0"},
    {"flood", "rate",
     "Send everyone this many lines of chat a second; 'max' sends as much as each connection "
     "takes.",
     [](const QString& value, CommandLine& into) {
       LoadOptions& load = into.server.load;
       load.is_unbounded = value == QStringLiteral("max");
       return load.is_unbounded || TakeWithin(1, 100000, value, load.lines_per_second);
     },
     "'%1' is not a rate; a flood is 1 to 100000 lines a second, or 'max'"},
    {"crowd", "number", "Put this many invented players into each online list.",
     [](const QString& value, CommandLine& into) {
       return TakeWithin(0, 100000, value, into.server.load.crowd);
     },
     "'%1' is not a crowd; 0 to 100000 players can be invented"},
    {"mischief", "kinds",
     "Behave badly: a comma-separated list of kinds of mischief, 'all' for any of them by chance, "
     "or "
     "'help' for the list.",
     [](const QString& value, CommandLine& into) {
       const auto kinds = ReadMischiefKinds(value.toStdString());
       into.server.mischief.kinds = kinds.value_or(MischiefKinds());
       return kinds.has_value();
     },
     "'%1' names an unknown kind of mischief; --mischief help lists them"},
    {"mischief-seed", "number", "Seed the dice of the mischief with this whole number.",
     [](const QString& value, CommandLine& into) {
       return TakeSeed(value, into.server.mischief.seed);
     },
     "'%1' is not a seed; seeds are whole numbers from 0"},
    {"quiet", nullptr, "Do not print logins and logouts.",
     [](const QString&, CommandLine& into) { return into.quiet = true; }},
};

/// Of 32 bits, which are quickly typed again.
std::uint64_t RandomSeed() { return std::random_device{}(); }

QString MischiefHelp() {
  QString help = QStringLiteral("Kinds of mischief:\n");
  for (const MischiefEntry& entry : MischiefTable()) {
    help += QStringLiteral("  %1%2\n").arg(Latin1(entry.name), -17).arg(Latin1(entry.purpose));
  }
  return help;
}

[[noreturn]] void ShowAndEnd(const QString& text) {
  std::fputs(qUtf8Printable(text), stdout);
  std::exit(0);
}

void CheckAddress(const CommandLine& read, QStringList& faults) {
  if (!read.address.isInSubnet(QHostAddress(QStringLiteral("127.0.0.0")), 8) &&
      !read.allow_remote) {
    faults += QStringLiteral("%1 is outside 127.0.0.0/8; add --allow-remote if you mean it")
                  .arg(read.address.toString());
  }
}

}  // namespace

std::optional<CommandLine> ReadCommandLine(const QStringList& arguments, QStringList& faults) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("A server to try Korvanta with, alone or with others."));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Show this help and end."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Show the version and end."));
  parser.addOptions({help, version});
  for (const Option& option : kOptions) {
    parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.purpose),
                      QString::fromLatin1(option.value)});
  }

  if (!parser.parse(arguments)) {
    faults += parser.errorText();
    return std::nullopt;
  }
  if (parser.isSet(help)) {
    ShowAndEnd(parser.helpText() + QLatin1Char('\n') + MischiefHelp());
  }
  if (parser.isSet(version)) {
    parser.showVersion();
  }
  const QString mischief = QStringLiteral("mischief");
  if (parser.value(mischief) == QStringLiteral("help")) {
    ShowAndEnd(MischiefHelp());
  }
  for (const QString& argument : parser.positionalArguments()) {
    faults += QStringLiteral("unexpected argument '%1'").arg(argument);
  }

  CommandLine read;
  read.address = QHostAddress(QHostAddress::LocalHost);
  for (const Option& option : kOptions) {
    const QString name = QString::fromLatin1(option.name);
    if (parser.isSet(name) && !option.take(parser.value(name), read)) {
      faults += QString::fromLatin1(option.fault).arg(parser.value(name));
    }
  }
  if (!read.address.isNull()) {
    CheckAddress(read, faults);
  }
  if (!parser.isSet(QStringLiteral("seed"))) {
    read.server.rules.seed = RandomSeed();
    read.random_seeds += QStringLiteral("Seed %1").arg(read.server.rules.seed);
  }
  read.server.load.seed = read.server.rules.seed;
  if (parser.isSet(mischief) && !parser.isSet(QStringLiteral("mischief-seed"))) {
    read.server.mischief.seed = RandomSeed();
    read.random_seeds += QStringLiteral("Mischief seed %1").arg(read.server.mischief.seed);
  }
  return faults.isEmpty() ? std::optional(std::move(read)) : std::nullopt;
}

}  // namespace korvanta::practice
