#include "startup/login_dialog.h"

#include <gmock/gmock.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Logins = std::vector<SavedLogin>;

class LoginDialogTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  /// Opens the dialog anew over these saved logins.
  void Open(const Logins& logins, std::string last_user = "") {
    dialog.window().Unload();
    saved.Reset();
    for (const SavedLogin& login : logins) {
      saved.Add(login);
    }
    saved.LastUser = std::move(last_user);
    dialog.window().Show();
  }
  void Type(std::string_view name, std::string_view password) {
    dialog.UserNameTyped(name);
    dialog.PasswordTyped(password);
  }
  /// The form as "server|name|password|saved".
  std::string Form() const {
    const LoginForm& form = dialog.form();
    return form.cboServer + "|" + form.cboUsernames + "|" + form.txtPassword + "|" +
           (form.chkSave ? "on" : "off");
  }
  /// Slots from 1 up as "name/password", joined by blanks.
  std::string Slots() const {
    std::string text;
    for (const SavedLogin& login : std::as_const(saved).Logins()) {
      text += (text.empty() ? "" : " ") + login.UserName + "/" + login.Password;
    }
    return text;
  }
  bool IsOpen() { return dialog.window().state() == WindowLife::State::Shown; }

  fakes::FakeMessageBox& box = platform.message_box;
  SavedLogins saved;
  LoginDialog dialog{connection, values, saved, box};
};

TEST_F(LoginDialogTest, LoadingPreselectsTheLastUser) {
  const struct {
    Logins logins;
    std::string last_user, form;  // behind the server
    std::vector<std::string> list;
  } cases[] = {
      {{}, "", "||off", {}},
      {{{"Anna", "pass"}}, "Bert", "||off", {"Anna"}},
      {{{"Anna", "pass"}}, "aNNA", "Anna|pass|on", {"Anna"}},
      {{{"", ""}, {"Anna", ""}, {"", "left"}}, "Anna", "Anna||off", {"Anna"}},
      // Of duplicates the last one decides, and an earlier password stays.
      {{{"Anna", "pass"}, {"ANNA", ""}}, "anna", "ANNA|pass|off", {"Anna", "ANNA"}},
  };
  for (const auto& c : cases) {
    Open(c.logins, c.last_user);
    EXPECT_EQ(Form(), "Korvanta Beta Server|" + c.form);
    EXPECT_EQ(dialog.form().cboUsernames_list, c.list) << c.form;
  }
}

TEST_F(LoginDialogTest, OpeningAgainBringsForwardWithoutLoading) {
  int shows = 0;
  dialog.window().on_show = [&shows] { ++shows; };
  Open({});
  dialog.UserNameTyped("half a na");
  dialog.ConnectItemClicked();
  EXPECT_EQ(shows, 2);
  EXPECT_EQ(dialog.form().cboUsernames, "half a na");
}

TEST_F(LoginDialogTest, TypingANameTakesOverASavedOne) {
  const struct {
    std::string what;
    Logins logins;
    std::string typed, form;
  } cases[] = {
      {"nobody saved: the password stays", {}, "ANNA", "|ANNA|typed|on"},
      {"not saved: emptied, check mark stays", {{"Bert", "pw"}}, "Anna", "|Anna||on"},
      {"saved with password", {{"Anna", "pass"}}, "ANNA", "|Anna|pass|on"},
      {"saved without", {{"Anna", ""}}, "ANNA", "|Anna||off"},
      {"part of a name is no match", {{"Anna", "pass"}}, "ann", "|ann||on"},
      {"first password wins", {{"Anna", "one1"}, {"ANNA", "two2"}}, "anna", "|Anna|one1|on"},
      {"a later one has the password", {{"Anna", ""}, {"ANNA", "two2"}}, "anna", "|ANNA|two2|on"},
      {"a removed slot matches the empty name", {{"", ""}}, "", "|||off"},
  };
  for (const auto& c : cases) {
    Open({});
    for (const SavedLogin& login : c.logins) {
      saved.Add(login);
    }
    dialog.ServerTyped("");
    Type("x", "typed");
    dialog.SaveClicked(true);
    dialog.UserNameTyped(c.typed);
    EXPECT_EQ(Form(), c.form) << c.what;
  }
}

TEST_F(LoginDialogTest, ChoosingKeepsTheChosenLetterCase) {
  Open({{"Anna", ""}, {"ANNA", "pass"}});
  dialog.UserNameChosen(0);
  EXPECT_EQ(Form(), "Korvanta Beta Server|Anna|pass|on");
  dialog.PasswordTyped("other");
  dialog.UserNameChosen(0);
  EXPECT_EQ(dialog.form().txtPassword, "pass");
}

TEST_F(LoginDialogTest, ANameTypedBackToWhatItWasIsToldToTheListener) {
  Open({{"Anna", "pass"}});
  dialog.UserNameTyped("Anna");
  int changes = 0;
  dialog.on_changed = [&changes] { ++changes; };
  dialog.UserNameTyped("ANna");  // the box shows it until it is told
  EXPECT_EQ(changes, 1);
  Type("Anna", "pass");
  EXPECT_EQ(changes, 1);
}

