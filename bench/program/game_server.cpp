#include "bench/program/game_server.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

#include "harness/host.h"
#include "protocol/wire_format.h"

namespace korvanta::bench {
namespace {

using process::HarnessError;

sockaddr_in Place(const QString& address) {
  sockaddr_in place = {};
  place.sin_family = AF_INET;
  place.sin_port = htons(kServerPort);
  ::inet_pton(AF_INET, address.toLatin1().constData(), &place.sin_addr);
  return place;
}

void Require(bool holds, const char* what) {
  if (!holds) {
    throw HarnessError(QString("%1: %2").arg(what, std::strerror(errno)));
  }
}

/// Waits until the socket can be read (POLLIN) or written (POLLOUT).
void Await(const Descriptor& socket, short event, const char* what) {
  pollfd wait = {socket.number(), event, 0};
  if (::poll(&wait, 1, static_cast<int>(process::kPatience.count())) != 1) {
    throw HarnessError(QString("waited in vain: %1").arg(what));
  }
}

}  // namespace

double Milliseconds(Clock::duration duration) {
  return std::chrono::duration<double, std::milli>(duration).count();
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

Descriptor::~Descriptor() {
  if (number_ >= 0) {
    ::close(number_);
  }
}

GameServer::GameServer()
    : address_(process::UniqueLoopbackAddress()),
      listening_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_in place = Place(address_);
  Require(::bind(listening_.number(), reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0,
          "cannot bind the server's address");
  Require(::listen(listening_.number(), 1) == 0, "cannot listen");
}

void GameServer::Accept() {
  Await(listening_, POLLIN, "for a client to connect");
  client_ = Descriptor(::accept4(listening_.number(), nullptr, nullptr, SOCK_CLOEXEC));
  Require(client_.number() >= 0, "cannot accept the client");
  const int on = 1;
  ::setsockopt(client_.number(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

void GameServer::Send(std::string_view bytes) const {
  while (!bytes.empty()) {
    Await(client_, POLLOUT, "for the client to take more");
    const ssize_t sent =
        ::send(client_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    Require(sent > 0, "cannot send to the client");
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

Clock::time_point GameServer::ReceiveUntil(std::string_view end) {
  std::string received;
  std::array<char, 4096> buffer;
  while (!received.ends_with(end)) {
    Await(client_, POLLIN, "for the client to send");
    const ssize_t count = ::recv(client_.number(), buffer.data(), buffer.size(), 0);
    Require(count > 0, "the client has gone");
    received.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return Clock::now();
}

void LetIn(GameServer& server) {
  server.ReceiveUntil({"\0", 1});
  constexpr char kAccepted[] = "[con]Marlow\00190";
  server.Send({kAccepted, sizeof kAccepted});
}

Discarder::Discarder(const GameServer& server)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_in place = Place(server.address());
  Require(::connect(socket_.number(), reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0,
          "cannot connect");
}

void Discarder::Discard(std::size_t count) const {
  std::string buffer(std::size_t{256} * 1024, '\0');
  while (count > 0) {
    const ssize_t got = ::recv(socket_.number(), buffer.data(), buffer.size(), 0);
    Require(got > 0, "the server has gone");
    count -= static_cast<std::size_t>(got);
  }
}

std::string_view ChatLine() {
  static constexpr char kLine[] =
      "[msg]cht\001"
      "Marlow: keep your defense up, I go for Industry and then we both take Corin"
      "\001False";
  return {kLine, sizeof kLine};  // the literal's own NUL is the terminator
}

std::string ChatLines(std::size_t count) {
  std::string lines;
  lines.reserve(count * ChatLine().size());
  for (std::size_t i = 0; i < count; ++i) {
    lines += ChatLine();
  }
  return lines;
}

}  // namespace korvanta::bench
