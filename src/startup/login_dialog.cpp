#include "startup/login_dialog.h"

#include <algorithm>
#include <utility>

#include "base/change_notice.h"

namespace korvanta {
namespace {

constexpr std::string_view kServerName = "Korvanta Beta Server";
constexpr std::size_t kMinCredentialLength = 4;

}  // namespace

void modData::ClearFormFields(LoginForm& form, bool text_boxes, bool combo_boxes) {
  if (text_boxes) {
    form.txtPassword.clear();
  }
  if (combo_boxes) {
    form.cboServer.clear();
    form.cboUsernames.clear();
  }
}

bool modData::IsAlphaNumeric(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
  });
}

LoginDialog::LoginDialog(Connection& connection, ConnectionValues& values,
                         SavedLogins& saved_logins, MessageBox& message_box)
    : connection_(connection),
      values_(values),
      saved_logins_(saved_logins),
      message_box_(message_box),
      window_([this] { Load(); }) {}

void LoginDialog::ConnectItemClicked() {
  if (connection_.IsLoggedIn()) {
    connection_.Disconnect();
  } else {
    window_.Show();
  }
}

void LoginDialog::Load() {
  form_ = {};
  FillSavedUsers();
  form_.cboServer = kServerName;
}

template <typename Control, typename Value>
void LoginDialog::Set(Control& control, const Value& value) {
  if (control != value) {
    control = value;
    Notify(on_changed);
  }
}

void LoginDialog::ServerTyped(std::string_view text) { Set(form_.cboServer, text); }

void LoginDialog::PasswordTyped(std::string_view text) { Set(form_.txtPassword, text); }

void LoginDialog::SaveClicked(bool checked) { Set(form_.chkSave, checked); }

void LoginDialog::UserNameTyped(std::string_view text) {
  if (text != form_.cboUsernames) {
    form_.cboUsernames = text;
    ApplySavedLogin(NameSource::Typed);
    Notify(on_changed);
  }
}

void LoginDialog::UserNameChosen(std::size_t index) {
  if (index < form_.cboUsernames_list.size()) {
    form_.cboUsernames = form_.cboUsernames_list[index];
    ApplySavedLogin(NameSource::Chosen);
    Notify(on_changed);
  }
}

void LoginDialog::ApplySavedLogin(NameSource source) {
  if (saved_logins_.HasOnlyPlaceholder()) {
    return;
  }
  modData::ClearFormFields(form_, true, false);
  for (const SavedLogin& login : std::as_const(saved_logins_).Logins()) {
    if (!SameName(login.UserName, form_.cboUsernames)) {
      continue;
    }
    if (source == NameSource::Typed) {
      form_.cboUsernames = login.UserName;
    }
    ApplySavedPassword(login);
    if (form_.chkSave) {
      return;
    }
  }
}

void LoginDialog::ApplySavedPassword(const SavedLogin& login) {
  form_.chkSave = !login.Password.empty();
  if (form_.chkSave) {
    form_.txtPassword = login.Password;
  }
}

void LoginDialog::LoginClicked() {
  if (!CheckForm()) {
    return;
  }
  if (!FindSavedUser(form_.cboUsernames)) {
    AddSavedUser(form_.cboUsernames);
  }
  SavedLogin& login = *saved_logins_.Find(form_.cboUsernames);
  values_.CurrentUserName = login.UserName;
  values_.CurrentPassword = form_.txtPassword;
  saved_logins_.LastUser = values_.CurrentUserName;
  login.Password = form_.chkSave ? form_.txtPassword : std::string();
  connection_.StartConnection();
  window_.Unload();
}

bool LoginDialog::CheckForm() {
  const std::string_view name = form_.cboUsernames;
  const std::string_view password = form_.txtPassword;
  if (form_.cboServer.empty()) {
    message_box_.Show("No server has been selected", "Server Needed", MessageIcon::Exclamation);
    return false;
  }
  if (std::min(password.size(), name.size()) < kMinCredentialLength) {
    message_box_.Show("Username & Password must contain 4 or more characters",
                      "Invalid Character Length", MessageIcon::Exclamation);
    return false;
  }
  if (!modData::IsAlphaNumeric(password) || !modData::IsAlphaNumeric(name)) {
    message_box_.Show("Username & Password must contain alpha-numeric characters ONLY",
                      "Invalid Characters", MessageIcon::Exclamation);
    return false;
  }
  return true;
}

void LoginDialog::RemoveUserClicked() {
  if (saved_logins_.HasOnlyPlaceholder() || form_.cboUsernames.empty()) {
    return;
  }
  const std::string name = form_.cboUsernames;
  if (!message_box_.Ask("Remove User: " + name + "?", "Remove User")) {
    return;
  }
  if (SavedLogin* login = saved_logins_.Find(name)) {
    if (SameName(login->UserName, saved_logins_.LastUser)) {
      saved_logins_.LastUser.clear();
    }
    *login = {};
  }
  // The dialog may have been unloaded while the question was open.
  if (window_.state() == WindowLife::State::Absent) {
    return;
  }
  modData::ClearFormFields(form_, true, true);
  FillSavedUsers();
  Notify(on_changed);
}

void LoginDialog::ClearClicked() {
  modData::ClearFormFields(form_, true, true);
  Notify(on_changed);
}

bool LoginDialog::FindSavedUser(std::string_view name) const {
  return saved_logins_.Find(name) != nullptr;
}

void LoginDialog::AddSavedUser(std::string_view name) {
  form_.cboUsernames_list.emplace_back(name);
  saved_logins_.Add({std::string(name), {}});
}

void LoginDialog::FillSavedUsers() {
  if (saved_logins_.HasOnlyPlaceholder()) {
    return;
  }
  modData::ClearFormFields(form_, true, true);
  form_.cboUsernames_list.clear();
  for (const SavedLogin& login : std::as_const(saved_logins_).Logins()) {
    if (login.UserName.empty()) {
      continue;
    }
    form_.cboUsernames_list.push_back(login.UserName);
    if (SameName(login.UserName, saved_logins_.LastUser)) {
      form_.cboUsernames = login.UserName;
      ApplySavedPassword(login);
    }
  }
}

}  // namespace korvanta
