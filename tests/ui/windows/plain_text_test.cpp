/// Every place that shows what the server or a player wrote, against every kind of text that could
/// be taken for something else than text.
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "tests/ui/main_window_test.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr QRgb kBait = 0xFFFE01FD;

/// Line ends and other control characters come in many forms; what else is there is compared.
QString Printable(QString text) {
  text.remove(QChar(0x200B));  // a place to break a long word, which nobody sees
  std::replace_if(
      text.begin(), text.end(),
      [](QChar c) { return c.category() == QChar::Other_Control || c == QChar::Nbsp; },
      QLatin1Char(' '));
  return text;
}

bool IsBaitTaken(QWidget& widget) {
  const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QByteArrayView pixels(image.constBits(), image.sizeInBytes());
  return pixels.contains({reinterpret_cast<const char*>(&kBait), sizeof kBait});
}

/// The main window with every window that it has.
class PlainTextTest : public MainWindowTest {
 protected:
  enum Extent { Abridged, Whole };  // the former, where the toolkit lays it out

  /// A message that carries a text between `before` and `after`, and where the text is seen.
  struct Place {
    std::string before, after;
    std::function<QString()> look;
    Extent extent;
  };

  PlainTextTest() {
    QImage bait(8, 8, QImage::Format_RGB32);
    bait.fill(kBait);
    EXPECT_TRUE(bait.save(folder.filePath(QStringLiteral("bait.png"))));
    LogIn("12");
    for (const auto& [name, life] : side_windows) {
      life->Show();
    }
    QApplication::processEvents();
  }

  QVariant Cell(const std::string& list, int role, int column = 0) const {
    const QAbstractItemModel& model = *Get<QTreeView>(list).model();
    return model.rowCount() > 0 ? model.index(0, column).data(role) : QVariant();
  }
  std::function<QString()> Box(std::string_view name) const {
    return [=, this] { return Get<QLineEdit>(std::string(name)).text(); };
  }
  std::function<QString()> List(const char* name, int role, int column = 0) const {
    return [=, this] { return Cell(name, role, column).toString(); };
  }
  /// What stands between the quotation marks of a frame's caption.
  std::function<QString()> Frame(const char* name, const char* property) const {
    return [=, this] {
      QString text = Get<QGroupBox>(name).property(property).toString();
      text.replace(QStringLiteral("&&"), QStringLiteral("&"));
      text.remove(0, text.indexOf(QLatin1Char('\'')) + 1);
      return text.endsWith(QLatin1Char('\'')) ? text.chopped(1) : text;
    };
  }
  std::vector<Place> Places() const;
  bool IsBaitSeen() const {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [](QWidget* widget) { return widget->isVisible() && IsBaitTaken(*widget); });
  }
  /// Title or name, and place, of everything that has a name.
  std::map<std::string, QRect> Layout() const {
    std::map<std::string, QRect> layout;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->objectName().startsWith(QLatin1String("qt_"))) {
        layout[(widget->objectName() + widget->windowTitle()).toStdString()] = widget->geometry();
      }
    }
    return layout;
  }
  std::string Markup() const {
    const std::string file = ToBytes(folder.filePath(QStringLiteral("bait.png")));
    return "<img src='" + file + "'><b>b</b> <a href=\"file:" + file + "\">a</a><script>x</script>";
  }
  std::vector<std::pair<const char*, std::string>> Texts() const {
    std::string bytes;
    for (int byte = 3; byte < 256; ++byte) {
      bytes += static_cast<char>(byte);
    }
    return {{"a word without an end", std::string(1'000'000, 'W')},
            {"nothing", ""},
            {"markup", Markup()},
            {"entities and mnemonics", "a &amp; &#x41; & &File  % %1 \\n &"},
            {"every byte", bytes},
            {"blanks and line ends", " a\n\nb\rc\n"}};
  }
  static void ExpectShown(const std::string& text, QString shown, Extent extent) {
    const QString whole = Printable(ToQString(text));
    shown = Printable(shown);
    const qsizetype cut = shown.indexOf(QChar(0x2026));
    const bool is_abridged = shown.size() > 8 && shown.size() < 100'000 && cut >= 0 &&
                             whole.startsWith(shown.first(cut)) &&
                             whole.endsWith(shown.sliced(cut + 1));
    EXPECT_TRUE(shown == whole || (extent == Abridged && is_abridged))
        << shown.left(300).toStdString();
  }

  QTemporaryDir folder;
};

