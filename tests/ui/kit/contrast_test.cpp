#include "ui/kit/contrast.h"

#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <vector>

#include "board/research_board.h"
#include "lobby/line_colours.h"
#include "lobby/online_list.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using namespace theme;

constexpr double kText = 4.5;
constexpr double kSign = 3;

TEST(Contrast, IsThatOfTheGuidelines) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(Contrast(Qt::blue, Qt::white), 8.59, 0.01);
  EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(Contrast, EveryColourOfOurChoiceIsLegibleOnEachOfItsGrounds) {
  const struct {
    const char* name;
    QColor colour;
    std::vector<QColor> grounds;
    double least;
  } colours[] = {
      {"chrome text", kChromeText, {kChrome, kChromeRaised, kChromeBorder}, kText},
      {"muted text", kMutedText, {kChrome, kChromeRaised}, kText},
      {"gold text", kGoldText, {kChrome, kChromeRaised, kChromeBorder}, kText},
      {"ink", kInk, {kPaper, kPaperHeader, kSelection, kFound}, kText},
      {"muted ink", kInkMuted, {kPaper, kPaperHeader}, kText},
      {"warning", kWarning, {kPaper}, kText},
      {"focus ring", kGold, {kChrome, kChromeRaised, Qt::black}, kSign},
      {"scroll handle", kHandle, {kPaperHeader, kChrome}, kSign},
      {"edge of a check box", kMutedText, {kChrome}, kSign},
  };
  for (const auto& [name, colour, grounds, least] : colours) {
    for (const QColor& ground : grounds) {
      EXPECT_GE(Contrast(colour, ground), least) << name << " on " << ground.name().toStdString();
    }
  }
}

struct Fixed {
  std::string name;
  QColor colour;
};

std::vector<Fixed> FixedOnPaper() {
  std::vector<Fixed> all;
  for (std::size_t role = 0; role < kRoleColours.size(); ++role) {
    all.push_back({"message role " + std::to_string(role), ToQColor(kRoleColours[role])});
  }
  for (int category = 1; category <= 8; ++category) {
    const std::string number = std::to_string(category);
    all.push_back({"player category " + number, ToQColor(OnlineColour(number))});
  }
  return all;
}

std::vector<Fixed> FixedOnBoard() {
  std::vector<Fixed> all;
  for (const TopicRow& topic : kTopics) {
    all.push_back({"topic " + std::string(topic.name), ToQColor(topic.colour)});
  }
  return all;
}

/// Prints which are hard to read, and returns the lowest contrast.
double Worst(const std::vector<Fixed>& all, QColor ground, bool print = false) {
  double worst = 21;
  for (const Fixed& fixed : all) {
    const double contrast = Contrast(fixed.colour, ground);
    worst = std::min(worst, contrast);
    if (print && contrast < kText) {
      std::cout << "not ours to choose: " << fixed.name << ", " << fixed.colour.name().toStdString()
                << " on " << ground.name().toStdString() << ": " << contrast << "\n";
    }
  }
  return worst;
}

TEST(Contrast, NoGreyServesTheFixedColoursBetterThanPaperAndSelectionsCostThemLittle) {
  const std::vector<Fixed> on_paper = FixedOnPaper();
  for (int grey = 0; grey < 256; ++grey) {
    EXPECT_LE(Worst(on_paper, QColor(grey, grey, grey)), Worst(on_paper, kPaper)) << grey;
  }
  EXPECT_GE(Worst(on_paper, kPaper, true), 1.94);
  EXPECT_GE(Worst(on_paper, kSelection), 1.55);
  EXPECT_GE(Worst(on_paper, kFound), 1.60);
  EXPECT_GE(Worst(FixedOnBoard(), Qt::black, true), 2.44);
}

}  // namespace
}  // namespace korvanta
