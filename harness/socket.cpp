#include "harness/socket.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

#include "protocol/wire_format.h"

namespace korvanta::harness {
namespace {

sockaddr_in Endpoint(const QString& address) {
  sockaddr_in endpoint = {};
  endpoint.sin_family = AF_INET;
  endpoint.sin_port = htons(kServerPort);
  ::inet_pton(AF_INET, address.toLatin1().constData(), &endpoint.sin_addr);
  return endpoint;
}

void Require(bool holds, const QString& what) {
  if (!holds) {
    throw HarnessError(QString("%1: %2").arg(what, std::strerror(errno)));
  }
}

/// Whether one of the events of poll() comes in time.
bool Await(int descriptor, short events, std::chrono::milliseconds patience) {
  pollfd wait = {descriptor, events, 0};
  return ::poll(&wait, 1, static_cast<int>(patience.count())) == 1;
}

int NewDescriptor() { return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

/// So that a short message leaves at once.
void SendWithoutDelay(int descriptor) {
  const int on = 1;
  ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

}  // namespace

Socket Socket::Listening(const QString& address) {
  Socket made(NewDescriptor());
  const int on = 1;
  ::setsockopt(made.descriptor_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  const sockaddr_in endpoint = Endpoint(address);
  const auto* name = reinterpret_cast<const sockaddr*>(&endpoint);
  Require(::bind(made.descriptor_, name, sizeof endpoint) == 0 &&
              ::listen(made.descriptor_, SOMAXCONN) == 0,
          "cannot listen on " + address);
  return made;
}

Socket Socket::ConnectedTo(const QString& address) {
  Socket made(NewDescriptor());
  const sockaddr_in endpoint = Endpoint(address);
  const auto* name = reinterpret_cast<const sockaddr*>(&endpoint);
  Require(::connect(made.descriptor_, name, sizeof endpoint) == 0, "cannot connect to " + address);
  SendWithoutDelay(made.descriptor_);
  return made;
}

Socket::Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

Socket& Socket::operator=(Socket&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

Socket::~Socket() {
  if (IsOpen()) {
    ::close(descriptor_);
  }
}

Socket Socket::Accept(std::chrono::milliseconds patience) const {
  if (!Await(descriptor_, POLLIN, patience)) {
    return {};
  }
  Socket accepted(::accept4(descriptor_, nullptr, nullptr, SOCK_CLOEXEC));
  Require(accepted.IsOpen(), "cannot accept a client");
  SendWithoutDelay(accepted.descriptor_);
  return accepted;
}

bool Socket::Send(std::string_view bytes) const {
  while (!bytes.empty()) {
    Require(Await(descriptor_, POLLOUT, kPatience),
            "waited in vain until the other end takes more");
    const ssize_t sent =
        ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

std::size_t Socket::Receive(std::span<char> buffer, std::chrono::milliseconds patience) const {
  if (!Await(descriptor_, POLLIN, patience)) {
    return 0;
  }
  const ssize_t count = ::recv(descriptor_, buffer.data(), buffer.size(), 0);
  return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

bool Socket::HasEnded() const {
  return Await(descriptor_, POLLRDHUP, std::chrono::milliseconds(0));
}

}  // namespace korvanta::harness
