#include "startup/login_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"
#include "tests/fakes/recorders.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Runs something while a question stands open.
class BusyMessageBox : public fakes::FakeMessageBox {
 public:
  bool Ask(std::string_view text, std::string_view title) override {
    meanwhile();
    return FakeMessageBox::Ask(text, title);
  }
  std::function<void()> meanwhile = [] {};
};

class LoginDialogTest : public testing::Test {
 protected:
  void Save(std::string name, std::string password) {
    saved.Add({std::move(name), std::move(password)});
  }
  void Open() { dialog.window().Show(); }
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

  fakes::FakePlatform platform;
  BusyMessageBox box;
  fakes::RecordingChat chat;
  fakes::RecordingDisplay display;
  ConnectionValues values;
  Connection connection{platform.socket, platform.timers, values, chat, display, "192.0.2.7"};
  SavedLogins saved;
  LoginDialog dialog{connection, values, saved, box};
};

TEST_F(LoginDialogTest, LoadingPreselectsTheLastUser) {
  const struct {
    const char* what;
    std::vector<SavedLogin> logins;
    const char* last_user;
    const char* form;
    std::vector<std::string> list;
  } cases[] = {
      {"nobody saved", {}, "", "Korvanta Beta Server|||off", {}},
      {"last user not saved", {{"Anna", "pass"}}, "Bert", "Korvanta Beta Server|||off", {"Anna"}},
      {"password saved", {{"Anna", "pass"}}, "aNNA", "Korvanta Beta Server|Anna|pass|on", {"Anna"}},
      {"no password", {{"Anna", ""}}, "Anna", "Korvanta Beta Server|Anna||off", {"Anna"}},
      {"empty slots",
       {{"", ""}, {"Anna", ""}, {"", "left"}},
       "",
       "Korvanta Beta Server|||off",
       {"Anna"}},
      {"duplicates: the last one decides, an earlier password stays",
       {{"Anna", "pass"}, {"Bert", ""}, {"ANNA", ""}},
       "anna",
       "Korvanta Beta Server|ANNA|pass|off",
       {"Anna", "Bert", "ANNA"}},
  };
  for (const auto& c : cases) {
    saved.Reset();
    for (const SavedLogin& login : c.logins) {
      saved.Add(login);
    }
    saved.LastUser = c.last_user;
    Open();
    EXPECT_EQ(Form(), c.form) << c.what;
    EXPECT_EQ(dialog.form().cboUsernames_list, c.list) << c.what;
    dialog.CancelClicked();
  }
}

TEST_F(LoginDialogTest, OpeningAgainBringsForwardWithoutLoading) {
  int shows = 0;
  dialog.window().on_show = [&shows] { ++shows; };
  Open();
  dialog.UserNameTyped("half a na");
  dialog.ConnectItemClicked();
  EXPECT_EQ(shows, 2);
  EXPECT_EQ(dialog.form().cboUsernames, "half a na");
  dialog.CancelClicked();
  Open();
  EXPECT_EQ(dialog.form().cboUsernames, "");
}

TEST_F(LoginDialogTest, TheConnectItemDisconnectsWhileLoggedIn) {
  values.IsConnected = true;
  dialog.ConnectItemClicked();
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(platform.socket.sent, ElementsAre(std::string("[dis]\0", 6)));
}

TEST_F(LoginDialogTest, TypingANameTakesOverASavedOne) {
  const struct {
    const char* what;
    std::vector<SavedLogin> logins;
    const char* typed;
    const char* form;
  } cases[] = {
      {"nobody saved: the password stays", {}, "ANNA", "|ANNA|typed|on"},
      {"not saved: emptied, check mark stays", {{"Bert", "pw"}}, "Anna", "|Anna||on"},
      {"saved with password", {{"Anna", "pass"}}, "ANNA", "|Anna|pass|on"},
      {"saved without", {{"Anna", ""}}, "ANNA", "|Anna||off"},
      {"part of a name is no match", {{"Anna", "pass"}}, "ann", "|ann||on"},
      {"first password wins", {{"Anna", "one1"}, {"ANNA", "two2"}}, "anna", "|Anna|one1|on"},
      {"a later one has the password", {{"Anna", ""}, {"ANNA", "two2"}}, "anna", "|ANNA|two2|on"},
      {"none has one", {{"Anna", ""}, {"ANNA", ""}}, "anna", "|ANNA||off"},
      {"a removed slot matches the empty name", {{"", ""}}, "", "|||off"},
  };
  for (const auto& c : cases) {
    saved.Reset();
    Open();
    for (const SavedLogin& login : c.logins) {
      saved.Add(login);
    }
    dialog.ServerTyped("");
    dialog.UserNameTyped("x");
    dialog.PasswordTyped("typed");
    dialog.SaveClicked(true);
    dialog.UserNameTyped(c.typed);
    EXPECT_EQ(Form(), c.form) << c.what;
    dialog.CancelClicked();
  }
}

