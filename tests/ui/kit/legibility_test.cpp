#include <QApplication>
#include <QDirIterator>
#include <QImage>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <vector>

#include "ui/kit/contrast.h"
#include "ui/kit/picture.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using namespace theme;

TEST(Legibility, EveryColourStandsOutFromEachOfItsGrounds) {
  const std::tuple<QColor, std::vector<QColor>, double> cases[] = {
      {kChromeText, {kChrome, kChromeRaised, kChromeBorder}, 4.5},
      {kMutedText, {kChrome, kChromeRaised}, 4.5},
      {kGoldText, {kChrome, kChromeRaised, kChromeBorder}, 4.5},
      {kInk, {kPaper, kPaperHeader, kSelection, kFound}, 4.5},
      {kInkMuted, {kPaper, kPaperHeader}, 4.5},
      {kWarning, {kPaper}, 4.5},
      {kGold, {kChrome, kChromeRaised, Qt::black}, 3},
      {kHandle, {kPaperHeader, kChrome}, 3},
      {qApp->palette().color(QPalette::WindowText), {qApp->palette().window().color()}, 4.5}};
  for (const auto& [colour, grounds, least] : cases) {
    for (const QColor& ground : grounds) {
      EXPECT_GE(Contrast(colour, ground), least) << colour.name().toStdString();
    }
  }
}

TEST(Legibility, EveryPictureStandsOutFromItsGroundFromSixteenPixelsUp) {
  const QStringList on_paper =
      QStringLiteral("marked check drop_down sort_up sort_down").split(QLatin1Char(' '));
  for (const QString& file : QDir(QStringLiteral(":/pictures")).entryList()) {
    const QColor ground = on_paper.contains(file.chopped(4))         ? kPaperHeader
                          : file == QLatin1String("remove_user.svg") ? kChrome
                                                                     : QColor(Qt::black);
    for (const int side : {16, 48, 512}) {
      const QImage picture = RenderPicture(file.chopped(4), {side, side}, 1).toImage();
      int legible = 0;
      for (int i = 0; i < side * side; ++i) {
        const QColor colour = picture.pixelColor(i % side, i / side);
        legible += colour.alpha() > 128 && Contrast(colour, ground) >= 3 ? 1 : 0;
      }
      EXPECT_GT(legible, side * side / 100) << file.toStdString() << ' ' << side;
    }
  }
}

TEST(Pictures, ThoseNamedInTheStyleSheetAndTheSourcesAreThere) {
  QString text = qApp->styleSheet();
  EXPECT_FALSE(text.contains(QRegularExpression(QStringLiteral("@|#[0-9a-f]{6}\\w")))) << "a name";
  QDirIterator sources(QStringLiteral(KORVANTA_SOURCE_FOLDER "/src/ui"), QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    QFile file(sources.next());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    text += QString::fromUtf8(file.readAll());
  }
  const QRegularExpression named(
      QStringLiteral("(?:url\\(:/pictures/|Picture(?:File)?\\(QStringLiteral\\(.)(\\w+)"));
  for (const auto& match : named.globalMatch(text)) {
    EXPECT_GT(QFile(PictureFile(match.captured(1))).size(), 0) << match.captured().toStdString();
  }
}

}  // namespace
}  // namespace korvanta
