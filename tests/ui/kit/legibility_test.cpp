#include <QDir>
#include <QImage>
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
      {kHandle, {kPaperHeader, kChrome}, 3}};
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

}  // namespace
}  // namespace korvanta