TEST_F(LoginDialogTest, ChoosingKeepsTheChosenLetterCase) {
  Save("Anna", "");
  Save("ANNA", "pass");
  Save("Bert", "");
  Open();
  dialog.UserNameChosen(0);
  EXPECT_EQ(Form(), "Korvanta Beta Server|Anna|pass|on");
  dialog.PasswordTyped("other");
  dialog.UserNameChosen(0);
  EXPECT_EQ(dialog.form().txtPassword, "pass");
  dialog.UserNameChosen(2);
  EXPECT_EQ(Form(), "Korvanta Beta Server|Bert||off");
  dialog.UserNameChosen(3);
  EXPECT_EQ(dialog.form().cboUsernames, "Bert");
}

TEST_F(LoginDialogTest, ANameTypedBackToWhatItWasIsToldToTheListener) {
  Save("Anna", "pass");
  Open();
  dialog.UserNameTyped("Anna");
  int changes = 0;
  dialog.on_changed = [&changes] { ++changes; };
  dialog.UserNameTyped("ANna");  // the box shows it until it is told
  EXPECT_EQ(changes, 1);
  dialog.UserNameTyped("Anna");
  dialog.PasswordTyped("pass");
  dialog.SaveClicked(true);
  EXPECT_EQ(changes, 1);
}

TEST_F(LoginDialogTest, TheFirstFailedCheckIsToldAndNothingChanges) {
  const std::string server = "Server Needed: No server has been selected";
  const std::string length =
      "Invalid Character Length: Username & Password must contain 4 or more characters";
  const std::string characters =
      "Invalid Characters: Username & Password must contain alpha-numeric characters ONLY";
  const struct {
    const char* server;
    const char* name;
    const char* password;
    const std::string& box;
  } cases[] = {
      {"", "ab", "", server},
      {"x", "abc", "1234", length},
      {"x", "abcd", "123", length},
      {"x", "a b", "1 3", length},
      {"x", "ab d", "1234", characters},
      {"x", "ab_d", "1234", characters},
      {"x", "abcd",
       "12\xe9"
       "4",
       characters},
      {"x", " abcd", "1234", characters},
      {"x", "abcd", "1234@", characters},
      {"x", "abcd", "[1234", characters},
      {"x", "abc`", "1234", characters},
      {"x", "{bcd", "1234", characters},
      {"x", "abcd", "/123", characters},
      {"x", "abcd", "12:3", characters},
  };
  Save("Anna", "pass");
  Open();
  for (const auto& c : cases) {
    dialog.ServerTyped(c.server);
    Type(c.name, c.password);
    const std::string before = Form();
    dialog.LoginClicked();
    EXPECT_THAT(box.shown, ElementsAre(c.box)) << c.name << " " << c.password;
    EXPECT_THAT(box.icons, ElementsAre(MessageIcon::Exclamation));
    EXPECT_EQ(Form(), before);
    box.shown.clear();
    box.icons.clear();
  }
  EXPECT_EQ(Slots(), "Anna/pass");
  EXPECT_EQ(saved.LastUser, "");
  EXPECT_TRUE(IsOpen());
  EXPECT_THAT(platform.socket.attempts, IsEmpty());
}

TEST_F(LoginDialogTest, ALoginRemembersTheUserAndStartsTheConnection) {
  const struct {
    const char* what;
    std::vector<SavedLogin> logins;
    bool save;
    const char* slots;
    const char* current;
  } cases[] = {
      {"new, not saved", {}, false, "ANNA/", "ANNA"},
      {"new, saved", {{"Bert", "pw"}}, true, "Bert/pw ANNA/1234", "ANNA"},
      {"known, forgets its password", {{"Anna", "pass"}}, false, "Anna/", "Anna"},
      {"known, another password", {{"Anna", "pass"}}, true, "Anna/1234", "Anna"},
      {"first of two", {{"", ""}, {"anna", ""}, {"Anna", ""}}, true, "/ anna/1234 Anna/", "anna"},
  };
  for (const auto& c : cases) {
    saved.Reset();
    for (const SavedLogin& login : c.logins) {
      saved.Add(login);
    }
    Open();
    dialog.ServerTyped("203.0.113.9");
    Type("ANNA", "1234");
    dialog.SaveClicked(c.save);
    values.ConnectTicks = 5;
    platform.socket.attempts.clear();
    chat.lines.clear();
    dialog.LoginClicked();
    EXPECT_EQ(Slots(), c.slots) << c.what;
    EXPECT_EQ(saved.LastUser, c.current) << c.what;
    EXPECT_EQ(values.CurrentUserName, c.current) << c.what;
    EXPECT_EQ(values.CurrentPassword, "1234") << c.what;
    EXPECT_EQ(values.ConnectTicks, 0) << c.what;
    EXPECT_THAT(platform.socket.attempts,
                ElementsAre(std::pair<std::string, std::uint16_t>("192.0.2.7", 7678)));
    EXPECT_THAT(chat.lines, ElementsAre("3|Connecting as " + std::string(c.current) + "..."));
    EXPECT_FALSE(IsOpen()) << c.what;
  }
  values.ClientVersion = "1.6";
  platform.socket.Accept();
  EXPECT_THAT(platform.socket.sent, ElementsAre(std::string("[con]1.6\1anna\1"
                                                            "1234\0",
                                                            19)));
  EXPECT_THAT(box.shown, IsEmpty());
}

