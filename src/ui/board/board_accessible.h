/// The research board for screen readers: besides its labels, every box has a name, a state, and
/// its menu as an action.
#pragma once

namespace korvanta {

class BoardWidget;

/// Installs this for every board. To be called before any of them is queried; repeated calls do no
/// harm.
void InstallBoardAccessibility();

/// Notify assistive technology, if any. Boxes are numbered as in board_layout.h.
void AnnounceBoxRenamed(const BoardWidget& board, int box);
void AnnounceBoxFocused(const BoardWidget& board, int box);

}  // namespace korvanta
