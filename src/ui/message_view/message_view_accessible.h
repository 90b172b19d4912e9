/// The message view for screen readers: a read-only text that they read by line, word or character.
#pragma once

#include "lobby/message_view.h"

namespace korvanta {

class MessageViewWidget;

/// Installs this for every message view. To be called before any of them is queried; repeated calls
/// do no harm.
void InstallMessageViewAccessibility();

/// Notifies screen readers, if any, of a change of the view.
void NotifyAccessibility(MessageViewWidget& widget, const MessageView::Change& change);

}  // namespace korvanta
