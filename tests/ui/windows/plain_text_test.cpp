/// What is written into the boxes of the windows, and every place that shows what the server or a
/// player wrote, against every kind of text that could be taken for something else than text.
#include "ui/kit/plain_text.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "tests/ui/main_window_test.h"
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

enum Extent { Abridged, Whole, InToolTip };  // the first, where the toolkit lays it out

void ExpectShown(const std::string& text, QString shown, Extent extent = Whole,
                 const char* words = "%1") {
  static const QRegularExpression control(QStringLiteral("[\\x01-\\x1f]"));  // in many forms
  const QString whole =
      QString::fromLatin1(words).arg(ToQString(text)).replace(control, QStringLiteral(" "));
  shown.replace(control, QStringLiteral(" "));
  const qsizetype cut = shown.indexOf(QChar(0x2026));
  const bool is_abridged = shown.size() > 8 && shown.size() < 100'000 && cut >= 0 &&
                           whole.startsWith(shown.first(cut)) &&
                           whole.endsWith(shown.sliced(cut + 1));
  EXPECT_TRUE(shown == whole || (extent == Abridged && is_abridged) ||
              (extent == InToolTip && shown.contains(whole)))
      << shown.left(300).toStdString();
}

class PlainTextTest : public AllWindowsTest {
 protected:
  PlainTextTest() {
    QImage bait(8, 8, QImage::Format_RGB32);
    bait.fill(kBait);
    EXPECT_TRUE(bait.save(folder.filePath(QStringLiteral("bait.png"))));
  }

  /// What a control shows, in each of the ways that it has.
  std::vector<std::pair<QString, Extent>> TextsOf(const std::string& name) const {
    QWidget& control = Get(name);
    std::vector<std::pair<QString, Extent>> texts;
    if (auto* list = qobject_cast<QTreeView*>(&control)) {
      const QAbstractItemModel& model = *list->model();
      for (int column = 0; column < model.columnCount() && model.rowCount() > 0; ++column) {
        const QModelIndex cell = model.index(0, column);
        texts.emplace_back(cell.data(Qt::DisplayRole).toString(), Abridged);
        texts.emplace_back(cell.data(Qt::AccessibleTextRole).toString(), Whole);
        texts.emplace_back(cell.data(Qt::ToolTipRole).toString(), InToolTip);
      }
    } else if (auto* frame = qobject_cast<QGroupBox*>(&control)) {
      // Of two marks of a mnemonic the second is shown, of one none.
      static const QRegularExpression mark(QStringLiteral("&(&?)"));
      texts.emplace_back(frame->title().replace(mark, QStringLiteral("\\1")), Abridged);
      texts.emplace_back(frame->accessibleName(), Whole);
      texts.emplace_back(frame->toolTip(), InToolTip);
    } else if (auto* box = qobject_cast<QLineEdit*>(&control)) {
      texts.emplace_back(box->text(), Abridged);
    } else {
      auto* choice = qobject_cast<QComboBox*>(&control);
      texts.emplace_back(choice ? choice->itemText(0) : ToQString(TextOf(name)), Whole);
    }
    return texts;
  }
  std::string Markup() const {
    const std::string file = ToBytes(folder.filePath(QStringLiteral("bait.png")));
    return "<img src='" + file + "'><b>b</b> <a href=\"file:" + file + "\">a</a><script>x</script>";
  }
  std::vector<std::pair<const char*, std::string>> Texts() const {
    return {{"a word without an end", std::string(1'000'000, 'W')},
            {"nothing", ""},
            {"markup", Markup()},
            {"entities and mnemonics", "a &amp; &#x41; & &File  % %1 \\n \x80 &"},
            {"blanks and line ends", " a\n\nb\rc\x03\n"}};
  }

  QTemporaryDir folder;
};

TEST(PlainText, BytesShowTheCharactersOfTheirCodePageAndComeBackUnchanged) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) {
    all += static_cast<char>(byte);
  }
  EXPECT_EQ(ToBytes(ToQString(all)), all);
  EXPECT_EQ(ToQString(all), QString(QStringDecoder("windows-1252")(all)));
  // One '?' for each character outside the set.
  EXPECT_EQ(ToBytes(QStringLiteral(u"a\u03a9b\U0001F600c\u202ed")), "a?b?c?d");
}

