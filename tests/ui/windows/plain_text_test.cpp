/// Every place that shows what the server or a player wrote, against every kind of text that could
/// be taken for something else than text.
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>
#include <gmock/gmock.h>
#include <map>

#include "tests/fakes/fake_platform.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/kit/text.h"
#include "ui/windows/frmMain.h"

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

/// Whether `shown` is `whole` but for a part that an ellipsis stands for.
bool IsAbridged(const QString& shown, const QString& whole) {
  const qsizetype ellipsis = shown.indexOf(QChar(0x2026));
  return shown.size() > 8 && ellipsis >= 0 && whole.startsWith(shown.first(ellipsis)) &&
         whole.endsWith(shown.sliced(ellipsis + 1));
}

/// The main window with every window that it has.
class PlainTextTest : public testing::Test {
 protected:
  struct Place {
    const char* name;
    std::function<void(const std::string& text)> write;
    std::vector<std::function<QString()>> shown;  ///< laid out by the toolkit, which takes its time
    std::vector<std::function<QString()>> whole = {};
  };

  PlainTextTest() {
    QImage bait(8, 8, QImage::Format_RGB32);
    bait.fill(kBait);
    EXPECT_TRUE(bait.save(folder.filePath(QStringLiteral("bait.png"))));
    EXPECT_TRUE(client.StartUp());
    client.splash.window().Unload();
    client.main_window.Show();
    platform.socket.Accept();
    Receive("[con]Ann\00112");
    client.news.window().Show();
    client.statistics.window().Show();
    client.tournament.window().Show();
    client.login_dialog.window().Show();
    QApplication::processEvents();
  }

  template <typename Control = QWidget>
  Control& Get(const char* name) const {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return *control;
  }
  QVariant Cell(const char* list, int column, int role) const {
    const QAbstractItemModel& model = *Get<QTreeView>(list).model();
    return model.rowCount() > 0 ? model.index(0, column).data(role) : QVariant();
  }

  void Receive(const std::string& message) { platform.socket.Receive(message + '\0'); }
  std::function<void(const std::string&)> Sends(const std::string& before,
                                                const std::string& after = {}) {
    return [=, this](const std::string& text) { Receive(before + text + after); };
  }
  std::function<QString()> Box(const char* name) const {
    return [=, this] { return Get<QLineEdit>(name).text(); };
  }
  std::function<QString()> List(const char* name, int column, int role) const {
    return [=, this] { return Cell(name, column, role).toString(); };
  }
  QString Read(const char* name) const {
    auto& text = *QAccessible::queryAccessibleInterface(&Get(name))->textInterface();
    return text.text(0, text.characterCount());
  }
  /// What stands between the quotation marks of a frame's caption.
  std::function<QString()> Frame(const char* name, bool title) const {
    return [=, this] {
      const auto& frame = Get<QGroupBox>(name);
      QString text = title ? frame.title().replace(QStringLiteral("&&"), QStringLiteral("&"))
                           : frame.accessibleName();
      text.remove(0, text.indexOf(QLatin1Char('\'')) + 1);
      return text.endsWith(QLatin1Char('\'')) ? text.chopped(1) : text;
    };
  }

  std::vector<Place> Places();
  QString InMessageBox() const;
  bool IsBaitTaken(QWidget& widget) const {
    const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QByteArrayView pixels(image.constBits(), image.sizeInBytes());
    return pixels.contains({reinterpret_cast<const char*>(&kBait), sizeof kBait});
  }
  bool IsBaitTaken() const {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [this](QWidget* widget) {
      return widget->isVisible() && IsBaitTaken(*widget);
    });
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

  QTemporaryDir folder;
  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};
  frmMain window{client};
  std::string for_box;
};

