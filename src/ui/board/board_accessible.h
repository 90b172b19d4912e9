/// The research board as screen readers meet it: beside its labels, every box has a name, a state,
/// and its menu as an action.
#pragma once

namespace korvanta {

class BoardWidget;

/// Makes the toolkit describe every board this way. Comes before anything that may ask it for a
/// board's description; more than once does no harm.
void InstallBoardAccessibility();

/// For assistive programs, if any is there. Boxes count as in board_layout.h.
void AnnounceBoxRenamed(const BoardWidget& board, int box);
void AnnounceBoxFocused(const BoardWidget& board, int box);

}  // namespace korvanta