TEST_F(LoginDialogTest, TheFirstFailedCheckIsToldAndNothingChanges) {
  const std::string server = "Server Needed: No server has been selected";
  const std::string length =
      "Invalid Character Length: Username & Password must contain 4 or more characters";
  const std::string characters =
      "Invalid Characters: Username & Password must contain alpha-numeric characters ONLY";
  const struct {
    std::string server, name, password, box;
  } cases[] = {{"", "ab", "", server},
               {"x", "abc", "1234", length},
               {"x", "abcd", "123", length},
               {"x", "a b", "1 3", length},
               {"x", "ab d", "1234", characters},
               {"x", "ab_d", "1234", characters},
               {"x", "abcd", "123\xe9", characters},
               {"x", "abcd", "1234@", characters},
               {"x", "abcd", "[123", characters},
               {"x", "abc`", "1234", characters},
               {"x", "{bcd", "1234", characters},
               {"x", "abcd", "/123", characters},
               {"x", "abcd", "12:3", characters}};
  Open({{"Anna", "pass"}});
  for (const auto& c : cases) {
    dialog.ServerTyped(c.server);
    Type(c.name, c.password);
    const std::string before = Form();
    dialog.LoginClicked();
    EXPECT_EQ(box.shown.back(), c.box) << c.name << " " << c.password;
    EXPECT_EQ(box.icons.back(), MessageIcon::Exclamation);
    EXPECT_EQ(Form(), before);
  }
  EXPECT_EQ(box.shown.size(), std::size(cases));
  EXPECT_EQ(Slots(), "Anna/pass");
  EXPECT_EQ(saved.LastUser, "");
  EXPECT_TRUE(IsOpen());
  EXPECT_THAT(socket.attempts, IsEmpty());
}

TEST_F(LoginDialogTest, ALoginRemembersTheUserAndStartsTheConnection) {
  const struct {
    std::string what;
    Logins logins;
    bool save;
    std::string slots, current;
  } cases[] = {
      {"new, not saved", {}, false, "ANNA/", "ANNA"},
      {"new, saved", {{"Bert", "pw"}}, true, "Bert/pw ANNA/1234", "ANNA"},
      {"known, forgets its password", {{"Anna", "pass"}}, false, "Anna/", "Anna"},
      {"known, another password", {{"Anna", "pass"}}, true, "Anna/1234", "Anna"},
      {"first of two", {{"", ""}, {"anna", ""}, {"Anna", ""}}, true, "/ anna/1234 Anna/", "anna"},
  };
  for (const auto& c : cases) {
    Open(c.logins);
    dialog.ServerTyped("203.0.113.9");
    Type("ANNA", "1234");
    dialog.SaveClicked(c.save);
    dialog.LoginClicked();
    EXPECT_EQ(Slots(), c.slots) << c.what;
    EXPECT_EQ(saved.LastUser, c.current) << c.what;
    EXPECT_EQ(values.CurrentUserName, c.current) << c.what;
    EXPECT_EQ(values.CurrentPassword, "1234") << c.what;
    EXPECT_EQ(socket.attempts.back().first, "127.0.0.1") << "whatever the server box says";
    EXPECT_EQ(chat.lines.back(), "3|Connecting as " + c.current + "...");
    EXPECT_FALSE(IsOpen()) << c.what;
  }
  EXPECT_THAT(box.shown, IsEmpty());
}

TEST_F(LoginDialogTest, RemovingAUserEmptiesItsSlotAfterAYes) {
  const struct {
    std::string what;
    Logins logins;
    std::string last_user, typed;
    std::vector<bool> answers;
    std::string slots, last_user_after, form;
  } cases[] = {
      {"nobody saved", {}, "", "Anna", {}, "", "", "Korvanta Beta Server|Anna||off"},
      {"no name", {{"Anna", ""}}, "", "", {}, "Anna/", "", "Korvanta Beta Server|||off"},
      {"no",
       {{"Anna", ""}},
       "Anna",
       "anna",
       {false},
       "Anna/",
       "Anna",
       "Korvanta Beta Server|Anna||off"},
      {"last user", {{"Anna", "p"}, {"ANNA", ""}}, "anna", "anna", {true}, "/ ANNA/", "", "|||on"},
      {"other",
       {{"Anna", ""}, {"Bert", "p"}},
       "Bert",
       "anna",
       {true},
       "/ Bert/p",
       "Bert",
       "|Bert|p|on"},
      {"not saved", {{"Anna", "p"}}, "", "Bert", {true}, "Anna/p", "", "|||off"},
  };
  for (const auto& c : cases) {
    Open(c.logins, c.last_user);
    dialog.UserNameTyped(c.typed);
    box.answers = c.answers;
    box.asked.clear();
    const std::string question = "Remove User: Remove User: " + dialog.form().cboUsernames + "?";
    dialog.RemoveUserClicked();
    EXPECT_EQ(box.asked, std::vector(c.answers.size(), question)) << c.what;
    EXPECT_EQ(Slots(), c.slots) << c.what;
    EXPECT_EQ(saved.LastUser, c.last_user_after) << c.what;
    EXPECT_EQ(Form(), c.form) << c.what;
  }
}

TEST_F(LoginDialogTest, AUserIsRemovedEvenWhenTheDialogGoesWhileTheQuestionStands) {
  Open({{"Anna", "pass"}, {"Bert", "pass"}});
  dialog.UserNameTyped("Anna");
  box.answers = {true};
  box.meanwhile = [this] {
    dialog.UserNameTyped("Bert");
    dialog.window().Unload();
  };
  dialog.RemoveUserClicked();
  EXPECT_EQ(Slots(), "/ Bert/pass");
  EXPECT_EQ(dialog.form().cboUsernames, "Bert");
}

TEST_F(LoginDialogTest, ClearEmptiesTheBoxesAlone) {
  Open({{"Anna", "pass"}}, "Anna");
  dialog.ClearClicked();
  EXPECT_EQ(Form(), "|||on");
  EXPECT_THAT(dialog.form().cboUsernames_list, ElementsAre("Anna"));
}

}  // namespace
}  // namespace korvanta
