#include "ui/desktop/native_socket.h"

#include <QTcpSocket>
#include <array>
#include <thread>
#include <winsock2.h>
#include <ws2tcpip.h>
// It takes its types from those above.
#include <mstcpip.h>

namespace korvanta::native_socket {
namespace {

/// The system gives up after ten probes; this cannot be changed.
constexpr tcp_keepalive kKeepAlive = {
    1,
    30'000,  // milliseconds of silence
    3'000,   // milliseconds between probes
};

/// TCP_MAXRT, which the system headers of the compiler lack.
constexpr int kLongestRetry = 5;

/// In seconds: how long bytes may stay unacknowledged.
constexpr DWORD kMaxUnacknowledged = 60;

constexpr std::chrono::milliseconds kPollInterval{5};

enum class Waiting { None, Some, Over };

/// Takes what has been received, as much of it as fits.
Waiting Take(SOCKET socket, std::array<char, 16384>& buffer, int& count) {
  count = recv(socket, buffer.data(), static_cast<int>(buffer.size()), 0);
  if (count > 0) {
    return Waiting::Some;
  }
  return count < 0 && WSAGetLastError() == WSAEWOULDBLOCK ? Waiting::None : Waiting::Over;
}

}  // namespace

void SetKeepAlive(qintptr descriptor) {
  const auto socket = static_cast<SOCKET>(descriptor);
  tcp_keepalive keep_alive = kKeepAlive;
  DWORD unused = 0;
  WSAIoctl(socket, SIO_KEEPALIVE_VALS, &keep_alive, sizeof keep_alive, nullptr, 0, &unused, nullptr,
           nullptr);
  setsockopt(socket, IPPROTO_TCP, kLongestRetry, reinterpret_cast<const char*>(&kMaxUnacknowledged),
             sizeof kMaxUnacknowledged);
}

std::string ReadPending(qintptr descriptor) {
  std::string bytes;
  std::array<char, 16384> buffer;
  int count = 0;
  while (Take(static_cast<SOCKET>(descriptor), buffer, count) == Waiting::Some) {
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return bytes;
}

/// The system does not report what the peer has acknowledged; the peer closing its end as well
/// shows it.
void FinishSending(QTcpSocket& socket, std::chrono::milliseconds limit) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + limit;
  std::array<char, 16384> buffer;
  for (; Clock::now() < deadline; std::this_thread::sleep_for(kPollInterval)) {
    socket.flush();
    if (socket.state() != QAbstractSocket::ConnectedState) {
      return;
    }
    const auto native = static_cast<SOCKET>(socket.socketDescriptor());
    if (socket.bytesToWrite() == 0) {
      shutdown(native, SD_SEND);  // once shut down it can be again
    }
    Waiting waiting = Waiting::Some;
    for (int count = 0; waiting == Waiting::Some && Clock::now() < deadline;) {
      waiting = Take(native, buffer, count);
    }
    if (waiting == Waiting::Over) {
      return;
    }
  }
}

}  // namespace korvanta::native_socket
