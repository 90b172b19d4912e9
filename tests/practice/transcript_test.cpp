/// A conversation with the server, word for word: transcript.txt holds what players send and, below
/// each request, what everyone hears.
#include <fstream>

#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

constexpr std::string_view kHeard = "    ";

/// A line is a comment behind "#", seconds that pass ("wait 15", or "skip 60" to leave out what is
/// heard meanwhile), or a player and a message. A player's first message connects. Where a change
/// of the conversation is meant, the copy that this test leaves behind becomes the transcript.
TEST_F(PracticeServerTest, SaysWhatTheTranscriptSays) {
  std::ifstream file(KORVANTA_SOURCE_FOLDER "/tests/practice/transcript.txt");
  std::map<std::string, ConnectionId> connections;
  std::string expected, said;
  for (std::string line; std::getline(file, line);) {
    expected += line + '\n';
    if (line.starts_with(kHeard)) {
      continue;
    }
    said += line + '\n';
    const std::size_t space = std::min(line.find(' '), line.size());
    const std::string who = line.substr(0, space);
    if (who.empty() || who == "#") {
      continue;
    }
    if (who == "wait" || who == "skip") {
      Pass(std::chrono::seconds(std::stoi(line.substr(space))));
    } else {
      ConnectionId& connection = connections[who];
      connection = connection == kNoConnection ? Connect() : connection;
      Send(connection, line.substr(space + 1));
    }
    for (const auto& [name, connection] : connections) {
      for (const std::string& message : Heard(connection)) {
        if (who != "skip") {
          said.append(kHeard).append(name).append(" < ").append(message).append("\n");
        }
      }
    }
  }
  const std::string copy = TempDir() + "transcript.txt";
  if (said != expected) {
    std::ofstream(copy) << said;
  }
  EXPECT_EQ(said, expected) << "what was said is in " << copy;
  EXPECT_THAT(said, HasSubstr("Anna < [con]Anna|90"));
}

}  // namespace
}  // namespace korvanta::practice
