/// Every place that shows what the server or a player wrote, against every kind of text that could
/// be taken for something else than text.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
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

/// Whether any window shows the picture that the markup asks for.
bool IsBaitSeen() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::any_of(windows.begin(), windows.end(), [](QWidget* window) {
    const QImage image = window->isVisible() ? window->grab().toImage() : QImage();
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    const QByteArrayView pixels(rgb.constBits(), rgb.sizeInBytes());
    return pixels.contains({reinterpret_cast<const char*>(&kBait), sizeof kBait});
  });
}

/// Line ends and other control characters come in many forms; what else is there is compared.
QString Printable(QString text) {
  text.remove(QChar(0x200B));  // a place to break a long word, which nobody sees
  std::replace_if(
      text.begin(), text.end(),
      [](QChar c) { return c.category() == QChar::Other_Control || c == QChar::Nbsp; },
      QLatin1Char(' '));
  return text;
}

enum Extent { Abridged, Whole, InToolTip };  // the first, where the toolkit lays it out

void ExpectShown(const std::string& text, QString shown, Extent extent) {
  const QString whole = Printable(ToQString(text));
  shown = Printable(shown);
  const qsizetype cut = shown.indexOf(QChar(0x2026));
  const bool is_abridged = shown.size() > 8 && shown.size() < 100'000 && cut >= 0 &&
                           whole.startsWith(shown.first(cut)) &&
                           whole.endsWith(shown.sliced(cut + 1));
  EXPECT_TRUE(shown == whole || (extent == Abridged && is_abridged) ||
              (extent == InToolTip && shown.contains(whole)))
      << shown.left(300).toStdString();
}

/// The main window with every window that it has.
class PlainTextTest : public MainWindowTest {
 protected:
  /// A message that carries a text between `before` and `after`, and where the text is seen, with
  /// words around it.
  struct Place {
    std::string before, after;
    std::function<QString()> look;
    Extent extent;
    std::string words_before = {}, words_after = {};
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

  std::function<QString()> Property(std::string_view name,
                                    const std::string& property = "text") const {
    return [=, this, control = std::string(name)] {
      QString text = Get(control).property(property.c_str()).toString();
      // Of two marks of a mnemonic the second is shown, of one none.
      static const QRegularExpression mark(QStringLiteral("&(&?)"));
      return property == "title" ? text.replace(mark, QStringLiteral("\\1")) : text;
    };
  }
  std::function<QString()> List(const char* name, int role, int column = 0) const {
    return [=, this] {
      const QAbstractItemModel& model = *Get<QTreeView>(name).model();
      return model.rowCount() > 0 ? model.index(0, column).data(role).toString() : QString();
    };
  }
  /// Shows the tool tip too.
  std::function<QString()> Tip(const std::function<QString()>& look) {
    return [=, this] {
      QToolTip::showText({9, 9}, look(), &window);
      QApplication::processEvents();
      EXPECT_TRUE(QToolTip::isVisible());
      return QTextDocumentFragment::fromHtml(look()).toPlainText().remove(QLatin1Char('\n'));
    };
  }
  std::vector<Place> Places();
  /// Title or name, and place, of everything that has a name.
  std::map<std::string, QRect> Layout() const {
    std::map<std::string, QRect> layout;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      const QString name = widget->objectName() + widget->windowTitle();
      if (!name.startsWith(QLatin1String("qt_")) && !name.startsWith(QLatin1String("qtooltip"))) {
        layout[name.toStdString()] = widget->geometry();
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

  QTemporaryDir folder;
};

std::vector<PlainTextTest::Place> PlainTextTest::Places() {
  const std::string figures = "\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0011";
  const std::string player = "\0011\0011\0010";
  const std::string long_name(200, 'W');
  std::vector<Place> places = {
      {"[msg]blk\001", "\001False", [this] { return ToQString(TextOf("rbMessages")); }, Whole, "",
       "\r\n"},
      {"[nws]", "", [this] { return ToQString(TextOf("rbNews")); }, Whole},
      {"[onl]", player, List("lstOnline", Qt::DisplayRole), Abridged},
      {"[onl]", player, List("lstOnline", Qt::AccessibleTextRole), Whole},
      {"[onl]", player, Tip(List("lstOnline", Qt::ToolTipRole)), InToolTip},
      {"[onl]Ann\0011\001", "\0010", List("lstOnline", Qt::DisplayRole, 1), Abridged},
      {"[onl]Ann\0011\001", "\0010", Tip(List("lstOnline", Qt::ToolTipRole, 1)), InToolTip},
      {"[bre]", figures, Property("frmUserData", "title"), Abridged, "Statistics for '", "'"},
      {"[bre]", figures, Property("frmUserData", "accessibleName"), Whole, "Statistics for '", "'"},
      {"[bre]" + long_name, figures, Tip(Property("frmUserData", "toolTip")), InToolTip},
      {"[bre]", figures, Property("frmAward", "title"), Abridged, "Awards for '", "'"},
      {"[tif]", "\0011\0012\0013", Property("iEntryFee"), Abridged},
      {"[tif]1\001", "\0011\0012", Property("txtPurse"), Abridged},
      {"[tif]1\0011\001", "\0012", Property("iMaxTeams"), Abridged},
      {"[tif]1\0011\0012\001", "", Property("iMaxPlayers"), Abridged},
      {"[ttm]", "", List("lstTeams", Qt::AccessibleTextRole), Whole},
      {"[ttm]", "", Tip(List("lstTeams", Qt::ToolTipRole)), InToolTip},
      {"[tdd]", "", [this] { return Get<QComboBox>("cmbTeam").itemText(0); }, Whole},
  };
  for (const StatisticsField& field : kStatisticsFields) {
    const std::size_t behind = 2 * field.reply_field;
    places.push_back({"[bre]Ann" + figures.substr(0, behind - 1), figures.substr(behind),
                      Property(field.control), Abridged});
  }
  return places;
}

TEST_F(PlainTextTest, WhatTheServerSendsIsShownAsItIsAndMovesNothing) {
  for (const Place& place : Places()) {
    for (const auto& [name, text] : Texts()) {
      if (place.extent == InToolTip && text != Markup()) {
        continue;  // it is the one kind of text that a tool tip could take amiss
      }
      SCOPED_TRACE(std::string(name) + " in " + place.before);
      const auto layout = Layout();
      client.message_view.Clear();
      Receive(place.before + text + place.after);
      QApplication::processEvents();
      EXPECT_EQ(Layout(), layout);
      ExpectShown(place.words_before + text + place.words_after, place.look(), place.extent);
      EXPECT_TRUE(text != Markup() || !IsBaitSeen());
    }
  }
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_TRUE(label->textFormat() == Qt::PlainText || label->buddy() != nullptr ||
                label->inherits("QTipLabel"))
        << label->text().toStdString();
  }
  QLabel rich(ToQString(Markup()));  // in which it is seen
  rich.show();
  EXPECT_TRUE(IsBaitSeen());
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
      EXPECT_FALSE(IsBaitSeen());
      ExpectShown(text, box->text(), Abridged);
      box->close();
    });
    QtMessageBox().Show(text, "Korvanta", MessageIcon::None);
  }
}

}  // namespace
}  // namespace korvanta
