/// The layout of the research board, in logical pixels. Used by its widget and its accessibility
/// tree.
#pragma once

#include <QPointF>
#include <QRect>
#include <cstddef>
#include <cstdint>

#include "board/research_board.h"

namespace korvanta::board_layout {

inline constexpr QSize kSize{1120, 366};

inline constexpr int kBoxSide = 58;
inline constexpr int kColumnPitch = 142;
inline constexpr int kRowPitch = 76;
inline constexpr QPoint kFirstBox{175, 51};
inline constexpr QRect kGoldenBox{826, 156, 76, 76};
inline constexpr int kPictureSide = 38;
inline constexpr int kGoldenPictureSide = 56;

inline constexpr QRect kHint{872, 14, 224, 64};       ///< Label6
inline constexpr QRect kResearch{740, 298, 356, 24};  ///< from below the goal to the right margin
inline constexpr QRect kTickTime{740, 324, 356, 28};
inline constexpr int kCaptionLeft = 24;
inline constexpr int kCaptionWidth = 143;
inline constexpr int kLevelCaptionTop = 14;
inline constexpr int kLevelCaptionOverhang = 20;  ///< on either side of its column

/// Distance between adjacent fourth lines where they meet the goal's frame.
inline constexpr int kPortPitch = 14;

/// Boxes are numbered row by row, level by level; the last one is the Golden Knowledge.
inline constexpr int kBoxes = static_cast<int>(kTopicRows) * kTopLevel + 1;
inline constexpr int kGoldenIndex = kBoxes - 1;
inline constexpr int kLines = kGoldenIndex;  ///< one from each box of a row

constexpr std::size_t RowOf(int box) { return static_cast<std::size_t>(box / kTopLevel); }
constexpr int LevelOf(int box) { return box % kTopLevel + 1; }
constexpr int BoxAt(std::size_t row, int level) {
  return static_cast<int>(row) * kTopLevel + level - 1;
}

/// The outer edge of a box's frame.
constexpr QRect BoxRect(int box) {
  if (box == kGoldenIndex) {
    return kGoldenBox;
  }
  return {kFirstBox.x() + (LevelOf(box) - 1) * kColumnPitch,
          kFirstBox.y() + static_cast<int>(RowOf(box)) * kRowPitch, kBoxSide, kBoxSide};
}

/// The middle of a row, where its lines run.
constexpr int RowMiddle(std::size_t row) {
  return kFirstBox.y() + static_cast<int>(row) * kRowPitch + kBoxSide / 2;
}

/// The height at which a row's line 4 meets the goal's frame.
constexpr int PortOf(std::size_t row) {
  const int fan = static_cast<int>(kTopicRows - 1) * kPortPitch;
  return kGoldenBox.y() + kGoldenBox.height() / 2 - fan / 2 + static_cast<int>(row) * kPortPitch;
}

/// From the frame of that level to the next one, or to the goal's frame.
constexpr QRect LineRect(std::size_t row, int level) {
  const QRect from = BoxRect(BoxAt(row, level));
  const QRect to = level < kTopLevel ? BoxRect(BoxAt(row, level + 1)) : kGoldenBox;
  const int start = RowMiddle(row);
  const int end = level < kTopLevel ? start : PortOf(row);
  const int top = (start < end ? start : end) - kReachedWidth / 2;
  const int bottom = (start < end ? end : start) + kReachedWidth / 2;
  return {from.right() + 1, top, to.left() - from.right() - 1, bottom - top};
}

}  // namespace korvanta::board_layout
