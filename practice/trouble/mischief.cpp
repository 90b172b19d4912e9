#include "practice/trouble/mischief.h"

#include <utility>

#include "protocol/message_table.h"

namespace korvanta::practice {
namespace {

/// Pieces that may wait for one connection; while they are so many, nothing more is cut.
constexpr std::size_t kMostPieces = 30;
/// Ticks from one piece to the next; some clients wait a while for the rest of a message.
constexpr std::size_t kLongestPause = 5;

}  // namespace

Mischief::Mischief(ResettableTransport& network, const MischiefOptions& options)
    : network_(network), dice_(options.seed) {
  for (const MischiefKind* kind : options.kinds) {
    (kind->fate >= Fate::Silence ? of_connections_ : of_messages_).push_back(kind);
  }
}

void Mischief::Connected(ConnectionId connection) {
  if (of_messages_.empty() && of_connections_.empty()) {
    return;
  }
  Line& line = lines_[connection];
  line.fate = Roll(of_connections_).fate;
  if (line.fate == Fate::ResetAccept) {
    line.end = End::Reset;
    network_.Reset(connection);
  }
}

void Mischief::Send(ConnectionId connection, std::string_view messages) {
  const auto found = lines_.find(connection);
  if (found == lines_.end()) {
    network_.Send(connection, messages);
    return;
  }
  messages.remove_suffix(1);
  for (std::string_view message : Split(messages, kMessageTerminator)) {
    SendMessage(connection, found->second, message);
  }
}

void Mischief::Close(ConnectionId connection) {
  const auto found = lines_.find(connection);
  if (found == lines_.end()) {
    network_.Close(connection);
  } else if (found->second.end == End::None) {
    found->second.end = End::Close;
  }
}

void Mischief::Tick() {
  for (auto next = lines_.begin(); next != lines_.end();) {
    const ConnectionId connection = next->first;
    Line& line = (next++)->second;
    if (!line.later.empty()) {
      if (!line.later.front().empty()) {
        network_.Send(connection, line.later.front());
      }
      line.later.pop_front();
    } else if (line.end == End::Reset) {
      network_.Reset(connection);
      continue;
    }
    Deliver(connection, line, std::exchange(line.held, {}));
    if (line.end == End::Close && line.later.empty()) {
      lines_.erase(connection);
      network_.Close(connection);
    }
  }
}

void Mischief::SendMessage(ConnectionId connection, Line& line, std::string_view message) {
  if (line.end != End::None || (line.fate != Fate::None && MeetsFate(connection, line, message))) {
    return;
  }
  const std::string passed_by = std::exchange(line.held, {});
  const MischiefKind& kind = Roll(of_messages_);
  const std::string bytes = Changed(message, kind, dice_);
  if (kind.fate == Fate::Cut) {
    DeliverCut(connection, line, bytes);
  } else if (kind.fate == Fate::Shuffle && passed_by.empty()) {
    line.held = bytes;
  } else {
    Deliver(connection, line, bytes);
  }
  Deliver(connection, line, passed_by);
}

bool Mischief::MeetsFate(ConnectionId connection, Line& line, std::string_view message) {
  std::string last = std::string(message) + kMessageTerminator;
  switch (line.fate) {
    case Fate::Silence:
      return true;
    case Fate::ResetHandshake:
      last.clear();
      break;
    case Fate::ResetMessage:
      if (!dice_.OneIn(4)) {
        return false;
      }
      last.resize(1 + dice_.Below(message.size()));
      break;
    default:  // each sound is one of a game
      if (!message.starts_with(TagOf(line.fate == Fate::ResetLogin ? ServerMessage::LoginAccepted
                                                                   : ServerMessage::Sound))) {
        return false;
      }
  }
  Deliver(connection, line, last);
  line.end = End::Reset;  // at a tick, so that these words arrive before it
  return true;
}

void Mischief::Deliver(ConnectionId connection, Line& line, std::string_view bytes) {
  if (!line.later.empty()) {
    line.later.back() += bytes;
  } else if (!bytes.empty()) {
    network_.Send(connection, bytes);
  }
}

void Mischief::DeliverCut(ConnectionId connection, Line& line, std::string_view bytes) {
  for (std::size_t cuts = 1 + dice_.Below(3);
       cuts > 0 && bytes.size() > 1 && line.later.size() < kMostPieces; --cuts) {
    const std::size_t at = 1 + dice_.Below(bytes.size() - 1);
    Deliver(connection, line, bytes.substr(0, at));
    bytes.remove_prefix(at);
    line.later.resize(line.later.size() + 1 + dice_.Below(kLongestPause));
  }
  Deliver(connection, line, bytes);
}

const MischiefKind& Mischief::Roll(const std::vector<const MischiefKind*>& kinds) {
  static constexpr MischiefKind kNone = {};
  if (kinds.empty()) {
    return kNone;
  }
  const MischiefKind& kind = *dice_.Pick(kinds);
  return dice_.OneIn(kind.one_in) ? kind : kNone;
}

}  // namespace korvanta::practice
