#include <QDir>
#include <QImage>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "board/research_board.h"
#include "lobby/line_colours.h"
#include "lobby/online_list.h"
#include "ui/kit/contrast.h"
#include "ui/kit/picture.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using namespace theme;

TEST(Contrast, IsThatOfTheGuidelines) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(Contrast(Qt::blue, Qt::white), 8.59, 0.01);
  EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

/// The last three are not ours to choose; their grounds are, and serve them as well as any.
TEST(Legibility, EveryColourStandsOutFromEachOfItsGrounds) {
  std::vector<QColor> on_paper;
  on_paper.reserve(std::size(kRoleColours) + 8);
  for (const Colour colour : kRoleColours) {
    on_paper.push_back(ToQColor(colour));
  }
  for (const char category : std::string("12345678")) {
    on_paper.push_back(ToQColor(OnlineColour({&category, 1})));
  }
  std::vector<QColor> on_board;
  on_board.reserve(std::size(kTopics));
  for (const TopicRow& topic : kTopics) {
    on_board.push_back(ToQColor(topic.colour));
  }
  const struct {
    const char* name;
    std::vector<QColor> colours, grounds;
    double least;
  } cases[] = {
      {"chrome text", {kChromeText}, {kChrome, kChromeRaised, kChromeBorder}, 4.5},
      {"muted text", {kMutedText}, {kChrome, kChromeRaised}, 4.5},
      {"gold text", {kGoldText}, {kChrome, kChromeRaised, kChromeBorder}, 4.5},
      {"ink", {kInk}, {kPaper, kPaperHeader, kSelection, kFound}, 4.5},
      {"muted ink", {kInkMuted}, {kPaper, kPaperHeader}, 4.5},
      {"warning", {kWarning}, {kPaper}, 4.5},
      {"focus ring", {kGold}, {kChrome, kChromeRaised, Qt::black}, 3},
      {"scroll handle", {kHandle}, {kPaperHeader, kChrome}, 3},
      {"lines and players", on_paper, {kPaper}, 1.94},
      {"lines and players, selected or found", on_paper, {kSelection, kFound}, 1.55},
      {"topics", on_board, {Qt::black}, 2.44},
  };
  for (const auto& c : cases) {
    for (const QColor& ground : c.grounds) {
      for (const QColor& colour : c.colours) {
        EXPECT_GE(Contrast(colour, ground), c.least)
            << c.name << ' ' << colour.name().toStdString();
      }
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
