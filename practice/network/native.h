/// What the practice server agrees with the operating system.
#pragma once

#include <QtGlobal>

namespace korvanta::practice {

/// Lets the program have as many connections as the system grants it.
void RaiseConnectionLimit();

/// Closing the socket will reset the connection instead of ending its stream.
void ResetWhenClosed(qintptr socket);

/// Ends this half of the connection behind what was sent; the other half can still be read.
void EndStream(qintptr socket);

}  // namespace korvanta::practice
