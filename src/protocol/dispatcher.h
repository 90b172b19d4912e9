/// The inbound dispatcher: everything that the server sends goes through it, one received block at
/// a time. The client gives it the socket's data arrivals.
#pragma once

#include <string_view>

#include "protocol/inbound_handlers.h"

namespace korvanta {

class Dispatcher {
 public:
  explicit Dispatcher(InboundTargets targets) : targets_(targets) {}

  /// Handles a received block, piece by piece. Keeps nothing afterwards: a message cut between two
  /// blocks is two pieces. The first error drops the rest of the block silently; what was done
  /// before stays done.
  void HandleBlock(std::string_view block);

 private:
  InboundTargets targets_;
};

}  // namespace korvanta
