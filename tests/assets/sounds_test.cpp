#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace korvanta {
namespace {

std::uint32_t Number(const std::string& file, std::size_t at, std::size_t bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    number = number << 8 | static_cast<std::uint8_t>(file.at(at + i));
  }
  return number;
}

class SoundFile : public testing::TestWithParam<const char*> {};

TEST_P(SoundFile, IsShortCleanPcm) {
  std::ifstream in(std::string(KORVANTA_SOUNDS) + "/" + GetParam() + ".wav", std::ios::binary);
  const std::string file{std::istreambuf_iterator<char>(in), {}};
  ASSERT_GT(file.size(), 44U);
  EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ");
  EXPECT_EQ(Number(file, 4, 4), file.size() - 8);
  EXPECT_EQ(Number(file, 20, 2), 1U) << "PCM";
  EXPECT_EQ(Number(file, 22, 2), 1U) << "one channel";
  EXPECT_EQ(Number(file, 34, 2), 16U) << "bits a sample";
  EXPECT_EQ(file.substr(36, 4), "data");
  EXPECT_EQ(Number(file, 40, 4), file.size() - 44);

  std::vector<int> samples;
  for (std::size_t at = 44; at < file.size(); at += 2) {
    samples.push_back(static_cast<std::int16_t>(Number(file, at, 2)));
  }
  const double seconds = static_cast<double>(samples.size()) / Number(file, 24, 4);
  EXPECT_GE(seconds, 0.1);
  EXPECT_LE(seconds, 1.5);
  const int loudest = std::abs(*std::max_element(
      samples.begin(), samples.end(), [](int a, int b) { return std::abs(a) < std::abs(b); }));
  EXPECT_LT(loudest, 32000) << "clipped";
  EXPECT_GT(loudest, 10000) << "hardly to be heard";
  EXPECT_LT(std::abs(samples.front()), 200) << "starts with a click";
  EXPECT_LT(std::abs(samples.back()), 200) << "ends with a click";
}

INSTANTIATE_TEST_SUITE_P(Cues, SoundFile,
                         testing::Values("gamestart", "tick", "attack", "attacked", "research",
                                         "wingame"),
                         [](const auto& cue) { return std::string(cue.param); });

}  // namespace
}  // namespace korvanta
