/// A practice server whose network is a record: tests connect, send and let time pass, and read
/// what each connection heard.
#pragma once

#include <algorithm>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "practice/server.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {

using namespace std::chrono_literals;
using namespace std::string_literals;
using namespace testing;

class RecordingTransport : public Transport {
 public:
  void Send(ConnectionId connection, std::string_view messages) override {
    EXPECT_FALSE(closed.contains(connection)) << "words after the end: " << messages;
    sent[connection] += messages;
  }
  void Close(ConnectionId connection) override {
    EXPECT_TRUE(closed.insert(connection).second) << "closed twice";
  }

  std::map<ConnectionId, std::string> sent;
  std::set<ConnectionId> closed;
};

class PracticeServerTest : public Test {
 protected:
  /// Without simulated players, so that nothing is heard but what the test does.
  explicit PracticeServerTest(const ServerOptions& options = {.seed = 7, .players = 0})
      : server(transport, options, [this](std::string_view line) { journal.emplace_back(line); }) {}

  ConnectionId Connect() {
    server.Connected(++last_connection_);
    return last_connection_;
  }

  /// Fields of a message are written with "|" between them.
  void Send(ConnectionId connection, std::string message) {
    std::replace(message.begin(), message.end(), '|', kFieldSeparator);
    server.Received(connection, message + kMessageTerminator);
  }

  /// A player past the welcome.
  ConnectionId LogIn(const std::string& name) {
    const ConnectionId connection = Connect();
    Send(connection, "[con]1.6|" + name + "|secret");
    Heard(connection);
    return connection;
  }

  /// Messages since the last call, in order; "|" stands for the field separator and "&" for the
  /// record separator.
  std::vector<std::string> Heard(ConnectionId connection) {
    const std::string text = std::exchange(transport.sent[connection], {});
    std::vector<std::string> messages;
    for (std::string_view piece : Split(text, kMessageTerminator)) {
      messages.emplace_back(piece);
      std::replace(messages.back().begin(), messages.back().end(), kFieldSeparator, '|');
      std::replace(messages.back().begin(), messages.back().end(), kRecordSeparator, '&');
    }
    if (!messages.empty()) {
      EXPECT_EQ(messages.back(), "") << "a message without its terminator";
      messages.pop_back();
    }
    return messages;
  }

  /// What the connection hears in answer to the message.
  std::vector<std::string> Answers(ConnectionId connection, const std::string& message) {
    Heard(connection);
    Send(connection, message);
    return Heard(connection);
  }

  /// Each request is refused with such a reason, and tournament windows at most are filled again.
  void ExpectRefusals(
      std::initializer_list<std::tuple<ConnectionId, std::string, const char*>> refusals) {
    for (const auto& [player, request, reason] : refusals) {
      EXPECT_THAT(Answers(player, request),
                  AllOf(Contains(AllOf(StartsWith("[msg]adm|Server: "), HasSubstr(reason))),
                        Each(AnyOf(StartsWith("[msg]adm|"), StartsWith("[t")))))
          << request;
    }
  }

  bool IsClosed(ConnectionId connection) const { return transport.closed.contains(connection); }

  void Pass(std::chrono::milliseconds time) {
    for (const auto end = now_ + time; now_ < end;) {
      now_ = std::min(now_ + 100ms, end);
      server.Tick(now_);
    }
  }
  /// Time for an online list that waits to be sent, and nobody remembers what was said.
  void Settle() {
    Pass(1s);
    transport.sent.clear();
  }

  RecordingTransport transport;
  std::vector<std::string> journal;
  Server server;

 private:
  ConnectionId last_connection_ = 0;
  std::chrono::milliseconds now_{0};
};

}  // namespace korvanta::practice
