/// Fuzz target: the message view, in chunks of the size that the input's first letter says.
#include "fuzz/message_view_oracle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  return Play(data, size, [](char letter) {
    return MessageViewOracle(static_cast<unsigned char>(letter) % 64 + 1);
  });
}
