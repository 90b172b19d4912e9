/// The game server's side of a benchmark: one client, bytes as fast as the system takes them, and
/// the moment at which an answer came.
#pragma once

#include <QString>
#include <chrono>
#include <string>
#include <string_view>

namespace korvanta::bench {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration duration);

/// An open file of the operating system, closed at the end of its life.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;
  ~Descriptor();
  int number() const { return number_; }

 private:
  int number_;
};

/// Blocks wherever it has to wait; every call throws HarnessError after the harness's patience.
/// One thread may send while another receives.
class GameServer {
 public:
  /// Listens at once on the game's port of its own loopback address.
  GameServer();

  const QString& address() const { return address_; }
  /// Takes the client that connects next; the one before is let go.
  void Accept();
  /// Ends the connection after all that was sent.
  void Close() { client_ = Descriptor(); }
  void Send(std::string_view bytes) const;
  /// Waits until the client has sent something that ends so; returns when it had come. Nothing
  /// received is given twice.
  Clock::time_point ReceiveUntil(std::string_view end);

 private:
  QString address_;
  Descriptor listening_;
  Descriptor client_;
};

/// Takes the login of the client that connected, whatever name it gives, and accepts it.
void LetIn(GameServer& server);

/// A client that throws away all it is sent.
class Discarder {
 public:
  explicit Discarder(const GameServer& server);
  /// Returns when `count` bytes have come.
  void Discard(std::size_t count) const;

 private:
  Descriptor socket_;
};

/// A chat line of 75 characters in two colours as the server sends it, its terminator included.
std::string_view ChatLine();
/// `count` of them.
std::string ChatLines(std::size_t count);

}  // namespace korvanta::bench
