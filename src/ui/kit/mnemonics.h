/// Mnemonics for menus whose captions name none; used by the main window and the login dialog.
#pragma once

class QMenu;

namespace korvanta {

/// Gives each item without a mnemonic the first letter of its caption that no other item has, the
/// first letters of words before others. The caption stays, but for the line below that letter.
void AddMnemonics(QMenu& menu);

}  // namespace korvanta