TEST(PlainText, AToolTipHasUpToTwentyLinesOfEightyCharacters) {
  for (const auto& [length, cut] : {std::pair(1600, ""), std::pair(1601, "\n\u2026")}) {
    const QString tip = PlainToolTip(QString(length, u'x'));
    const QString line = QString(80, u'x') + u'\n';
    EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText(),
              line.repeated(20).chopped(1) + QString::fromUtf8(cut));
  }
}

/// Dictation, on-screen keyboards and switches write into boxes without a key being pressed.
TEST_F(AllWindowsTest, WhatAnAssistiveProgramWritesIntoABoxCountsAsTyped) {
  const LoginForm& login = client.login_dialog.form();
  const TournamentTexts& texts = client.tournament.state().texts;
  const std::tuple<const char*, const char*, const std::string&> boxes[] = {
      {"fittingArea", "cboSend", client.chat_input.text()},
      {"frmLogin", "cboServer", login.cboServer},
      {"frmLogin", "cboUsernames", login.cboUsernames},
      {"frmLogin", "txtPassword", login.txtPassword},
      {"frmStats", "UserInput", client.statistics.state().UserInput},
      {"frmTournament", "iEntryFee", texts.iEntryFee},
      {"frmTournament", "txtPurse", texts.txtPurse},
      {"frmTournament", "iMaxTeams", texts.iMaxTeams},
      {"frmTournament", "iMaxPlayers", texts.iMaxPlayers},
      {"frmTournament", "cmbTeam", texts.cmbTeam},
      {"frmTournament", "txtPassword", texts.txtPassword},
      {"frmTournament", "EntryFee", texts.EntryFee},
      {"frmTournament", "MaxTeams", texts.MaxTeams},
      {"frmTournament", "MaxPlayers", texts.MaxPlayers}};
  for (const auto& [owner, name, presented] : boxes) {
    auto* control = Get(owner).findChild<QWidget*>(QLatin1String(name));
    auto* line = qobject_cast<QLineEdit*>(control);
    line = line != nullptr ? line : control->findChild<QLineEdit*>();
    QAccessible::queryAccessibleInterface(line)->editableTextInterface()->replaceText(
        0, static_cast<int>(line->text().size()), QLatin1String(name));
    EXPECT_EQ(presented, name) << owner;
    EXPECT_EQ(line->text().toStdString(), name) << owner;
  }
}

TEST_F(PlainTextTest, WhatTheServerSendsIsShownAsItIs) {
  const std::string reply = "[bre]@\1@\1@\1@\1@\1@\1@\1@\1@\1@\1@\1@";
  const struct {
    std::string message;
    const char* controls;
    const char* words = "%1";
  } cases[] = {
      {"[msg]blk\1@\1False", "rbMessages", "%1\r\n"},
      {"[nws]@", "rbNews"},
      {"[onl]@\0011\1@\0010", "lstOnline"},
      {reply, "frmUserData", "Statistics for '%1'"},
      {reply, "frmAward", "Awards for '%1'"},
      {reply,
       "rbScore txtAlliance txtID txtWins txtAllianceWins txtPlayed txtResearch txtLost txtDestroy "
       "txtBlocks txtScrew"},
      {"[tif]@\1@\1@\1@", "iEntryFee txtPurse iMaxTeams iMaxPlayers"},
      {"[ttm]@", "lstTeams"},
      {"[tdd]@", "cmbTeam"},
  };
  for (const auto& [message, controls, words] : cases) {
    for (const auto& [name, text] : Texts()) {
      SCOPED_TRACE(std::string(name) + " in " + controls);
      client.message_view.Clear();
      Receive(ToBytes(ToQString(message).replace(u'@', ToQString(text))));
      QApplication::processEvents();
      for (const QString& control : QString::fromLatin1(controls).split(u' ')) {
        for (auto [shown, extent] : TextsOf(control.toStdString())) {
          if (extent == InToolTip && text != Markup()) {
            continue;  // it is the one kind of text that a tool tip could take amiss
          }
          if (extent == InToolTip) {
            QToolTip::showText({9, 9}, shown, &window);
            QApplication::processEvents();
            EXPECT_TRUE(QToolTip::isVisible());
            shown = QTextDocumentFragment::fromHtml(shown).toPlainText().remove(u'\n');
          }
          ExpectShown(text, shown, extent, words);
          EXPECT_FALSE(text == Markup() && IsBaitSeen());
        }
      }
    }
  }
  QLabel rich(ToQString(Markup()));  // in which it is seen
  rich.show();
  EXPECT_TRUE(IsBaitSeen());
}

}  // namespace
}  // namespace korvanta
