/// The message view's context menu, and copying.
#pragma once

#include <QClipboard>
#include <QPoint>

#include "lobby/message_view.h"

class QWidget;

namespace korvanta {

/// Copies the selected text to a clipboard that the desktop has; does nothing without a selection.
void CopySelection(const MessageView& view, QClipboard::Mode clipboard);

/// Copy, Select All and the actions of `widget`, which owns the menu.
void OpenMessageMenu(QWidget& widget, MessageView& view, QPoint global_position);

}  // namespace korvanta
