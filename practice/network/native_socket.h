/// How a connection ends, as only the operating system can say it; the network server is the one
/// user.
#pragma once

#include <QtGlobal>

namespace korvanta::practice::native_socket {

/// Closing the socket will reset the connection instead of ending its stream.
void ResetWhenClosed(qintptr descriptor);

/// Ends this half of the connection behind what was sent; the other half can still be read.
void EndStream(qintptr descriptor);

}  // namespace korvanta::practice::native_socket