std::vector<PlainTextTest::Place> PlainTextTest::Places() {
  const std::string figures = "\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0011";
  std::vector<Place> places = {
      {"chat",
       [this](const std::string& text) {
         client.message_view.Clear();
         Receive("[msg]blk\001" + text + "\001False");
       },
       {},
       {[this] { return Read("rbMessages").chopped(2); }}},
      {"player",
       Sends("[onl]", "\0011\0011\0010"),
       {List("lstOnline", 0, Qt::DisplayRole)},
       {List("lstOnline", 0, Qt::AccessibleTextRole)}},
      {"level", Sends("[onl]Ann\0011\001", "\0010"), {List("lstOnline", 1, Qt::DisplayRole)}},
      {"captions",
       Sends("[bre]", figures),
       {Frame("frmUserData", true), Frame("frmAward", true)},
       {Frame("frmUserData", false)}},
      {"news", Sends("[nws]"), {}, {[this] { return Read("rbNews"); }}},
      {"fee", Sends("[tif]", "\0011\0012\0013"), {Box("iEntryFee")}},
      {"purse", Sends("[tif]1\001", "\0011\0012"), {Box("txtPurse")}},
      {"number of teams", Sends("[tif]1\0011\001", "\0012"), {Box("iMaxTeams")}},
      {"number of players", Sends("[tif]1\0011\0012\001"), {Box("iMaxPlayers")}},
      {"team",
       Sends("[ttm]"),
       {},  // cut by the one that draws it
       {List("lstTeams", 0, Qt::DisplayRole), List("lstTeams", 0, Qt::AccessibleTextRole)}},
      {"team to choose",
       Sends("[tdd]"),
       {},  // likewise
       {[this] { return Get<QComboBox>("cmbTeam").itemText(0); }}},
      {"saved user",
       [this](const std::string& text) {
         client.saved_logins.Add({text, ""});
         client.saved_logins.LastUser = text;
         client.login_dialog.window().Unload();
         QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
         client.login_dialog.window().Show();
       },
       {},  // the user's own
       {[this] { return Get<QComboBox>("cboUsernames").currentText(); }}},
      {"message box", [this](const std::string& text) { for_box = text; }, {[this] {
         return InMessageBox();
       }}},
  };
  for (const StatisticsField& field : kStatisticsFields) {
    const std::size_t behind = 2 * field.reply_field;
    places.push_back({field.control.data(),
                      Sends("[bre]Ann" + figures.substr(0, behind - 1), figures.substr(behind)),
                      {Box(field.control.data())}});
  }
  return places;
}

/// The box fits the screen with its button.
QString PlainTextTest::InMessageBox() const {
  QString text;
  QTimer::singleShot(0, qApp, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->screen()->geometry().contains(QRect({}, box->size()))) << box->height();
    const QWidget& button = *box->button(QMessageBox::Ok);
    EXPECT_TRUE(box->rect().contains({button.mapTo(box, QPoint()), button.size()}));
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    text = box->text();
    box->close();
  });
  QtMessageBox().Show(for_box, "Korvanta", MessageIcon::None);
  return text;
}

TEST_F(PlainTextTest, WhateverIsWrittenIsShownAsItIsAndMovesNothing) {
  std::string bytes;
  for (int byte = 3; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  const std::pair<const char*, std::string> texts[] = {
      {"a word without an end", std::string(1'000'000, 'W')},
      {"nothing", ""},
      {"markup", Markup()},
      {"entities and access keys", "a &amp; &#x41; && &File  % %1 \\n &"},
      {"every byte", bytes},
      {"blanks and line ends", " a\n\nb\rc\n"},
  };
  for (const Place& place : Places()) {
    for (const auto& [name, text] : texts) {
      SCOPED_TRACE(std::string(name) + " as " + place.name);
      const auto layout = Layout();
      place.write(text);
      QApplication::processEvents();
      EXPECT_EQ(Layout(), layout);
      EXPECT_TRUE(text != Markup() || !IsBaitTaken());
      const QString whole = Printable(ToQString(text));
      for (const auto& look : place.whole) {
        EXPECT_TRUE(Printable(look()) == whole) << look().left(300).toStdString();
      }
      for (const auto& look : place.shown) {
        const QString shown = Printable(look());
        EXPECT_TRUE(shown == whole || IsAbridged(shown, whole)) << shown.left(300).toStdString();
        EXPECT_LT(shown.size(), 100'000);
      }
    }
  }
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_TRUE(label->textFormat() == Qt::PlainText || label->buddy() != nullptr)
        << label->text().toStdString();
  }
}

TEST_F(PlainTextTest, ToolTipsShowMarkupAsText) {
  const std::string text = Markup();
  Receive("[onl]" + text + "\0011\001" + text + "\0010");
  Receive("[ttm]" + text);
  Receive("[bre]" + std::string(200, 'W') + text + std::string(26, '\001'));
  for (const QString& tip :
       {Cell("lstOnline", 0, Qt::ToolTipRole).toString(),
        Cell("lstOnline", 1, Qt::ToolTipRole).toString(),
        Cell("lstTeams", 0, Qt::ToolTipRole).toString(), Get("frmUserData").toolTip()}) {
    QToolTip::showText({9, 9}, tip, &window);
    QApplication::processEvents();
    ASSERT_TRUE(QToolTip::isVisible());
    EXPECT_FALSE(IsBaitTaken());
    QString shown = QTextDocumentFragment::fromHtml(tip).toPlainText();
    EXPECT_TRUE(shown.remove(QLatin1Char('\n')).contains(ToQString(text))) << shown.toStdString();
  }
}

TEST_F(PlainTextTest, ThePictureWouldBeSeen) {
  QLabel rich(ToQString(Markup()));
  rich.show();
  EXPECT_TRUE(IsBaitTaken(rich));
}

}  // namespace
}  // namespace korvanta
