/// A transport in front of the network that does to messages and connections what a bad network or
/// a hostile server does. The rest of the server is unaware of it. The same calls and the same seed
/// give the same bytes.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/trouble/mischief_kinds.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

struct MischiefOptions {
  MischiefKinds kinds;  ///< none: everything passes as it is
  std::uint64_t seed = 0;
};

class Mischief : public Transport {
 public:
  /// The network must outlive it.
  Mischief(ResettableTransport& network, const MischiefOptions& options);

  /// To be called before the server is told of the connection.
  void Connected(ConnectionId connection);
  void Vanished(ConnectionId connection) { lines_.erase(connection); }

  void Send(ConnectionId connection, std::string_view messages) override;
  void Close(ConnectionId connection) override;

  /// Sends what was held back a little longer. To be called about ten times a second.
  void Tick();

 private:
  enum class End : std::uint8_t { None, Close, Reset };
  struct Line {
    std::optional<MischiefKind> fate;
    std::string held;               // a message that lets the next one pass
    std::deque<std::string> later;  // one leaves at each tick; an empty one is a pause
    End end = End::None;            // when nothing is left to leave
  };

  void SendMessage(ConnectionId connection, Line& line, std::string_view message);
  void Deliver(ConnectionId connection, Line& line, std::string_view bytes);
  void DeliverCut(ConnectionId connection, Line& line, std::string_view bytes);
  /// Whether that was the last message for the connection.
  bool MeetsFate(ConnectionId connection, Line& line, std::string_view message);
  /// One of the kinds, or nothing, by the dice.
  std::optional<MischiefKind> Roll(const std::vector<MischiefKind>& kinds);

  ResettableTransport& network_;
  std::vector<MischiefKind> of_messages_;
  std::vector<MischiefKind> of_connections_;
  Dice dice_;
  std::map<ConnectionId, Line> lines_;
};

}  // namespace korvanta::practice
