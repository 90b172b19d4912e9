#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace korvanta {
namespace {

std::uint32_t Number(const std::string& file, std::size_t at, std::size_t bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    number = number << 8 | static_cast<std::uint8_t>(file.at(at + i));
  }
  return number;
}

TEST(Sounds, EachIsWholeShortPcm) {
  for (const char* cue : {"gamestart", "tick", "attack", "attacked", "research", "wingame"}) {
    std::ifstream in(std::string(KORVANTA_SOUNDS) + "/" + cue + ".wav", std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(in), {}};
    ASSERT_GT(file.size(), 44U) << cue;
    EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ") << cue;
    EXPECT_EQ(Number(file, 20, 2), 1U) << cue << " is no PCM";
    EXPECT_EQ(Number(file, 40, 4), file.size() - 44) << cue;
    EXPECT_LE(file.size() - 44, 1.5 * Number(file, 28, 4)) << cue << " is too long";
  }
}

}  // namespace
}  // namespace korvanta
