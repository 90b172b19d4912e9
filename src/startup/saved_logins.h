/// The saved logins and their stored form. The login dialog edits them, the settings load and save
/// them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta {

namespace modData {

/// Encoding maps each character code c to 2c + 3 and reverses the text; decoding reverses it and
/// maps c to the half of c - 3, ties to even, which undoes encoding exactly. Reversible obfuscation
/// without a key, no protection. Nothing if a code cannot be mapped: above 126 when encoding, below
/// 3 when decoding.
std::optional<std::string> ScrambleLoginText(std::string_view text, bool encode);

}  // namespace modData

struct SavedLogin {
  std::string UserName;  ///< in the letter case in which it was first typed
  std::string Password;  ///< empty when the player did not ask to save it
};

/// Whether two names are equal, ignoring the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b);

/// Slot 0 is an empty placeholder; logins are in slots 1 and up, in the order in which they were
/// loaded or added. A removed login leaves its slot empty: slots never move during a run.
class SavedLogins {
 public:
  /// Leaves only the placeholder, and no last user.
  void Reset();

  bool HasOnlyPlaceholder() const { return slots_.size() == 1; }

  /// Slots 1 and up, empty ones included; valid until a slot is added.
  std::span<SavedLogin> Logins() { return std::span(slots_).subspan(1); }
  std::span<const SavedLogin> Logins() const { return std::span(slots_).subspan(1); }

  void Add(SavedLogin login) { slots_.push_back(std::move(login)); }

  /// The first login of that name, null if there is none; valid until a slot is added.
  SavedLogin* Find(std::string_view name);

  /// Adds the logins of a stored text, "name,password;" each, both scrambled. Skips pieces of at
  /// most one character and malformed ones: without a comma, or with a character that cannot be
  /// decoded.
  void AddStored(std::string_view text);

  /// The stored form of every login with a name. Whatever was read from a stored text can be
  /// written again. Of other logins, one whose name cannot be encoded is left out, and one whose
  /// password cannot be encoded is written without it.
  std::string ToStored() const;

  std::string LastUser;  ///< name of the latest login attempt, empty if none

 private:
  std::vector<SavedLogin> slots_{1};
};

}  // namespace korvanta
