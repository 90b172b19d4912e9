/// A transport in front of the network that does to messages and connections what a bad network or
/// a hostile server does. The rest of the server is unaware of it. The same calls and the same seed
/// give the same bytes.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/dice.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

enum class MischiefKind : std::uint8_t {
  // What becomes of one message.
  Cut,
  Drop,
  Numbers,
  Tags,
  Bytes,
  Giant,
  Markup,
  Unended,
  Twice,
  Shuffle,
  // What becomes of a whole connection.
  Silence,
  ResetAccept,
  ResetHandshake,
  ResetMessage,
  ResetLogin,
  ResetGame,
};

inline constexpr std::size_t kMischiefKinds = 16;

constexpr bool IsOfConnections(MischiefKind kind) { return kind >= MischiefKind::Silence; }

/// By MischiefKind.
using MischiefKinds = std::bitset<kMischiefKinds>;

struct MischiefMessage;

struct MischiefEntry {
  MischiefKind kind;
  std::string_view name;  ///< on the command line
  std::string_view purpose;
  std::size_t one_in;  ///< it comes over one message, or connection, in so many
  /// Null when it is not the message's bytes that change.
  void (*change)(MischiefMessage& message, Dice& dice) = nullptr;
};

/// By MischiefKind.
std::span<const MischiefEntry, kMischiefKinds> MischiefTable();

/// The bytes to send for a message that comes without its terminator.
std::string Changed(std::string_view message, MischiefKind kind, Dice& dice);

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
