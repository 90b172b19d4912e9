#include "ui/online_list/online_list_view.h"

#include <QHeaderView>
#include <QTest>
#include <gmock/gmock.h>

#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

class OnlineListViewTest : public testing::Test {
 protected:
  OnlineListViewTest() {
    view.on_menu = [this](QPoint at) { menus.push_back(at); };
    view.resize(320, 300);
    view.show();
    list.ShowOnlineList(
        "bob\0014\00112\0011\002Ann\0015\0019\0010\002Cid\0019\001new\0010\002ann\0011\0019\0010");
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
      names.push_back(view.model()->index(row, 0).data().toString().toStdString());
    }
    return names;
  }
  void Click(QPoint at, Qt::MouseButton button) {
    QTest::mouseClick(view.viewport(), button, Qt::NoModifier, at);
  }
  QPoint Row(int row) const { return view.visualRect(view.model()->index(row, 0)).center(); }
  QPoint Below() const { return {20, view.viewport()->height() - 5}; }
  std::string Selected() const {
    return list.selected() ? std::string(list.entries()[*list.selected()].name) : "-";
  }

  OnlineList list;
  OnlineListView view{list, nullptr};
  std::vector<QPoint> menus;
};

TEST_F(OnlineListViewTest, TheOrderReceivedIsTheDefaultAndHeadersSort) {
  EXPECT_THAT(Names(), ElementsAre("bob", "Ann", "Cid", "ann"));
  view.sortByColumn(OnlineListModel::Name, Qt::AscendingOrder);
  EXPECT_THAT(Names(), ElementsAre("Ann", "ann", "bob", "Cid"));
  view.sortByColumn(OnlineListModel::Level, Qt::DescendingOrder);
  EXPECT_THAT(Names(), ElementsAre("Cid", "bob", "Ann", "ann"));
  list.ShowOnlineList("x\0011\0015\0010\002y\0011\00110\0010");
  EXPECT_THAT(Names(), ElementsAre("y", "x"));
}

TEST_F(OnlineListViewTest, NamesAreSortedToTheirLastCharacterWithoutRegardToCase) {
  list.ShowOnlineList(
      "Elisabeth2\0011\0011\0010\002\xE9va\0011\0011\0010\002zoe\0011\0011\0010\002"
      "elisabetH10\0011\0011\0010\002\xC9VA\0011\0011\0010\002ELISABETH\0011\0011\0010\002"
      "Anna\0011\0011\0010\002ann\0011\0011\0010");
  view.sortByColumn(OnlineListModel::Name, Qt::AscendingOrder);
  EXPECT_THAT(Names(), ElementsAre("ann", "Anna", "ELISABETH", "elisabetH10", "Elisabeth2", "zoe",
                                   "\u00E9va", "\u00C9VA"));
}

TEST_F(OnlineListViewTest, ARightClickSelectsTheEntryAndAsksForTheMenu) {
  Click(Row(1), Qt::RightButton);
  EXPECT_EQ(Selected(), "Ann");
  EXPECT_EQ(menus.size(), 1U);
  QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::ControlModifier, Row(1));
  EXPECT_EQ(Selected(), "Ann");
  EXPECT_EQ(menus.size(), 2U);
  Click(Below(), Qt::RightButton);
  EXPECT_EQ(Selected(), "Ann");
  EXPECT_EQ(menus.size(), 3U);
  Click(Row(2), Qt::LeftButton);
  EXPECT_EQ(Selected(), "Cid");
  EXPECT_EQ(menus.size(), 3U);
}

TEST_F(OnlineListViewTest, TheSelectionFollowsItsEntryWhenSortedAndGoesWithARebuild) {
  Click(Row(0), Qt::LeftButton);
  view.sortByColumn(OnlineListModel::Name, Qt::AscendingOrder);
  EXPECT_EQ(Selected(), "bob");
  Click(Row(0), Qt::LeftButton);
  EXPECT_EQ(Selected(), "Ann");
  list.ShowOnlineList("new\0011\0011\0010");
  EXPECT_EQ(Selected(), "-");
  EXPECT_FALSE(view.selectionModel()->hasSelection());
}

TEST_F(OnlineListViewTest, TheKeyboardAsksForTheMenuAtTheEntry) {
  Click(Row(1), Qt::LeftButton);
  QTest::keyClick(&view, Qt::Key_Menu);
  ASSERT_EQ(menus.size(), 1U);
  const QRect entry = view.visualRect(view.currentIndex());
  EXPECT_EQ(view.viewport()->mapFromGlobal(menus[0]).y(), entry.bottom());
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
  const QPoint mark(4 + OnlineListModel::kMarkSize / 2, row.height() / 2);
  EXPECT_EQ(selected.pixelColor(mark), plain.pixelColor(mark));
  EXPECT_NE(plain.pixelColor(mark), theme::kPaper);
}

TEST_F(OnlineListViewTest, AMarkIsAPictureAndIsReadAloud) {
  const QModelIndex marked = view.model()->index(0, 0);
  const QModelIndex plain = view.model()->index(1, 0);
  EXPECT_EQ(marked.data(Qt::AccessibleTextRole).toString(), QStringLiteral("bob, marked"));
  EXPECT_EQ(plain.data(Qt::AccessibleTextRole).toString(), QStringLiteral("Ann"));
  EXPECT_EQ(marked.data(Qt::ForegroundRole).value<QColor>(), QColor(0, 192, 0));
  EXPECT_FALSE(marked.data(Qt::DecorationRole).value<QIcon>().isNull());
}

}  // namespace
}  // namespace korvanta
