/// What the toolkit's sockets leave to the operating system. Used by the client socket.
#pragma once

#include <QtGlobal>
#include <chrono>
#include <string>

class QTcpSocket;

namespace korvanta::native_socket {

/// Breaks a connection a minute after its peer has vanished: after 30 seconds of silence and 30
/// more of unanswered probes. Bytes that stay unacknowledged for a minute break it as well. A
/// system that lacks one of these options keeps its own, longer time-out.
void SetKeepAlive(qintptr descriptor);

/// Everything that was received and the toolkit has not read; does not block.
std::string ReadPending(qintptr descriptor);

/// Sends what is still queued and then the end of the stream, and waits until the peer has
/// acknowledged all of it, the peer has gone, or `limit` has passed. What is received meanwhile is
/// discarded: unread bytes would make the system reset the connection on closing, and a reset can
/// overtake what was sent.
void FinishSending(QTcpSocket& socket, std::chrono::milliseconds limit);

}  // namespace korvanta::native_socket
