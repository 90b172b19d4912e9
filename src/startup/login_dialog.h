/// The login dialog's logic: it takes a server name, a user name and a password, remembers the user
/// and starts the connection. `frmLogin` draws it.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_life.h"
#include "platform/message_box.h"
#include "protocol/connection.h"
#include "startup/saved_logins.h"

namespace korvanta {

/// What stands in the dialog's controls. Texts may hold any character; there is no length limit.
struct LoginForm {
  std::string cboServer;
  std::string cboUsernames;
  std::vector<std::string> cboUsernames_list;  ///< in slot order, duplicates kept
  std::string txtPassword;
  bool chkSave = false;
};

namespace modData {

/// Empties the text boxes, the combo boxes' texts, or both. Lists and check boxes stay.
void ClearFormFields(LoginForm& form, bool text_boxes, bool combo_boxes);

/// Whether every character is an ASCII letter or digit; true for the empty text.
bool IsAlphaNumeric(std::string_view text);

}  // namespace modData

class LoginDialog {
 public:
  static constexpr std::string_view kTitle = "Connection Screen";

  /// The references outlive the dialog.
  LoginDialog(Connection& connection, ConnectionValues& values, SavedLogins& saved_logins,
              MessageBox& message_box);

  WindowLife& window() { return window_; }
  const LoginForm& form() const { return form_; }

  /// The File menu's first item: asks the server to close while logged in, otherwise shows this
  /// dialog.
  void ConnectItemClicked();

  void ServerTyped(std::string_view text);
  void PasswordTyped(std::string_view text);
  void SaveClicked(bool checked);

  /// The user changed the name: a saved one takes over its saved letter case and brings its
  /// password. What the dialog itself puts into the box does not count as a change.
  void UserNameTyped(std::string_view text);
  /// The user chose an entry of the list, the same one again included.
  void UserNameChosen(std::size_t index);

  void LoginClicked();
  void RemoveUserClicked();
  void ClearClicked();
  void CancelClicked() { window_.Unload(); }

  bool FindSavedUser(std::string_view name) const;
  void AddSavedUser(std::string_view name);
  void FillSavedUsers();

  /// The form is no longer what it was, or no longer what the user just made of it. A login that
  /// starts says nothing here: it unloads the window.
  std::function<void()> on_changed;

 private:
  enum class NameSource { Typed, Chosen };

  void Load();
  void TakeSavedUser(NameSource source);
  /// A saved password and its check mark; without one, what stands in the box stays.
  void TakePassword(const SavedLogin& login);

  /// The user's change of one control; the same value again is none.
  template <typename Control, typename Value>
  void Set(Control& control, const Value& value);

  /// Whether the form may be logged in with; otherwise the user has been told why not.
  bool CheckForm();

  Connection& connection_;
  ConnectionValues& values_;
  SavedLogins& saved_logins_;
  MessageBox& message_box_;
  LoginForm form_;
  WindowLife window_;
};

}  // namespace korvanta
