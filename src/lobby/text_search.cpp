#include "lobby/text_search.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>

#include "base/ascii_case.h"

namespace korvanta {
namespace {

/// Bytes read at a time: few at first, as the next match is often near, then more.
constexpr std::size_t kFirstBlock = 512;
constexpr std::size_t kLargestBlock = std::size_t{64} * 1024;

std::size_t BlockAfter(std::size_t block) { return std::min(4 * block, kLargestBlock); }

/// Of Windows-1252.
constexpr std::array<char, 256> MakeLowerCase() {
  std::array<char, 256> lower{};
  for (std::size_t code = 0; code < lower.size(); ++code) {
    const bool accented = code >= 0xC0 && code <= 0xDE && code != 0xD7;
    const bool high = code == 0x8A || code == 0x8C || code == 0x8E;
    lower[code] = static_cast<char>(LowerCase(static_cast<char>(code)) + (accented ? 0x20
                                                                          : high   ? 0x10
                                                                                   : 0));
  }
  lower[0x9F] = '\xFF';
  return lower;
}

constexpr std::array<char, 256> kLowerCase = MakeLowerCase();

std::string InLowerCase(std::string text) {
  for (char& byte : text) {
    byte = kLowerCase[static_cast<unsigned char>(byte)];
  }
  return text;
}

}  // namespace

std::optional<std::size_t> FindFirst(const ColouredText& text, std::string_view needle,
                                     std::size_t from, std::size_t to) {
  const std::string lower = InLowerCase(std::string(needle));
  if (lower.empty()) {
    return std::nullopt;
  }
  const std::boyer_moore_horspool_searcher searcher(lower.begin(), lower.end());
  const std::size_t last = std::min(to, text.size());
  std::size_t size = kFirstBlock;
  for (std::size_t start = from; start + lower.size() <= last;
       start += size, size = BlockAfter(size)) {
    const std::size_t end = std::min(last, start + size + lower.size() - 1);
    const std::string block = InLowerCase(text.Bytes(start, end));
    const auto found = lower.size() == 1 ? std::find(block.begin(), block.end(), lower.front())
                                         : std::search(block.begin(), block.end(), searcher);
    if (found != block.end()) {
      return start + static_cast<std::size_t>(found - block.begin());
    }
  }
  return std::nullopt;
}

std::optional<std::size_t> FindLast(const ColouredText& text, std::string_view needle,
                                    std::size_t to, std::size_t from) {
  const std::string lower = InLowerCase(std::string(needle));
  if (lower.empty()) {
    return std::nullopt;
  }
  const std::boyer_moore_horspool_searcher searcher(lower.rbegin(), lower.rend());
  std::size_t end = std::min(to, text.size());
  std::size_t size = kFirstBlock;
  while (end >= from + lower.size()) {
    const std::size_t start = end - std::min(end - from, size + lower.size() - 1);
    const std::string block = InLowerCase(text.Bytes(start, end));
    const auto found = lower.size() == 1 ? std::find(block.rbegin(), block.rend(), lower.front())
                                         : std::search(block.rbegin(), block.rend(), searcher);
    if (found != block.rend()) {
      return start + static_cast<std::size_t>(block.rend() - found) - lower.size();
    }
    end -= std::min(end, size);
    size = BlockAfter(size);
  }
  return std::nullopt;
}

}  // namespace korvanta
