#include "tests/process/story_test.h"

namespace korvanta::process {
namespace {

/// In parts of the side window's width and height.
constexpr QPointF kNameToLookUp{0.3, 0.06};
constexpr QPointF kNewsText{0.4, 0.4};

QByteArray Record(const QByteArray& name, const QByteArray& score, const QByteArray& awards) {
  return "[bre]" + name + "\001Guild\00117\0014\0019\001100\0015\0018\0010\001" + score +
         "\0013\0011\001" + awards + '\0';
}

class LookUpStory : public StoryTest {};

TEST_F(LookUpStory, TwoPlayersAreLookedUpWhileNewsArrives) {
  Start();
  Login("7");
  server_.Send(Bytes("[onl]Marlow\0015\00112\0011\002Brisk\0013\0018\0010\0"));

  player_->Choose("ctrl+l");
  server_.Expect(Bytes("[bre]Marlow\0"));
  Window statistics = WaitFor("Search Online User");
  Keep("nobody", statistics);
  server_.Send(Record("Marlow", "12", "24"));
  ExpectField(statistics, "alt+t", "12");
  Keep("own-record", statistics);

  user_.Click(statistics, kNameToLookUp);
  user_.Type("Aster");
  user_.Press({"Return"});
  server_.Expect(Bytes("[bre]Aster\0"));
  server_.Send(Bytes("[nws]Old news\0") + Record("Aster", "51500", "5\00221\0020\0021"));
  server_.Expect(Bytes("[nws]\0"));
  ExpectField(statistics, "alt+t", "51500");
  ExpectField(statistics, "alt+b", "3");
  Keep("aster", statistics);
  server_.Send(Bytes("[nws]Storms tonight\r\nNew maps\0"));

  // The open window is asked for nothing but the player.
  const auto look_up_second_player = [this](const QString& picture) {
    ExpectNothingSent();
    user_.Press({"Tab", "Tab", "Home", "Down", "shift+F10"});
    ChooseItem(2, picture);
  };
  look_up_second_player("open");
  server_.Expect(Bytes("[bre]Brisk\0"));
  server_.Send(Record("Brisk", "900", ""));
  ExpectField(statistics, "alt+t", "900");
  Keep("brisk", statistics);

  // A new one asks for the user's own record first.
  user_.Press({"Escape"});
  user_.WaitUntilGone(statistics);
  look_up_second_player("anew");
  server_.Expect(Bytes("[bre]Marlow\0[bre]Brisk\0"));
  statistics = WaitFor("Search Online User");
  server_.Send(Record("Marlow", "12", "24") + Record("Brisk", "901", "20\00223"));
  ExpectField(statistics, "alt+t", "901");

  EXPECT_FALSE(user_.Sees(program_->pid(), "News"));
  player_->Choose("F3");
  const Window news = WaitFor("News");
  user_.WaitForText(news, kNewsText, "the last news", [](const QString& text) {
    return text.trimmed() == "Storms tonight\nNew maps";
  });
  Keep("news", news);
  Keep("everything");
  ExpectNothingSent();
}

}  // namespace
}  // namespace korvanta::process
