#include "startup/login_dialog.h"

#include <functional>
#include <gtest/gtest.h>
#include <sstream>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

/// Saved logins are written as "name/password", joined by blanks.
struct LoginDialogTest : testing::Test, fakes::OfflinePlayer {
  std::string Saved() const {
    std::string text;
    for (const SavedLogin& login : std::as_const(saved).Logins()) {
      text += (text.empty() ? "" : " ") + login.UserName + "/" + login.Password;
    }
    return text;
  }
  /// Opens the dialog anew over these saved logins.
  void Open(const std::string& logins, std::string last_user = "") {
    dialog.window().Unload();
    saved.Reset();
    std::istringstream words(logins);
    for (std::string word; words >> word;) {
      const std::size_t slash = word.find('/');
      saved.Add({word.substr(0, slash), word.substr(slash + 1)});
    }
    saved.LastUser = std::move(last_user);
    socket.connected = true;  // which is not yet a login
    dialog.ConnectItemClicked();
  }
  void Type(std::string_view name, std::string_view password) {
    dialog.UserNameTyped(name);
    dialog.PasswordTyped(password);
  }
  /// The form as "server|name|password|saved"; "Korvanta Beta Server" is "K".
  std::string Form() const {
    const LoginForm& form = dialog.form();
    const bool known = form.cboServer == "Korvanta Beta Server";
    return (known ? "K" : form.cboServer) + "|" + form.cboUsernames + "|" + form.txtPassword +
           (form.chkSave ? "|on" : "|off");
  }

  SavedLogins saved;
  LoginDialog dialog{connection, values, saved, message_box};
};

TEST_F(LoginDialogTest, SavedLoginsFillTheForm) {
  const struct {
    const char* what;
    std::string logins, last_user;
    const char* typed;  // over "typed" as the password and a set check mark
    std::string form;
  } cases[] = {
      {"nobody saved", "", "", nullptr, "K|||off"},
      {"the last user is not saved", "Anna/pass", "Bert", nullptr, "K|||off"},
      {"is saved", "Anna/pass", "aNNA", nullptr, "K|Anna|pass|on"},
      {"without a password", "/ Anna/ /left", "Anna", nullptr, "K|Anna||off"},
      {"the last of two, the first's password", "Anna/pass ANNA/", "anna", nullptr,
       "K|ANNA|pass|off"},
      {"typed, nobody saved: the password stays", "", "", "ANNA", "K|ANNA|typed|on"},
      {"not saved: emptied, check mark stays", "Bert/pw", "", "Anna", "K|Anna||on"},
      {"saved with password", "Anna/pass", "", "ANNA", "K|Anna|pass|on"},
      {"saved without", "Anna/", "", "ANNA", "K|Anna||off"},
      {"part of a name is no match", "Anna/pass", "", "ann", "K|ann||on"},
      {"first password wins", "Anna/one1 ANNA/two2", "", "anna", "K|Anna|one1|on"},
      {"a later one has the password", "Anna/ ANNA/two2", "", "anna", "K|ANNA|two2|on"},
      {"a removed slot matches the empty name", "/", "", "", "K|||off"},
  };
  for (const auto& c : cases) {
    Open(c.logins, c.last_user);
    if (c.typed != nullptr) {
      Type("x", "typed");
      dialog.SaveClicked(true);
      dialog.UserNameTyped(c.typed);
    }
    EXPECT_EQ(Form(), c.form) << c.what;
  }
  Open("Anna/ ANNA/pass");
  for (const char* password : {"", "other"}) {
    dialog.PasswordTyped(password);
    dialog.UserNameChosen(0);
    EXPECT_EQ(Form(), "K|Anna|pass|on") << "choosing keeps the chosen letter case";
  }
  dialog.PasswordTyped("ha");
  dialog.ConnectItemClicked();
  EXPECT_EQ(Form(), "K|Anna|ha|on") << "the open dialog comes forward as it is";
  dialog.ClearClicked();
  EXPECT_EQ(Form(), "|||on") << "the boxes alone";
  Open("/ Anna/ /left ANNA/");
  EXPECT_EQ(dialog.form().cboUsernames_list, (std::vector<std::string>{"Anna", "ANNA"}));
  Open("Anna/pass", "Anna");
  int changes = 0;
  dialog.on_changed = [&changes] { ++changes; };
  dialog.UserNameTyped("ANna");
  Type("Anna", "pass");
  EXPECT_EQ(changes, 1) << "the box shows what was typed until it learns of the saved form";
}

