#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace korvanta {
namespace {

TEST(Sounds, EachIsWholeShortPcm) {
  for (const char* cue : {"gamestart", "tick", "attack", "attacked", "research", "wingame"}) {
    std::ifstream in(std::string(KORVANTA_SOUNDS) + "/" + cue + ".wav", std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(in), {}};
    ASSERT_GT(file.size(), 44U) << cue;
    std::array<std::uint32_t, 11> header;  // the test runs where the low byte comes first
    std::memcpy(header.data(), file.data(), sizeof header);
    EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ") << cue;
    EXPECT_EQ(header[5] % 0x10000, 1U) << cue << " is no PCM";
    EXPECT_EQ(header[10], file.size() - 44) << cue;
    EXPECT_LE(header[10], 1.5 * header[7]) << cue << " is too long";
  }
}

}  // namespace
}  // namespace korvanta
