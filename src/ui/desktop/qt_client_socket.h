/// The client socket, based on the toolkit's TCP socket.
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

/// Delivers received bytes in the blocks of `BlockAssembler`. Every event is raised from the event
/// loop, one at a time and never nested, even if a handler runs an event loop of its own.
class QtClientSocket final : public ClientSocket {
 public:
  QtClientSocket();
  ~QtClientSocket() override;

  void Close() override;
  void Connect(const std::string& host, std::uint16_t port) override;
  void Send(std::string_view text) override;
  bool IsConnected() const override;

  /// Closes the connection when everything sent has left; no event follows.
  void Drain() override;

 private:
  /// The state of one connection, from the attempt to its end.
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
  QTimer next_;                ///< runs `RaiseNext` in the next turn of the event loop
  QTimer remainder_deadline_;  ///< runs it when a remainder is due
};

}  // namespace korvanta
