#include "tests/process/story_test.h"

namespace korvanta::process {
namespace {

/// In parts of the tournament window's width and height.
constexpr QPointF kSecondTeam{0.3, 0.325};
/// Where the tab "Admin" is, when there is one.
constexpr QRect kAdminTab{165, 8, 60, 32};

class TournamentStory : public StoryTest {
 protected:
  void Open() {
    player_->Choose("ctrl+t");
    server_.Expect(Bytes("[tif]\0"));
    tournament_ = WaitFor("Tournament Window");
  }

  /// Presses keys in the tournament window.
  void Press(const QStringList& chords) const {
    user_.Activate(tournament_);
    user_.Press(chords);
  }

  void Fill(const QString& access_key, const QString& text) const {
    Press({access_key});
    user_.Type(text);
  }

  Window tournament_;
};

TEST_F(TournamentStory, APlayersEveningAndAnAdministrators) {
  Start();
  Login("89");
  Open();
  const QImage players_tabs = Look(tournament_).copy(kAdminTab);
  server_.Send(Bytes("[tif]50\001400\0013\00112\0[tdd]Blue\001\001Gold\0"));
  ExpectField(tournament_, "alt+e", "50");
  ExpectField(tournament_, "alt+p", "400");
  ExpectField(tournament_, "alt+c", "3");
  ExpectField(tournament_, "alt+u", "12");
  Keep("figures", tournament_);

  Press({"Return"});
  Answer("Korvanta", "Return");
  Press({"alt+n", "Down", "Down"});
  ExpectField(tournament_, "alt+n", "Gold");
  Fill("alt+w", "secret2");
  Keep("joining", tournament_);
  Press({"Return"});
  server_.Expect(Bytes("[tjo]Gold\001secret2\001\0"));
  Keep("joined", tournament_);
  Press({"Return"});
  Answer("Korvanta", "Return");

  Press({"alt+t"});
  server_.Expect(Bytes("[ttm]\0"));
  server_.Send(Bytes("[ttm]Gold\002\002  Corin \002Blue\0"));
  Press({"alt+k"});
  Answer("Korvanta", "Return");
  user_.Click(tournament_, kSecondTeam);
  Keep("teams", tournament_);
  for (const QString answer : {"Escape", "Return"}) {
    Press({"alt+k"});
    Answer("Korvanta", answer);
  }
  server_.Expect(Bytes("[tkp]Corin\0"));
  for (const QString answer : {"Escape", "Return"}) {
    Press({"alt+d"});
    Answer("Korvanta", answer);
  }
  server_.Expect(Bytes("[tdb]\0"));

  Press({"alt+a", "alt+s"});
  Press({"alt+i"});
  server_.Expect(Bytes("[tif]\0"));
  ExpectField(tournament_, "alt+p", "400");
  Press({"Escape"});
  user_.WaitUntilGone(tournament_);

  // Marlow comes back with an administrator's number.
  player_->Choose("F1");
  server_.Expect(Bytes("[dis]\0"));
  server_.Close();
  player_->WaitForState("Disconnected");
  player_->Choose("F1");
  Login("90");
  Open();
  EXPECT_NE(Look(tournament_).copy(kAdminTab), players_tabs);
  Keep("administrator", tournament_);
  Press({"alt+a"});
  Fill("alt+e", "50");
  Fill("alt+m", "4");
  Fill("alt+p", " 16");
  Keep("admin-page", tournament_);
  Press({"alt+s"});
  server_.Expect(Bytes("[tcr]50\0014\001 16\001\0"));
  Press({"alt+u"});
  server_.Expect(Bytes("[tst]\0"));
  Press({"alt+n"});
  server_.Expect(Bytes("[ted]\0"));
  ExpectNothingSent();
}

}  // namespace
}  // namespace korvanta::process
