/// Connections and logins.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(PracticeServerTest, FirstLoginMakesAnAdministratorAndTellsANewcomerWhatToDo) {
  const auto anna = Connect();
  Send(anna, "[con]1.6|Anna|secret");
  EXPECT_THAT(Heard(anna),
              ElementsAre("[con]Anna|90", StartsWith("[msg]ann|Korvanta: Welcome, Anna!"),
                          HasSubstr("/help"), StartsWith("[msg]adm|Server: "), "[onl]Anna|1|1|0"));

  const auto bobby = Connect();
  Send(bobby, "[con]|bobby|x");
  EXPECT_THAT(Heard(bobby), Contains("[con]bobby|1"));
  EXPECT_EQ(LogIn("Carol"), ConnectionId{3});
  EXPECT_THAT(journal, ElementsAre("Anna logged in", "bobby logged in", "Carol logged in"));
}

TEST_F(PracticeServerTest, RefusedLoginsAreToldWhyAndEnd) {
  LogIn("Anna");
  Send(LogIn("Gone"), "[dis]");
  const std::vector<std::pair<std::string, std::string>> refusals = {
      {"[con]", "lacks"},
      {"[con]1.6|Carol", "lacks"},
      {"[con]1.6|abc|secret", "4 to 20"},
      {"[con]1.6|" + std::string(21, 'x') + "|secret", "4 to 20"},
      {"[con]1.6|some name|secret", "letters and digits"},
      {"[con]1.6|Ann\xe9|secret", "letters and digits"},
      {"[con]1.6|Carol|", "1 to 64"},
      {"[con]1.6|Carol|" + std::string(65, 'x'), "1 to 64"},
      {"[con]1.6|gone|Secret", "Wrong password"},
      {"[con]1.6|ANNA|secret", "Anna is logged in already"},
  };
  for (const auto& [login, reason] : refusals) {
    SCOPED_TRACE(login);
    const auto connection = Connect();
    Send(connection, login);
    EXPECT_THAT(Heard(connection),
                ElementsAre(testing::AllOf(StartsWith("[msg]adm|Server: "), HasSubstr(reason))));
    EXPECT_TRUE(IsClosed(connection));
    Send(connection, "[con]1.6|Later|secret");
    EXPECT_THAT(Heard(connection), IsEmpty());
  }
}

TEST_F(PracticeServerTest, ANameKeepsItsFirstPasswordAndLetterCaseForTheRun) {
  Send(LogIn("Anna"), "[dis]");
  const auto again = Connect();
  Send(again, "[con]1.6|aNNA|secret");
  EXPECT_THAT(Heard(again), Contains("[con]Anna|90"));
}

TEST_F(PracticeServerTest, OthersHearOfLoginsAndLogoutsHoweverTheyHappen) {
  const auto anna = LogIn("Anna");
  Settle();
  const auto bobby = LogIn("Bobby");
  EXPECT_THAT(Heard(anna), ElementsAre("[log]Bobby logged in", "[onl]Anna|1|1|0&Bobby|5|1|0"));
  Settle();
  Send(bobby, "[dis]");
  EXPECT_THAT(Heard(anna), ElementsAre("[log]Bobby logged out", "[onl]Anna|1|1|0"));
  EXPECT_THAT(Heard(bobby), IsEmpty());
  EXPECT_TRUE(IsClosed(bobby));

  Settle();
  const auto carol = LogIn("Carol");
  Settle();
  server.Vanished(carol);
  EXPECT_THAT(Heard(anna), ElementsAre("[log]Carol logged out", "[onl]Anna|1|1|0"));
  EXPECT_FALSE(IsClosed(carol));
  EXPECT_EQ(journal.back(), "Carol logged out");
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
  EXPECT_FALSE(IsClosed(silent));
  Pass(100ms);
  EXPECT_THAT(Heard(silent), ElementsAre(HasSubstr("30 seconds")));
  EXPECT_TRUE(IsClosed(silent));
  EXPECT_FALSE(IsClosed(late));
  EXPECT_FALSE(IsClosed(anna));
  EXPECT_THAT(Heard(anna), IsEmpty());
}

TEST_F(PracticeServerTest, MessagesAreWholeHoweverTheirBytesArrive) {
  const auto anna = Connect();
  for (char byte : "[con]1.6\1Anna\1secret\0[ctc]c hi\0[ctc]c the"s) {
    server.Received(anna, {&byte, 1});
  }
  EXPECT_THAT(Heard(anna),
              testing::AllOf(Contains("[con]Anna|90"), Contains("[msg]cht|Anna: hi|False")));
  server.Received(anna, "re\0[ctc]c a\0[dis]\0[ctc]c never\0"s);
  EXPECT_THAT(Heard(anna), ElementsAre("[msg]cht|Anna: there|False", "[msg]cht|Anna: a|False"));
}

TEST_F(PracticeServerTest, AMessageThatIsTooLongEndsTheConnection) {
  const auto longest = LogIn("Anna");
  const std::size_t most = MessageStream::kLongestMessage;
  server.Received(longest, std::string(most, 'x'));
  EXPECT_FALSE(IsClosed(longest));
  EXPECT_THAT(Answers(longest, ""), ElementsAre(HasSubstr("does not know")));
  for (bool terminated : {false, true}) {
    const auto connection = LogIn("Bobby");
    std::string bytes = "[ctc]c first";
    bytes += kMessageTerminator;
    bytes += std::string(most + 1, 'x');
    if (terminated) {
      bytes += kMessageTerminator;
    }
    server.Received(connection, bytes);
    EXPECT_THAT(Heard(connection),
                ElementsAre("[msg]cht|Bobby: first|False", HasSubstr("too long")));
    EXPECT_TRUE(IsClosed(connection));
  }
}

TEST_F(PracticeServerTest, EveryOddRequestIsAnsweredAndTheKeepAliveAlonePassesInSilence) {
  const auto anna = LogIn("Anna");
  for (const char* message : {"", "[zzz]", "[CTC]c hi", "ctc", "[con]1.6|Anna|secret", "[upg]",
                              "[tjo]Foxes", "[tcr]5|"}) {
    EXPECT_THAT(Answers(anna, message), ElementsAre(StartsWith("[msg]adm|Server: "))) << message;
  }
  EXPECT_THAT(Answers(anna, "[p]"), IsEmpty());
}

TEST_F(PracticeServerTest, FarewellReachesEveryPlayer) {
  const auto anna = LogIn("Anna");
  const auto bobby = LogIn("Bobby");
  const auto stranger = Connect();
  Settle();
  server.SayFarewell();
  EXPECT_THAT(Heard(anna), ElementsAre(StartsWith("[msg]ann|Korvanta: ")));
  EXPECT_THAT(Heard(bobby), ElementsAre(StartsWith("[msg]ann|Korvanta: ")));
  EXPECT_THAT(Heard(stranger), IsEmpty());
}

TEST(Accounts, UserIdsOfOrdinaryPlayersStayBelowTheAdministrators) {
  Accounts accounts;
  for (int i = 0; i < 200; ++i) {
    const Account* account = accounts.Admit("name" + std::to_string(i), "secret").account;
    ASSERT_NE(account, nullptr);
    EXPECT_EQ(account->user_id, i == 0 ? 90 : std::min(i, 89));
    EXPECT_EQ(account->number, static_cast<std::size_t>(i) + 1);
  }
}

}  // namespace
}  // namespace korvanta::practice
