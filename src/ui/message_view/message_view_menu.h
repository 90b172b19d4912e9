/// The context menu of the message view's text, and the copying from it.
#pragma once

#include <QClipboard>
#include <QPoint>

#include "lobby/message_view.h"

class QWidget;

namespace korvanta {

/// Puts the selected text on a clipboard that the desktop has; without a selection nothing happens.
void CopySelection(const MessageView& view, QClipboard::Mode clipboard);

/// Copy, Select All and the actions of `widget`, which owns the menu.
void OpenMessageMenu(QWidget& widget, MessageView& view, QPoint global_position);

}  // namespace korvanta
