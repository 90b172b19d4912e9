/// What messages say, read in the plainest way: the client's fuzz target holds the client's own
/// reading against it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/colour.h"
#include "board/tournament.h"

namespace korvanta::fuzz {

/// An entry of the online list as it is drawn.
struct ListedPlayer {
  std::string key, name, level;
  Colour colour;
  bool marked;
  bool operator==(const ListedPlayer&) const = default;
};

/// What follows the tag in a block's first message; nothing when that is another message, or when
/// the block may hold a second one of that tag.
std::optional<std::string_view> OnlyPayload(std::string_view block, std::string_view tag);

/// What the online list, the team list and the team names hold behind their tags.
std::vector<ListedPlayer> PlayersIn(std::string_view payload);
std::vector<TeamListEntry> TeamsIn(std::string_view payload);
std::vector<std::string> TeamNamesIn(std::string_view payload);

}  // namespace korvanta::fuzz
