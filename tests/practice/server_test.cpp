/// Connections and logins.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

TEST_F(PracticeServerTest, RefusedLoginsAreToldWhyAndEnd) {
  LogIn("Anna");
  Send(LogIn("Gone"), "[dis]");
  const std::vector<std::pair<std::string, const char*>> refusals = {
      {"[con]1.6|Carol", "lacks"},
      {"[con]1.6|abc|secret", "4 to 20"},
      {"[con]1.6|" + std::string(21, 'x') + "|secret", "4 to 20"},
      {"[con]1.6|Ann\xe9|secret", "letters and digits"},
      {"[con]1.6|Carol|", "1 to 64"},
      {"[con]1.6|Carol|" + std::string(65, 'x'), "1 to 64"},
      {"[con]1.6|gone|Secret", "Wrong password"},
      {"[con]1.6|ANNA|secret", "Anna is logged in already"},
  };
  for (const auto& [login, reason] : refusals) {
    const auto connection = Connect();
    ExpectRefusals({{connection, login, reason}});
    EXPECT_TRUE(IsClosed(connection)) << login;
    EXPECT_THAT(Answers(connection, "[con]1.6|Later|secret"), IsEmpty());
  }
}

TEST_F(PracticeServerTest, LoginsAndLogoutsAreShownToOthersHoweverTheyHappen) {
  const auto anna = LogIn("Anna");
  for (const bool says_so : {true, false}) {
    Settle();
    const auto bobby = LogIn(says_so ? "Bobby" : "bOBBY");
    Pass(100ms);
    EXPECT_THAT(Heard(anna), ElementsAre("[log]Bobby logged in", "[onl]Anna|1|1|0&Bobby|5|1|0"));
    Settle();
    says_so ? Send(bobby, "[dis]") : server.Vanished(bobby);
    EXPECT_EQ(IsClosed(bobby), says_so);
    EXPECT_EQ(journal.back(), "Bobby logged out");
    EXPECT_THAT(Heard(bobby), IsEmpty());
    Pass(100ms);
    EXPECT_THAT(Heard(anna), ElementsAre("[log]Bobby logged out", "[onl]Anna|1|1|0"));
  }
}

TEST_F(PracticeServerTest, BeforeTheLoginNothingElseIsHeardAndNotForLong) {
  const auto anna = LogIn("Anna");
  Settle();
  const auto silent = Connect();
  Pass(10s);
  const auto late = Connect();
  for (const char* message : {"[ctc]c hello", "[dis]", "[p]", "", "nonsense", "[nws]"}) {
    Send(silent, message);
  }
  Pass(19900ms);
  EXPECT_THAT(Heard(silent), IsEmpty());
  Pass(100ms);
  EXPECT_THAT(Heard(silent), ElementsAre(HasSubstr("30 seconds")));
  EXPECT_TRUE(IsClosed(silent));
  EXPECT_FALSE(IsClosed(late));
  EXPECT_FALSE(IsClosed(anna));
}

TEST_F(PracticeServerTest, MessagesAreWholeHoweverTheirBytesArriveUnlessTheyAreTooLong) {
  const auto anna = Connect();
  for (char byte : "[con]1.6\1Anna\1secret\0[ctc]c hi\0[ctc]c the"s) {
    server.Received(anna, {&byte, 1});
  }
  EXPECT_THAT(Heard(anna), AllOf(Contains("[con]Anna|90"), Contains("[msg]cht|Anna: hi|False")));
  server.Received(anna, "re\0[ctc]c a\0[dis]\0[ctc]c never\0"s);
  EXPECT_THAT(Heard(anna), ElementsAre("[msg]cht|Anna: there|False", "[msg]cht|Anna: a|False"));
  for (const std::size_t excess : {0U, 1U}) {
    const auto connection = LogIn("Anna");
    const std::string message(Server::kLongestMessage + excess, 'x');
    server.Received(connection, "[ctc]c first\0"s + message + '\0');
    EXPECT_THAT(Heard(connection),
                ElementsAre("[msg]cht|Anna: first|False",
                            HasSubstr(excess == 0 ? "does not know" : "far too long")));
    EXPECT_EQ(IsClosed(connection), excess > 0);
    server.Vanished(connection);
  }
}

TEST_F(PracticeServerTest, EveryOddRequestIsAnsweredAndTheKeepAliveAlonePassesInSilence) {
  const auto anna = LogIn("Anna");
  for (const char* message : {"", "[zzz]", "[CTC]c hi", "ctc", "[con]1.6|Anna|secret", "[upg]",
                              "[tjo]Foxes", "[tcr]5|"}) {
    ExpectRefusals({{anna, message, ""}});
  }
  EXPECT_THAT(Answers(anna, "[p]"), IsEmpty());
}

TEST(Accounts, UserIdsOfOrdinaryPlayersStayBelowTheAdministrators) {
  Accounts accounts;
  for (int i = 0; i < 200; ++i) {
    const Account* account = accounts.Admit("name" + std::to_string(i), "secret").account;
    EXPECT_EQ(account->user_id, i == 0 ? 90 : std::min(i, 89));
  }
}

}  // namespace
}  // namespace korvanta::practice