TEST_F(LoginDialogTest, TheFirstFailedCheckIsShownAndNothingChanges) {
  const std::string server = "Server Needed: No server has been selected (!)";
  const std::string length =
      "Invalid Character Length: Username & Password must contain 4 or more characters (!)";
  const std::string characters =
      "Invalid Characters: Username & Password must contain alpha-numeric characters ONLY (!)";
  const struct {
    std::string server, name, password, box;
  } cases[] = {{"", "ab", "", server},
               {"x", "abc", "1234", length},
               {"x", "abcd", "123", length},
               {"x", "a b", "1 3", length},
               {"x", "ab_d", "1234", characters},
               {"x", "abcd", "123\xe9", characters}};
  Open("Anna/pass");
  for (const auto& c : cases) {
    dialog.ServerTyped(c.server);
    Type(c.name, c.password);
    const std::string before = Form();
    dialog.LoginClicked();
    EXPECT_EQ(message_box.shown.back(), c.box) << c.name << " " << c.password;
    EXPECT_EQ(Form(), before);
  }
  EXPECT_EQ(Saved() + saved.LastUser, "Anna/pass");
  EXPECT_EQ(dialog.window().state(), WindowLife::State::Shown);
  EXPECT_TRUE(socket.attempts.empty());
}

TEST(IsAlphaNumeric, HoldsForAsciiLettersAndDigitsAlone) {
  std::string yes;
  for (int c = 0; c < 256; ++c) {
    const std::string text(1, static_cast<char>(c));
    yes += modData::IsAlphaNumeric(text) ? text : "";
  }
  EXPECT_EQ(yes, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
}

TEST_F(LoginDialogTest, ALoginRemembersTheUserAndStartsTheConnection) {
  const struct {
    const char* what;
    std::string logins;
    bool save;
    std::string after, current;
  } cases[] = {
      {"new, not saved", "", false, "ANNA/", "ANNA"},
      {"new, saved", "Bert/pw", true, "Bert/pw ANNA/1234", "ANNA"},
      {"known, forgets its password", "Anna/pass", false, "Anna/", "Anna"},
      {"known, another password", "Anna/pass", true, "Anna/1234", "Anna"},
      {"first of two", "/ anna/ Anna/", true, "/ anna/1234 Anna/", "anna"},
  };
  for (const auto& c : cases) {
    Open(c.logins);
    dialog.ServerTyped("203.0.113.9");
    Type("ANNA", "1234");
    dialog.SaveClicked(c.save);
    dialog.LoginClicked();
    EXPECT_EQ(Saved(), c.after) << c.what;
    EXPECT_EQ(saved.LastUser, c.current) << c.what;
    EXPECT_EQ(values.CurrentPassword, "1234") << c.what;
    EXPECT_EQ(socket.attempts.back().first, "127.0.0.1") << "whatever the server box says";
    EXPECT_EQ(chat.lines.back(), "3|Connecting as " + c.current + "...");
    EXPECT_EQ(dialog.window().state(), WindowLife::State::Absent);
  }
}

TEST_F(LoginDialogTest, RemovingAUserEmptiesItsSlotAfterAYes) {
  const auto leave = [this] { dialog.UserNameTyped("Bert"), dialog.window().Unload(); };
  const struct {
    const char* what;
    std::string logins, last_user, typed;
    std::vector<bool> answers;
    std::string after, last_user_after, form;
    std::function<void()> meanwhile = {};  // while the question stands
  } cases[] = {
      {"nobody saved", "", "", "Anna", {}, "", "", "K|Anna||off"},
      {"no name", "Anna/", "", "", {}, "Anna/", "", "K|||off"},
      {"no", "Anna/", "Anna", "anna", {false}, "Anna/", "Anna", "K|Anna||off"},
      {"last user", "Anna/p ANNA/", "anna", "anna", {true}, "/ ANNA/", "", "|||on"},
      {"other", "Anna/ Bert/p", "Bert", "anna", {true}, "/ Bert/p", "Bert", "|Bert|p|on"},
      {"not saved", "Anna/p", "", "Bert", {true}, "Anna/p", "", "|||off"},
      {"dialog goes", "Anna/p Bert/p", "", "anna", {true}, "/ Bert/p", "", "K|Bert|p|on", leave},
  };
  for (const auto& c : cases) {
    Open(c.logins, c.last_user);
    dialog.UserNameTyped(c.typed);
    message_box.answers = c.answers;
    message_box.meanwhile = c.meanwhile;
    message_box.asked.clear();
    const std::string question = "Remove User: Remove User: " + dialog.form().cboUsernames + "?";
    dialog.RemoveUserClicked();
    EXPECT_EQ(message_box.asked, std::vector(c.answers.size(), question)) << c.what;
    EXPECT_EQ(Saved(), c.after) << c.what;
    EXPECT_EQ(saved.LastUser, c.last_user_after) << c.what;
    EXPECT_EQ(Form(), c.form) << c.what;
  }
}

}  // namespace
}  // namespace korvanta
