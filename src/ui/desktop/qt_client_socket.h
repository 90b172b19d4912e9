/// The client socket over the toolkit's TCP socket.
#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/client_socket.h"
#include "protocol/block_assembler.h"

class QTcpSocket;

namespace korvanta {

/// Delivers what arrives as `BlockAssembler` cuts it. Every event comes from the event loop,
/// one at a time and never from inside another, also when a handler runs an event loop of its own.
class QtClientSocket final : public ClientSocket {
 public:
  QtClientSocket();
  ~QtClientSocket() override;

  void Close() override;
  void Connect(const std::string& host, std::uint16_t port) override;
  void Send(std::string_view text) override;
  bool IsConnected() const override;

  /// Ends the connection when what was sent has left; no event follows.
  void Drain() override;

 private:
  /// What belongs to one attempt and ends with it.
  struct Attempt {
    QTcpSocket* socket = nullptr;
    BlockAssembler blocks;
    bool is_established = false;
    bool is_announced = false;  ///< `on_connected` was raised
    bool is_over = false;       ///< the peer closed or the connection broke
  };

  void Established();
  void Ended();
  void RaiseNext();
  template <typename... Arguments>
  void Raise(const std::function<void(Arguments...)>& event, Arguments... arguments);

  Attempt attempt_;
  bool is_raising_ = false;
  QTimer next_;           ///< runs `RaiseNext` in the next turn of the event loop
  QTimer rest_deadline_;  ///< runs it when a waiting rest is due
};

}  // namespace korvanta
