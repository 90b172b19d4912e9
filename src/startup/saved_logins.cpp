#include "startup/saved_logins.h"

#include <algorithm>
#include <utility>

#include "base/ascii_case.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr char kLoginEnd = ';';
constexpr char kPartSeparator = ',';

/// Code 28 encodes to the character that ends a login; this one decodes to 28 as well.
constexpr char kLoginEndInsideText = ':';

constexpr int kHighestEncodable = 126;
constexpr int kLowestDecodable = 3;

std::optional<char> Encode(unsigned char code) {
  if (code > kHighestEncodable) {
    return std::nullopt;
  }
  return static_cast<char>(2 * code + 3);
}

std::optional<char> Decode(unsigned char code) {
  if (code < kLowestDecodable) {
    return std::nullopt;
  }
  const int doubled = code - 3;
  const int below = doubled / 2;
  const bool half = doubled % 2 != 0;
  return static_cast<char>(half ? below + below % 2 : below);
}

std::optional<std::string> ToStoredPart(std::string_view text) {
  auto part = modData::ScrambleLoginText(text, true);
  if (part) {
    std::replace(part->begin(), part->end(), kLoginEnd, kLoginEndInsideText);
  }
  return part;
}

/// The login of a stored piece; nothing if it is malformed.
std::optional<SavedLogin> FromStored(std::string_view piece) {
  const std::size_t comma = piece.find(kPartSeparator);
  if (comma == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view rest = piece.substr(comma + 1);
  auto name = modData::ScrambleLoginText(piece.substr(0, comma), false);
  auto password = modData::ScrambleLoginText(rest.substr(0, rest.find(kPartSeparator)), false);
  if (!name || !password) {
    return std::nullopt;
  }
  return SavedLogin{*std::move(name), *std::move(password)};
}

}  // namespace

std::optional<std::string> modData::ScrambleLoginText(std::string_view text, bool encode) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    const auto changed = encode ? Encode(code) : Decode(code);
    if (!changed) {
      return std::nullopt;
    }
    result += *changed;
  }
  std::reverse(result.begin(), result.end());
  return result;
}

bool SameName(std::string_view a, std::string_view b) { return EqualIgnoringCase(a, b); }

void SavedLogins::Reset() {
  slots_.assign(1, {});
  LastUser.clear();
}

SavedLogin* SavedLogins::Find(std::string_view name) {
  const auto logins = Logins();
  const auto found = std::find_if(logins.begin(), logins.end(), [name](const SavedLogin& login) {
    return SameName(login.UserName, name);
  });
  return found == logins.end() ? nullptr : &*found;
}

void SavedLogins::AddStored(std::string_view text) {
  for (std::string_view piece : Split(text, kLoginEnd)) {
    if (piece.size() <= 1) {
      continue;
    }
    if (auto login = FromStored(piece)) {
      Add(*std::move(login));
    }
  }
}

std::string SavedLogins::ToStored() const {
  std::string text;
  for (const SavedLogin& login : Logins()) {
    const auto name = ToStoredPart(login.UserName);
    if (login.UserName.empty() || !name) {
      continue;
    }
    text += *name;
    text += kPartSeparator;
    text += ToStoredPart(login.Password).value_or("");
    text += kLoginEnd;
  }
  return text;
}

}  // namespace korvanta
