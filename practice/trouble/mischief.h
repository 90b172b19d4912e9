/// A transport in front of the network that does to messages and connections what a bad network or
/// a hostile server does. The rest of the server is unaware of it. The same calls and the same seed
/// give the same bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/dice.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

/// What a kind of mischief does other than to change the bytes of a message.
enum class Fate : std::uint8_t {
  None,
  // Of one message.
  Cut,
  Shuffle,
  // Of a whole connection.
  Silence,
  ResetAccept,
  ResetHandshake,
  ResetMessage,
  ResetLogin,
  ResetGame,
};

struct MischiefMessage;

struct MischiefKind {
  std::string_view name;  ///< on the command line
  std::string_view purpose;
  std::size_t one_in = 1;  ///< it comes over one message, or connection, in so many
  /// Null when no bytes change.
  void (*change)(MischiefMessage& message, Dice& dice) = nullptr;
  Fate fate = Fate::None;
};

std::span<const MischiefKind> MischiefTable();
/// Some of those in the table, in its order.
using MischiefKinds = std::set<const MischiefKind*>;

/// The bytes to send for a message that comes without its terminator.
std::string Changed(std::string_view message, const MischiefKind& kind, Dice& dice);

/// Names with commas between them, or "all"; nothing when one of them is unknown.
std::optional<MischiefKinds> ReadMischiefKinds(std::string_view names);

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
    Fate fate = Fate::None;
    std::string held;               // a message that lets the next one pass
    std::deque<std::string> later;  // one leaves at each tick; an empty one is a pause
    End end = End::None;            // when nothing is left to leave
  };

  void SendMessage(ConnectionId connection, Line& line, std::string_view message);
  void Deliver(ConnectionId connection, Line& line, std::string_view bytes);
  void DeliverCut(ConnectionId connection, Line& line, std::string_view bytes);
  /// Whether that was the last message for the connection.
  bool MeetsFate(ConnectionId connection, Line& line, std::string_view message);
  /// One of the kinds, or one that does nothing, by the dice.
  const MischiefKind& Roll(const std::vector<const MischiefKind*>& kinds);

  ResettableTransport& network_;
  std::vector<const MischiefKind*> of_messages_;
  std::vector<const MischiefKind*> of_connections_;
  Dice dice_;
  std::map<ConnectionId, Line> lines_;
};

}  // namespace korvanta::practice
