/// The login dialog's presenter: takes a server name, a user name and a password, remembers the
/// user and starts the connection. `frmLogin` shows it.
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

/// The contents of the dialog's controls. Texts may hold any character and have no length limit.
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

  /// The connect item of the File menu: if logged in, asks the server to close the connection;
  /// otherwise shows this dialog.
  void ConnectItemClicked();

  void ServerTyped(std::string_view text);
  void PasswordTyped(std::string_view text);
  void SaveClicked(bool checked);

  /// The user edited the name. If it is saved, takes over its saved letter case and fills in its
  /// password. Text that the dialog itself sets does not count as an edit.
  void UserNameTyped(std::string_view text);
  /// The user chose an entry of the list, perhaps the same one again.
  void UserNameChosen(std::size_t index);

  void LoginClicked();
  void RemoveUserClicked();
  void ClearClicked();
  void CancelClicked() { window_.Unload(); }

  bool FindSavedUser(std::string_view name) const;
  void AddSavedUser(std::string_view name);
  void FillSavedUsers();

  /// The form has changed, or no longer matches what the user just entered. Not called for a login
  /// that starts: it unloads the window.
  std::function<void()> on_changed;

 private:
  enum class NameSource { Typed, Chosen };

  void Load();
  void ApplySavedLogin(NameSource source);
  /// Fills in the saved password and its check mark; if there is none, the box keeps its text.
  void ApplySavedPassword(const SavedLogin& login);

  /// Stores the user's change of a control and notifies, unless the value is the same.
  template <typename Control, typename Value>
  void Set(Control& control, const Value& value);

  /// Whether the form is complete and valid; if not, informs the user.
  bool CheckForm();

  Connection& connection_;
  ConnectionValues& values_;
  SavedLogins& saved_logins_;
  MessageBox& message_box_;
  LoginForm form_;
  WindowLife window_;
};

}  // namespace korvanta
