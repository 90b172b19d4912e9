#include <QColor>

#include "board/research_board.h"
#include "tests/process/story_test.h"
#include "ui/board_layout.h"

namespace korvanta::process {
namespace {

constexpr int kContentHeight = 660;  ///< of the main window below its menu bar

/// In parts of the main window's width and height.
constexpr QPointF kFirstPlayer{0.76, 0.652};
constexpr QPointF kSecondPlayer{0.76, 0.69};
constexpr QPointF kBelowThePlayers{0.76, 0.93};
constexpr QPointF kChatInput{0.20, 0.955};

/// How thick the topic's colour is along some pixels: '#' thick, '-' thin, '.' not there.
char Thickness(const QImage& board, QPoint from, QPoint step, const Colour& colour) {
  int pixels = 0;
  for (int i = 0; i < 12; ++i, from += step) {
    const QColor seen = board.pixelColor(from);
    pixels += std::abs(seen.red() - colour.red) + std::abs(seen.green() - colour.green) +
                  std::abs(seen.blue() - colour.blue) <
              160;
  }
  return pixels >= 3 ? '#' : pixels > 0 ? '-' : '.';
}

/// The four frames and the four lines of each row, a blank between the rows.
std::string ReadBoard(const QImage& board) {
  std::string rows;
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    std::string frames;
    std::string lines;
    for (int level = 1; level <= kTopLevel; ++level) {
      const QRect box = board_layout::BoxRect(board_layout::BoxAt(row, level));
      const QPoint beside(box.right() + (level < kTopLevel ? 40 : 10),
                          board_layout::RowMiddle(row) - 6);
      frames += Thickness(board, box.topLeft() + QPoint(-3, 12), {1, 0}, kTopics[row].colour);
      lines += Thickness(board, beside, {0, 1}, kTopics[row].colour);
    }
    rows += (row == 0 ? "" : " ") + frames + lines;
  }
  return rows;
}

class GameStory : public StoryTest {
 protected:
  QImage Board() const {
    const QImage window = Look(main_window());
    return window.copy(0, window.height() - kContentHeight, window.width(),
                       board_layout::kSize.height());
  }

  void WaitForBoard(const std::string& expected) const {
    WaitUntil("the board shows " + QString::fromStdString(expected),
              [&] { return ReadBoard(Board()) == expected; });
  }

  void WaitForChange(const QRect& label, const QImage& before) const {
    WaitUntil("a label of the board changes", [&] { return Board().copy(label) != before; });
  }

  void RightClickBox(std::size_t row, int level) const {
    const QImage window = Look(main_window());
    const QPointF box = QRectF(board_layout::BoxRect(board_layout::BoxAt(row, level))).center();
    const QPointF place = box + QPointF(0, window.height() - kContentHeight);
    user_.Click(main_window(), {place.x() / window.width(), place.y() / window.height()}, 3);
  }
};

constexpr const char* kPlainBoard = "-------- -------- -------- --------";

TEST_F(GameStory, FromTheFirstClockToTheNextGame) {
  Start();
  Login("7");
  const QImage at_first = Board();
  WaitForBoard(kPlainBoard);
  server_.Send(
      Bytes("[onl]Marlow\0015\00112\0011\002Aster\0014\00131\0010\002Corin\0017\00122\0010\0"));

  player_->Choose("ctrl+e");
  server_.Expect(Bytes("[jon]\0"));
  server_.Send(Bytes("[tim]90\0[poi]12.50\0"));
  WaitForChange(board_layout::kResearch, at_first.copy(board_layout::kResearch));
  WaitForChange(board_layout::kTickTime, at_first.copy(board_layout::kTickTime));
  Keep("game-begun", main_window());

  // By the mouse.
  RightClickBox(1, 3);
  ChooseItem(1, "box-menu");
  server_.Expect(Bytes("[upg]2\0013\001\0"));
  WaitForBoard(kPlainBoard);
  server_.Send(Bytes("[upg]2\0013\001\0"));
  WaitForBoard("-------- ###-##-- -------- --------");
  RightClickBox(3, 2);
  ChooseItem(2, "defense-menu");
  server_.Expect(Bytes("[inf]4\0"));
  server_.Send(Bytes("[upg]1\0014\0[upg]4\0011\0"));
  WaitForBoard("######## ###-##-- -------- #-------");
  Keep("lit", main_window());

  // By the keyboard: from the chat line back to the board, to the Golden Knowledge and away again.
  user_.Click(main_window(), kChatInput);
  user_.Press({"shift+Tab", "shift+Tab", "Right", "Right", "Right", "Right"});
  Keep("focus-on-the-goal", main_window());
  user_.Press({"Menu"});
  ChooseItem(1, "goal-menu");
  server_.Expect(Bytes("[upg]5\0015\001\0"));
  user_.Press({"Left", "Left", "Down", "Down", "shift+F10"});
  ChooseItem(1, "keyboard-menu");
  server_.Expect(Bytes("[upg]3\0013\001\0"));
  server_.Send(Bytes("[upg]3\0012\0"));
  WaitForBoard("######## ###-##-- ##--#--- #-------");

  // The online list: an entry, the empty place below it, and the keyboard.
  user_.Click(main_window(), kSecondPlayer, 3);
  ChooseItem(1, "player-menu");
  server_.Expect(Bytes("[att]Aster\0"));
  user_.Click(main_window(), kBelowThePlayers, 3);
  ChooseItem(1, "player-menu-below");
  server_.Expect(Bytes("[att]Aster\0"));
  user_.Press({"Up", "Menu"});
  ChooseItem(3, "alliance-menu");
  Answer("Alliance?", "Return");
  server_.Expect(Bytes("[aly]Marlow\0"));

  server_.Send(Bytes("[att]1\0012\0[poi]3\0"));
  WaitForBoard("##--#--- ###-##-- ##--#--- #-------");
  Keep("attacked", main_window());

  player_->Choose("ctrl+m");
  server_.Send(Bytes("[clr]\0"));
  server_.Expect(Bytes("[jon]\0"));
  WaitForBoard(kPlainBoard);
  const QImage cleared = Board();
  EXPECT_EQ(cleared.copy(board_layout::kResearch), at_first.copy(board_layout::kResearch));
  EXPECT_NE(cleared.copy(board_layout::kTickTime), at_first.copy(board_layout::kTickTime));
  Keep("cleared", main_window());
  ExpectNothingSent();
  EXPECT_EQ(Board().copy(board_layout::kTickTime), cleared.copy(board_layout::kTickTime));

  server_.Send(Bytes("[end]61\0"));
  WaitForChange(board_layout::kTickTime, cleared.copy(board_layout::kTickTime));
  player_->Choose("ctrl+m");
  server_.Send(Bytes("[clt]\0"));
  ExpectNothingSent();
  EXPECT_EQ(player_->Leave(), 0);
  server_.Expect(Bytes("[dis]\0"));
}

}  // namespace
}  // namespace korvanta::process
