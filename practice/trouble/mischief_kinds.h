/// The kinds of mischief that a server can make, and what each does to a message. Used by Mischief,
/// and by the command line to list and to read them.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "practice/base/dice.h"

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

}  // namespace korvanta::practice
