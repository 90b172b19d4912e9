/// The message view as screen readers find it: a read-only text of which they ask for a line, a
/// word or a character at a time.
#pragma once

#include "lobby/message_view.h"

namespace korvanta {

class MessageViewWidget;

/// Makes the toolkit describe every message view this way. Call it before anything may ask it
/// for a view's description; more than once does no harm.
void InstallMessageViewAccessibility();

/// Notifies screen readers, if there are any, of what has changed in the view's text.
void NotifyAccessibility(MessageViewWidget& widget, const MessageView::Change& change);

}  // namespace korvanta
