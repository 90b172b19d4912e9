#include <QDir>
#include <QImage>
#include <QSet>
#include <gtest/gtest.h>
#include <vector>

#include "ui/kit/contrast.h"
#include "ui/kit/picture.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// The share of the picture, 0 to 1, that stands out on the ground with a contrast of 3 or more.
double LegibleShare(const QImage& picture, QColor ground) {
  int legible = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      legible += colour.alpha() > 128 && Contrast(colour, ground) >= 3 ? 1 : 0;
    }
  }
  return static_cast<double>(legible) / (picture.width() * picture.height());
}

TEST(Pictures, EachIsLegibleOnItsGroundFromSixteenPixelsUp) {
  struct Case {
    const char* name;
    QColor ground;
    double least_share = 0.04;
  };
  const std::vector<Case> cases = {
      {"military", Qt::black},
      {"industry", Qt::black},
      {"population", Qt::black},
      {"defense", Qt::black},
      {"golden_knowledge", Qt::black},
      {"korvanta", Qt::black},
      {"splash", Qt::black, 0.01},
      {"remove_user", theme::kChrome},
      {"marked", theme::kPaper},
      {"check", theme::kPaper},
      {"drop_down", theme::kPaper},
      {"sort_up", theme::kPaperHeader},
      {"sort_down", theme::kPaperHeader},
  };
  QSet<QString> seen;
  for (const Case& each : cases) {
    const QString name = QString::fromLatin1(each.name);
    for (const int side : {16, 48, 512}) {
      const QImage picture = RenderPicture(name, {side, side}, 1).toImage();
      ASSERT_EQ(picture.size(), QSize(side, side)) << each.name;
      EXPECT_GT(LegibleShare(picture, each.ground), each.least_share) << each.name << ' ' << side;
    }
    seen.insert(name + QStringLiteral(".svg"));
  }
  const QStringList all = QDir(QStringLiteral(":/pictures")).entryList();
  EXPECT_EQ(seen, QSet<QString>(all.begin(), all.end())) << "pictures without a ground above";
}

}  // namespace
}  // namespace korvanta
