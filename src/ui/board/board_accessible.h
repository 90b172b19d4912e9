/// The research board as screen readers meet it: beside its labels, every box is an element with a
/// name, a state, and its menu as an action.
#pragma once

namespace korvanta {

class BoardWidget;

/// Makes the toolkit describe every board this way. Comes before anything that may ask it for a
/// board's description; more than once does no harm.
void InstallBoardAccessibility();

/// Tell screen readers, if any listens. Boxes count as in board_layout.h.
void TellBoxRenamed(BoardWidget& board, int box);
void TellBoxFocused(BoardWidget& board, int box);

}  // namespace korvanta
