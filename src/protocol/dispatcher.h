/// Dispatches everything that the server sends, one received block at a time. The client passes it
/// what the socket receives.
#pragma once

#include <string_view>

#include "protocol/inbound_handlers.h"

namespace korvanta {

class Dispatcher {
 public:
  explicit Dispatcher(InboundTargets targets) : targets_(targets) {}

  /// Handles a received block piece by piece. Keeps no state between blocks: a message split across
  /// two is two pieces. The first error silently drops the rest of the block; earlier effects
  /// remain.
  void HandleBlock(std::string_view block);

 private:
  InboundTargets targets_;
};

}  // namespace korvanta
