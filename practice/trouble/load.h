/// Load for measuring clients: a transport in front of another, which adds invented players to
/// every online list and floods everyone who is logged in with chat. The rest of the server is
/// unaware of it.
#pragma once

#include <chrono>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "practice/base/dice.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

struct LoadOptions {
  int crowd = 0;              ///< invented players in each online list
  int lines_per_second = 0;   ///< of chat, to everyone who is logged in
  bool is_unbounded = false;  ///< chat has no rate: each connection gets as much as it takes
};

/// Records of an online list, a separator behind each. The names differ from one another, and from
/// those that players can have.
std::string CrowdRecords(int players, std::uint64_t seed);

class Load : public Transport {
 public:
  /// The next transport must outlive it. The seed is that of the invented names and lines.
  Load(Transport& next, const LoadOptions& options, std::uint64_t seed);

  void Send(ConnectionId connection, std::string_view messages) override;
  void Close(ConnectionId connection) override { next_.Close(connection); }
  void Vanished(ConnectionId connection) { logged_in_.erase(connection); }

  /// Time goes on, as in Server::Tick().
  void Tick(std::chrono::milliseconds now);
  /// Little waits on the way to the connection, so that it can take more.
  void Refill(ConnectionId connection);

 private:
  Transport& next_;
  LoadOptions options_;
  std::string crowd_;
  Dice dice_;
  std::set<ConnectionId> logged_in_;
  std::chrono::milliseconds last_tick_{0};
  double lines_due_ = 0;
};

}  // namespace korvanta::practice
