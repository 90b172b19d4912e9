/// Finds a text in a long one, block by block and in any letter case of Windows-1252. The search in
/// the message view uses it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "lobby/coloured_text.h"

namespace korvanta {

/// Where the first occurrence starts that lies between `from` and `to`; the end of the text stands
/// for a larger `to`. An empty text occurs nowhere.
std::optional<std::size_t> FindFirst(const ColouredText& text, std::string_view sought,
                                     std::size_t from,
                                     std::size_t to = static_cast<std::size_t>(-1));

/// The same for the last.
std::optional<std::size_t> FindLast(const ColouredText& text, std::string_view sought,
                                    std::size_t to, std::size_t from = 0);

}  // namespace korvanta
