/// Searches a long text block by block, ignoring the letter case of Windows-1252. Used by the
/// search in the message view.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "lobby/coloured_text.h"

namespace korvanta {

/// Start of the first occurrence between `from` and `to`; a larger `to` means the end of the text.
/// An empty `needle` does not occur.
std::optional<std::size_t> FindFirst(const ColouredText& text, std::string_view needle,
                                     std::size_t from,
                                     std::size_t to = static_cast<std::size_t>(-1));

/// Start of the last such occurrence.
std::optional<std::size_t> FindLast(const ColouredText& text, std::string_view needle,
                                    std::size_t to, std::size_t from = 0);

}  // namespace korvanta
