/// The colours of the message view's lines. The text stores roles; painting looks up their colours
/// here.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/colour.h"
#include "protocol/message_kind.h"

namespace korvanta {

/// The colour role of a run of text. First and second are the parts of a two-colour line: up to and
/// including its first colon, and the rest.
enum class ColourRole : std::uint8_t {
  Black,
  ChatFirst,
  ChatSecond,
  AnnouncementFirst,
  AnnouncementSecond,
  AdminFirst,
  AdminSecond,
  TellFirst,
  TellSecond,
  TeamFirst,
  TeamSecond,
  PlainFirst,
  PlainSecond,
};

/// In the order of the roles.
inline constexpr std::array<Colour, 13> kRoleColours = {{
    {0, 0, 0},
    {0, 0, 128},
    {64, 64, 192},
    {0, 128, 128},
    {0, 164, 164},
    {128, 0, 255},
    {168, 81, 255},
    {176, 0, 0},
    {215, 0, 0},
    {0, 140, 0},
    {0, 183, 0},
    {64, 128, 128},
    {78, 156, 156},
}};

constexpr Colour ColourOf(ColourRole role) { return kRoleColours[static_cast<std::size_t>(role)]; }

/// The roles of one kind of line; a one-colour kind has the same twice.
struct LineColours {
  ColourRole first = ColourRole::Black;
  ColourRole second = ColourRole::Black;
  bool operator==(const LineColours&) const = default;
};

constexpr LineColours ColoursOf(MessageKind kind) {
  switch (kind) {
    case MessageKind::Chat:
      return {ColourRole::ChatFirst, ColourRole::ChatSecond};
    case MessageKind::Announcement:
      return {ColourRole::AnnouncementFirst, ColourRole::AnnouncementSecond};
    case MessageKind::Admin:
      return {ColourRole::AdminFirst, ColourRole::AdminSecond};
    case MessageKind::Tell:
      return {ColourRole::TellFirst, ColourRole::TellSecond};
    case MessageKind::Team:
      return {ColourRole::TeamFirst, ColourRole::TeamSecond};
    case MessageKind::Plain:
      return {ColourRole::PlainFirst, ColourRole::PlainSecond};
    case MessageKind::Status:
      break;
  }
  return {};
}

}  // namespace korvanta
