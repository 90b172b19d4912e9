/// Paints the research board. Used by its widget.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QRegion>
#include <array>

#include "board/research_board.h"
#include "ui/kit/theme.h"

class QPaintDevice;

namespace korvanta {

/// The pictures of the four topics, top to bottom, and of the Golden Knowledge.
using BoardPictures = std::array<QPixmap, kTopicRows + 1>;

/// How far a box's focus ring reaches beyond its frame, in logical pixels.
inline constexpr int kRingReach = 6;

/// Paints all of `region`. Straight edges are on whole device pixels at any scale. `focused_box`,
/// numbered as in board_layout.h, has the focus ring; -1 for none.
void PaintBoard(QPaintDevice& device, const QRegion& region, const ResearchBoard& board,
                const BoardPictures& pictures, int focused_box);

}  // namespace korvanta
