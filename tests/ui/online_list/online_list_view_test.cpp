#include "ui/online_list/online_list_view.h"

#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <gmock/gmock.h>

#include "tests/ui/main_window_test.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

class OnlineListViewTest : public MainWindowTest {
 protected:
  OnlineListViewTest() {
    view.on_menu = [this](QPoint at, OpenedBy by) { menus.emplace_back(at, by); };
    list.ShowOnlineList(
        "bob\0014\00112\0011\002Ann\0015\0019\0010\002Cid\0019\001new\0010\002ann\0011\0019\0010");
  }

  /// As they stand when sorted so.
  std::vector<std::string> Names(int column, Qt::SortOrder order = Qt::AscendingOrder) {
    view.sortByColumn(column, order);
    std::vector<std::string> names;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
      names.push_back(view.model()->index(row, 0).data().toString().toStdString());
    }
    return names;
  }
  void Click(QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(view.viewport(), button, modifiers, at);
  }
  QPoint Row(int row) const { return view.visualRect(view.model()->index(row, 0)).center(); }
  std::string Selected() const {
    return list.selected() ? std::string(list.entries()[*list.selected()].name) : "-";
  }

  OnlineList& list = client.online_list;
  OnlineListView& view = Get<OnlineListView>("lstOnline");
  std::vector<std::pair<QPoint, OpenedBy>> menus;
};

TEST_F(OnlineListViewTest, TheOrderReceivedIsTheDefaultAndHeadersSort) {
  EXPECT_THAT(Names(-1), ElementsAre("bob", "Ann", "Cid", "ann"));
  EXPECT_THAT(Names(OnlineListModel::Name), ElementsAre("Ann", "ann", "bob", "Cid"));
  EXPECT_THAT(Names(OnlineListModel::Level, Qt::DescendingOrder),
              ElementsAre("Cid", "bob", "Ann", "ann"));
  list.ShowOnlineList(
      "Elisabeth2\0011\0015\0010\002\xE9va\0011\00110\0010\002"
      "elisabetH10\0011\0011\0010\002\xC9VA\0011\0011\0010\002ELISABETH\0011\0011\0010");
  EXPECT_THAT(Names(OnlineListModel::Name),
              ElementsAre("ELISABETH", "elisabetH10", "Elisabeth2", "\u00E9va", "\u00C9VA"));
}

TEST_F(OnlineListViewTest, ClicksOnAHeaderTurnTheOrderRoundAndDraggingMovesNoColumn) {
  const QHeaderView& header = *view.header();
  QWidget& area = *header.viewport();
  const int y = area.height() / 2;
  for (const char* first : {"Ann", "Cid", "bob"}) {
    QTest::mouseClick(&area, Qt::LeftButton, {}, {20, y});
    EXPECT_EQ(view.model()->index(0, 0).data(), QLatin1String(first));
  }
  const int edge = header.sectionPosition(OnlineListModel::Level);
  for (const int from : {edge + 20, area.width() - 2}) {
    const QPoint to(from - 60, y);
    QMouseEvent move(QEvent::MouseMove, to, area.mapToGlobal(to), {}, Qt::LeftButton, {});
    QTest::mousePress(&area, Qt::LeftButton, {}, {from, y});
    QApplication::sendEvent(&area, &move);
    QTest::mouseRelease(&area, Qt::LeftButton, {}, to);
    EXPECT_EQ(area.findChild<QLabel*>(), nullptr) << "a column at the pointer";
    EXPECT_EQ(header.sectionPosition(OnlineListModel::Level), edge);
  }
}

TEST_F(OnlineListViewTest, ARightClickSelectsTheEntryAndAsksForTheMenuAsTheMenuKeyDoes) {
  const auto expect_menu = [this](QPoint place, OpenedBy by) {
    EXPECT_THAT(std::exchange(menus, {}),
                ElementsAre(std::pair(view.viewport()->mapToGlobal(place), by)));
  };
  const std::pair<QPoint, Qt::KeyboardModifiers> clicks[] = {
      {Row(1), {}},
      {Row(1), Qt::ControlModifier},
      {{20, view.viewport()->height() - 5}, {}}};  // below the entries
  for (const auto& [place, modifiers] : clicks) {
    Click(place, Qt::RightButton, modifiers);
    EXPECT_EQ(Selected(), "Ann");
    expect_menu(place, OpenedBy::Mouse);
  }
  Click(Row(2), Qt::LeftButton);
  EXPECT_EQ(Selected(), "Cid");
  QTest::keyClick(&view, Qt::Key_Menu);
  expect_menu(view.visualRect(view.currentIndex()).bottomLeft(), OpenedBy::Keyboard);
}

TEST_F(OnlineListViewTest, TheSelectionFollowsItsEntryWhenSortedAndGoesWithARebuild) {
  Click(Row(0), Qt::LeftButton);
  Names(OnlineListModel::Name);
  EXPECT_EQ(Selected(), "bob");
  Click(Row(0), Qt::LeftButton);
  EXPECT_EQ(Selected(), "Ann");
  list.ShowOnlineList("new\0011\0011\0010");
  EXPECT_EQ(Selected(), "-");
  EXPECT_FALSE(view.selectionModel()->hasSelection());
}

TEST_F(OnlineListViewTest, TheFirstArrowKeySelectsTheFirstEntryOnAGroundThatLeavesItsMarkAsItIs) {
  view.setFocus();
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_EQ(Selected(), "bob");
  const QRect row = view.visualRect(view.currentIndex());
  const QImage selected = view.viewport()->grab(row).toImage();
  EXPECT_EQ(selected.pixelColor(1, 1), theme::kSelection);
  view.clearSelection();
  const QImage plain = view.viewport()->grab(row).toImage();
  const QModelIndex bob = view.indexAt(row.center());
  EXPECT_EQ(bob.data(Qt::AccessibleTextRole), QStringLiteral("bob, marked"));
  EXPECT_TRUE(bob.data(Qt::ToolTipRole).toString().contains(u"Right click"));
  EXPECT_EQ(bob.data(Qt::ForegroundRole).value<QColor>(), QColor(0, 192, 0));
  const QPoint mark(4 + OnlineListModel::kMarkSize / 2, row.height() / 2);
  EXPECT_EQ(selected.pixelColor(mark), plain.pixelColor(mark));
  EXPECT_NE(plain.pixelColor(mark), theme::kPaper);
}

}  // namespace
}  // namespace korvanta
