/// Access keys for menus whose captions name none; used by the main window and the login dialog.
#pragma once

class QMenu;

namespace korvanta {

/// Gives each item that has no access key the first free letter of its caption, beginnings of words
/// before others. Captions stay as they are but for the line below that letter.
void GiveAccessKeys(QMenu& menu);

}  // namespace korvanta