TEST_F(LoginDialogTest, RemovingAUserEmptiesItsSlotAfterAYes) {
  const struct {
    const char* what;
    std::vector<SavedLogin> logins;
    const char* last_user;
    const char* typed;
    std::vector<bool> answers;
    const char* slots;
    const char* last_user_after;
    const char* form;
  } cases[] = {
      {"nobody saved: no question", {}, "", "Anna", {}, "", "", "Korvanta Beta Server|Anna||off"},
      {"no name: no question",
       {{"Anna", "pass"}},
       "",
       "",
       {},
       "Anna/pass",
       "",
       "Korvanta Beta Server|||off"},
      {"no",
       {{"Anna", "pass"}},
       "Anna",
       "anna",
       {false},
       "Anna/pass",
       "Anna",
       "Korvanta Beta Server|Anna|pass|on"},
      {"the last user",
       {{"Anna", "pass"}, {"ANNA", ""}},
       "anna",
       "anna",
       {true},
       "/ ANNA/",
       "",
       "|||on"},
      {"another user",
       {{"Anna", ""}, {"Bert", "pass"}},
       "Bert",
       "anna",
       {true},
       "/ Bert/pass",
       "Bert",
       "|Bert|pass|on"},
      {"a name that is not saved",
       {{"Anna", "pass"}},
       "",
       "Bert",
       {true},
       "Anna/pass",
       "",
       "|||off"},
  };
  for (const auto& c : cases) {
    saved.Reset();
    for (const SavedLogin& login : c.logins) {
      saved.Add(login);
    }
    saved.LastUser = c.last_user;
    Open();
    dialog.UserNameTyped(c.typed);
    box.answers = c.answers;
    box.asked.clear();
    const std::string question = "Remove User: Remove User: " + dialog.form().cboUsernames + "?";
    dialog.RemoveUserClicked();
    EXPECT_EQ(box.asked, c.answers.empty() ? std::vector<std::string>{} : std::vector{question})
        << c.what;
    EXPECT_EQ(Slots(), c.slots) << c.what;
    EXPECT_EQ(saved.LastUser, c.last_user_after) << c.what;
    EXPECT_EQ(Form(), c.form) << c.what;
    dialog.CancelClicked();
  }
}

TEST_F(LoginDialogTest, AUserIsRemovedEvenWhenTheDialogGoesWhileTheQuestionStands) {
  Save("Anna", "pass");
  Save("Bert", "pass");
  saved.LastUser = "Bert";
  Open();
  dialog.UserNameTyped("Anna");
  int changes = 0;
  dialog.on_changed = [&changes] { ++changes; };
  box.answers = {true};
  box.meanwhile = [this] {
    dialog.UserNameTyped("Bert");
    dialog.window().Unload();
  };
  dialog.RemoveUserClicked();
  EXPECT_EQ(Slots(), "/ Bert/pass");
  EXPECT_EQ(dialog.form().cboUsernames, "Bert");
  EXPECT_EQ(changes, 1);
}

TEST_F(LoginDialogTest, ClearEmptiesTheBoxesAlone) {
  Save("Anna", "pass");
  saved.LastUser = "Anna";
  Open();
  dialog.ClearClicked();
  EXPECT_EQ(Form(), "|||on");
  EXPECT_THAT(dialog.form().cboUsernames_list, ElementsAre("Anna"));
  dialog.LoginClicked();
  EXPECT_THAT(box.shown, ElementsAre("Server Needed: No server has been selected"));
}

}  // namespace
}  // namespace korvanta
