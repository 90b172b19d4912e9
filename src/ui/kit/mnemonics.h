/// Mnemonics for menu items whose captions have none. Used by the main window and the login dialog.
#pragma once

class QMenu;

namespace korvanta {

/// Gives each item without a mnemonic the first letter of its caption that no other item uses,
/// preferring the first letters of words.
void AddMnemonics(QMenu& menu);

}  // namespace korvanta
