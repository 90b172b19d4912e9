/// Fuzz target: the message view, in chunks of the size that the input's first byte says.
#include <memory>

#include "fuzz/message_view_oracle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  return Play(data, size,
              [](std::size_t byte) { return std::make_unique<MessageViewOracle>(byte % 64 + 1); });
}
