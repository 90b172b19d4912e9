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

/// The text reversed and each character's code c made 2c + 3, or, with `encode` false, that undone:
/// (c - 3) / 2, halves to the even neighbour. A reversible disguise without a key, no protection.
/// Nothing when a character has no counterpart: a code above 126 to encode, below 3 to decode.
/// Decoding undoes encoding exactly.
std::optional<std::string> ScrambleLoginText(std::string_view text, bool encode);

}  // namespace modData

struct SavedLogin {
  std::string UserName;  ///< in the letter case in which it was first typed
  std::string Password;  ///< empty when the player did not ask to save it
};

/// Whether two names are the same without regard to the case of ASCII letters, the only ones that
/// have a case and can stand in a saved name.
bool SameName(std::string_view a, std::string_view b);

/// Slot 0 is an empty placeholder; logins stand in slots 1 and up in the order in which they were
/// loaded or added. A removed login leaves an empty slot behind: slots never move during a run.
class SavedLogins {
 public:
  /// Back to the placeholder and no last user.
  void Reset();

  bool HasOnlyPlaceholder() const { return slots_.size() == 1; }

  /// Slots 1 and up, the empty ones included; valid until a slot is added.
  std::span<SavedLogin> Logins() { return std::span(slots_).subspan(1); }
  std::span<const SavedLogin> Logins() const { return std::span(slots_).subspan(1); }

  void Add(SavedLogin login) { slots_.push_back(std::move(login)); }

  /// The first slot from 1 up of that name, nullptr when there is none; valid until a slot is
  /// added.
  SavedLogin* Find(std::string_view name);

  /// Adds the logins of a stored text, "name,password;" each, both scrambled. Pieces of at most one
  /// character are skipped, and so are those that make no sense: without a comma, or with a
  /// character that cannot be unscrambled.
  void AddStored(std::string_view text);

  /// The stored form of every login with a name. What was read from a stored text can always be
  /// written again. Of logins from elsewhere, one whose name the scramble cannot encode is left
  /// out, and one whose password it cannot encode is written without it.
  std::string ToStored() const;

  std::string LastUser;  ///< name of the latest login attempt, empty when none

 private:
  std::vector<SavedLogin> slots_{1};
};

}  // namespace korvanta