std::vector<PlainTextTest::Place> PlainTextTest::Places() const {
  const std::string figures = "\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0011";
  const std::string player = "\0011\0011\0010";
  std::vector<Place> places = {
      {"[msg]blk\001", "\001False", [this] { return ToQString(TextOf("rbMessages")).chopped(2); },
       Whole},
      {"[nws]", "", [this] { return ToQString(TextOf("rbNews")); }, Whole},
      {"[onl]", player, List("lstOnline", Qt::DisplayRole), Abridged},
      {"[onl]", player, List("lstOnline", Qt::AccessibleTextRole), Whole},
      {"[onl]Ann\0011\001", "\0010", List("lstOnline", Qt::DisplayRole, 1), Abridged},
      {"[bre]", figures, Frame("frmUserData", "title"), Abridged},
      {"[bre]", figures, Frame("frmUserData", "accessibleName"), Whole},
      {"[bre]", figures, Frame("frmAward", "title"), Abridged},
      {"[tif]", "\0011\0012\0013", Box("iEntryFee"), Abridged},
      {"[tif]1\001", "\0011\0012", Box("txtPurse"), Abridged},
      {"[tif]1\0011\001", "\0012", Box("iMaxTeams"), Abridged},
      {"[tif]1\0011\0012\001", "", Box("iMaxPlayers"), Abridged},
      {"[ttm]", "", List("lstTeams", Qt::AccessibleTextRole), Whole},
      {"[tdd]", "", [this] { return Get<QComboBox>("cmbTeam").itemText(0); }, Whole},
  };
  for (const StatisticsField& field : kStatisticsFields) {
    const std::size_t behind = 2 * field.reply_field;
    places.push_back({"[bre]Ann" + figures.substr(0, behind - 1), figures.substr(behind),
                      Box(field.control), Abridged});
  }
  return places;
}

TEST_F(PlainTextTest, WhatTheServerSendsIsShownAsItIsAndMovesNothing) {
  for (const Place& place : Places()) {
    for (const auto& [name, text] : Texts()) {
      SCOPED_TRACE(std::string(name) + " in " + place.before);
      const auto layout = Layout();
      client.message_view.Clear();
      Receive(place.before + text + place.after);
      QApplication::processEvents();
      EXPECT_EQ(Layout(), layout);
      EXPECT_TRUE(text != Markup() || !IsBaitSeen());
      ExpectShown(text, place.look(), place.extent);
    }
  }
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_TRUE(label->textFormat() == Qt::PlainText || label->buddy() != nullptr)
        << label->text().toStdString();
  }
}

TEST_F(PlainTextTest, TheUsersOwnAreShownWhole) {
  for (const auto& [name, text] : Texts()) {
    SCOPED_TRACE(name);
    client.saved_logins.Add({text, ""});
    client.saved_logins.LastUser = text;
    client.login_dialog.window().Unload();
    Open("frmLogin");
    ExpectShown(text, Get<QComboBox>("cboUsernames").currentText(), Whole);
  }
}

/// The box fits the screen with its button.
TEST_F(PlainTextTest, MessageBoxesShowEveryText) {
  for (const auto& [name, text] : Texts()) {
    SCOPED_TRACE(name);
    QTimer::singleShot(0, qApp, [text = text] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_TRUE(box->screen()->geometry().contains(QRect({}, box->size()))) << box->height();
      const QWidget& button = *box->button(QMessageBox::Ok);
      EXPECT_TRUE(box->rect().contains({button.mapTo(box, QPoint()), button.size()}));
      EXPECT_FALSE(IsBaitTaken(*box));
      ExpectShown(text, box->text(), Abridged);
      box->close();
    });
    QtMessageBox().Show(text, "Korvanta", MessageIcon::None);
  }
}

TEST_F(PlainTextTest, ToolTipsShowMarkupAsText) {
  const std::string text = Markup();
  Receive("[onl]" + text + "\0011\001" + text + "\0010");
  Receive("[ttm]" + text);
  Receive("[bre]" + std::string(200, 'W') + text + std::string(26, '\001'));
  for (const QString& tip :
       {Cell("lstOnline", Qt::ToolTipRole).toString(),
        Cell("lstOnline", Qt::ToolTipRole, 1).toString(),
        Cell("lstTeams", Qt::ToolTipRole).toString(), Get("frmUserData").toolTip()}) {
    QToolTip::showText({9, 9}, tip, &window);
    QApplication::processEvents();
    ASSERT_TRUE(QToolTip::isVisible());
    EXPECT_FALSE(IsBaitSeen());
    QString shown = QTextDocumentFragment::fromHtml(tip).toPlainText();
    EXPECT_TRUE(shown.remove(QLatin1Char('\n')).contains(ToQString(text))) << shown.toStdString();
  }
  QLabel rich(ToQString(text));  // in which it would be seen
  EXPECT_TRUE(IsBaitTaken(rich));
}

}  // namespace
}  // namespace korvanta
