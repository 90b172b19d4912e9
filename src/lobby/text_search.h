/// Finds a text in a long one, block by block and in any letter case of Windows-1252. The search in
/// the message view uses it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "lobby/coloured_text.h"

namespace korvanta {

/// Where the first occurrence starts that starts at `from` or later. An empty text occurs nowhere.
std::optional<std::size_t> FindFirst(const ColouredText& text, std::string_view sought,
                                     std::size_t from);

/// Where the last occurrence starts that ends at `to` or before; `to` is at most the text's size.
std::optional<std::size_t> FindLast(const ColouredText& text, std::string_view sought,
                                    std::size_t to);

}  // namespace korvanta
