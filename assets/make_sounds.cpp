/// Makes the six wave files of the server's sound cues: 16-bit mono PCM, written to the folder that
/// is its one argument. All maths is in whole numbers, so every machine makes the same bytes.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr std::int64_t kSamplesPerSecond = 22050;
constexpr std::int64_t kPeak = 24000;  ///< loudest sample of every file, 2.7 dB below the limit

enum class Voice { Bell, Horn, Wood, Noise };

/// One sounding note. It glides evenly from its first pitch to its last, rises to its strength over
/// `attack` and then halves every `half_life`.
struct Note {
  Voice voice;
  int start;  ///< milliseconds, like the three below
  int length;
  int attack;
  int half_life;
  int first_pitch;  ///< hundredths of a hertz; for noise, where it is cut off above
  int last_pitch;
  int strength;  ///< relative to the other notes of the sound
};

struct Sound {
  const char* name;
  int length;  ///< milliseconds
  std::vector<Note> notes;
};

const std::vector<Sound> kSounds = {
    {"gamestart",
     950,
     {{Voice::Horn, 0, 300, 12, 110, 39200, 39200, 80},
      {Voice::Horn, 130, 300, 12, 110, 52325, 52325, 85},
      {Voice::Horn, 260, 300, 12, 110, 65926, 65926, 90},
      {Voice::Horn, 400, 550, 14, 170, 78399, 78399, 100},
      {Voice::Horn, 400, 550, 14, 170, 52325, 52325, 60},
      {Voice::Bell, 400, 550, 4, 150, 156798, 156798, 30}}},
    {"tick",
     120,
     {{Voice::Wood, 0, 120, 1, 13, 118000, 104000, 100},
      {Voice::Noise, 0, 20, 1, 4, 600000, 300000, 25}}},
    {"attack",
     480,
     {{Voice::Noise, 0, 220, 120, 50, 60000, 420000, 75},
      {Voice::Wood, 170, 300, 2, 55, 24000, 6500, 100},
      {Voice::Noise, 170, 200, 2, 28, 500000, 90000, 70},
      {Voice::Bell, 170, 300, 2, 60, 209300, 205000, 28}}},
    {"attacked",
     800,
     {{Voice::Wood, 0, 420, 2, 90, 11000, 4500, 100},
      {Voice::Noise, 0, 350, 3, 60, 160000, 30000, 90},
      {Voice::Horn, 90, 260, 15, 120, 31113, 31113, 60},
      {Voice::Horn, 340, 440, 15, 140, 22000, 21200, 70},
      {Voice::Horn, 340, 440, 15, 140, 26163, 25200, 45}}},
    {"research",
     800,
     {{Voice::Bell, 0, 500, 3, 110, 78399, 78399, 80},
      {Voice::Bell, 90, 500, 3, 110, 98777, 98777, 80},
      {Voice::Bell, 190, 610, 3, 140, 117466, 117466, 100},
      {Voice::Bell, 190, 610, 3, 120, 234932, 234932, 20}}},
    {"wingame",
     1500,
     {{Voice::Horn, 0, 180, 10, 120, 52325, 52325, 85},
      {Voice::Horn, 150, 180, 10, 120, 52325, 52325, 85},
      {Voice::Horn, 300, 220, 10, 120, 65926, 65926, 90},
      {Voice::Horn, 480, 1020, 16, 300, 78399, 78399, 100},
      {Voice::Horn, 480, 1020, 16, 300, 65926, 65926, 65},
      {Voice::Horn, 480, 1020, 16, 300, 52325, 52325, 65},
      {Voice::Horn, 480, 1020, 16, 320, 26163, 26163, 55},
      {Voice::Bell, 480, 600, 3, 160, 156798, 156798, 25},
      {Voice::Bell, 620, 600, 3, 160, 209300, 209300, 25},
      {Voice::Bell, 760, 740, 3, 180, 263702, 263702, 25}}},
};

constexpr std::int64_t kOne = 1 << 15;  ///< fixed point: 15 binary places

std::int64_t Samples(std::int64_t milliseconds) { return milliseconds * kSamplesPerSecond / 1000; }

/// The sine of a phase whose 2^32 steps are one turn. A fifth-degree polynomial that is exact at
/// the quarter turns and elsewhere within 0.02 %.
std::int64_t Sine(std::uint32_t phase) {
  const std::uint32_t quarter = phase >> 30;
  std::int64_t x = (phase & 0x3fffffff) >> 15;  // 0 to one quarter turn
  if (quarter % 2 == 1) {
    x = kOne - x;
  }
  const std::int64_t square = x * x / kOne;
  // x * (pi - x^2 * ((2 pi - 5) - x^2 * (pi - 3))) / 2, with pi etc. in fixed point
  const std::int64_t inner = 42048 - square * 4640 / kOne;
  const std::int64_t sine = x * (102944 - square * inner / kOne) / (2 * kOne);
  return quarter < 2 ? sine : -sine;
}

struct Partial {
  std::int64_t hundredths;  ///< of the note's pitch
  std::int64_t strength;    ///< of 100
};

constexpr std::array<Partial, 5> kBell{{{100, 60}, {201, 22}, {300, 9}, {416, 6}, {543, 3}}};
constexpr std::array<Partial, 5> kHorn{{{100, 50}, {200, 26}, {300, 14}, {400, 7}, {500, 3}}};
constexpr std::array<Partial, 5> kWood{{{100, 70}, {276, 18}, {540, 7}, {893, 5}, {0, 0}}};

/// What a note gives over time, one sample a call. Partials too high for the file are left out.
class Player {
 public:
  explicit Player(const Note& note)
      : note_(note),
        length_(Samples(note.length)),
        attack_(std::max<std::int64_t>(1, Samples(note.attack))),
        half_life_(std::max<std::int64_t>(1, Samples(note.half_life))) {}

  std::int64_t Next() {
    const std::int64_t pitch =
        note_.first_pitch + (note_.last_pitch - note_.first_pitch) * at_ / length_;
    const std::int64_t wave = note_.voice == Voice::Noise ? NoiseAt(pitch) : ToneAt(pitch);
    const std::int64_t sample = wave * Envelope() / kOne * note_.strength / 100;
    ++at_;
    return sample;
  }

 private:
  std::int64_t ToneAt(std::int64_t pitch) {
    // 2^32 steps a turn, a hundredth of a hertz a unit of pitch
    phase_ += static_cast<std::uint32_t>((pitch << 32) / (kSamplesPerSecond * 100));
    const auto& partials = note_.voice == Voice::Bell   ? kBell
                           : note_.voice == Voice::Horn ? kHorn
                                                        : kWood;
    std::int64_t sum = 0;
    for (const Partial& partial : partials) {
      if (pitch * partial.hundredths / 100 < kSamplesPerSecond * 100 / 2) {
        const auto phase = phase_ * static_cast<std::uint64_t>(partial.hundredths) / 100;
        sum += Sine(static_cast<std::uint32_t>(phase)) * partial.strength / 100;
      }
    }
    return sum;
  }

  /// Noise behind two low-pass steps, so that it hisses less.
  std::int64_t NoiseAt(std::int64_t cutoff) {
    seed_ = seed_ * 1664525U + 1013904223U;
    const std::int64_t white = static_cast<std::int64_t>(seed_ >> 16) - kOne;
    const std::int64_t step = std::min(kOne, cutoff * 2 * kOne / (kSamplesPerSecond * 100));
    first_ += (white - first_) * step / kOne;
    second_ += (first_ - second_) * step / kOne;
    return second_;
  }

  /// Rises, halves every half life, and runs out to nothing over the last tenth.
  std::int64_t Envelope() const {
    const std::int64_t tail = std::max<std::int64_t>(1, length_ / 10);
    const std::int64_t fade = std::min(kOne, (length_ - 1 - at_) * kOne / tail);
    if (at_ < attack_) {
      return std::min(fade, at_ * kOne / attack_);
    }
    const std::int64_t age = at_ - attack_;
    const std::int64_t within = age % half_life_ * kOne / half_life_;
    // between two halvings, 2^-t by a parabola that meets both ends
    const std::int64_t falling = kOne - within * (21872 - within * 5488 / kOne) / kOne;
    return (falling >> std::min<std::int64_t>(age / half_life_, 30)) * fade / kOne;
  }

  const Note& note_;
  std::int64_t length_;
  std::int64_t attack_;
  std::int64_t half_life_;
  std::int64_t at_ = 0;
  std::uint64_t phase_ = 0;
  std::uint32_t seed_ = 1;
  std::int64_t first_ = 0;
  std::int64_t second_ = 0;
};

std::vector<std::int64_t> Mix(const Sound& sound) {
  std::vector<std::int64_t> mix(static_cast<std::size_t>(Samples(sound.length)));
  for (const Note& note : sound.notes) {
    Player player(note);
    const auto start = static_cast<std::size_t>(Samples(note.start));
    const auto end = std::min(mix.size(), start + static_cast<std::size_t>(Samples(note.length)));
    for (std::size_t i = start; i < end; ++i) {
      mix[i] += player.Next();
    }
  }
  std::int64_t loudest = 1;
  for (const std::int64_t sample : mix) {
    loudest = std::max(loudest, std::abs(sample));
  }
  for (std::int64_t& sample : mix) {
    sample = sample * kPeak / loudest;
  }
  return mix;
}

/// The low `bytes` bytes of a number, least significant first.
std::string LittleEndian(std::int64_t number, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) {
    text += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * i) & 0xff);
  }
  return text;
}

std::string WaveFile(const std::vector<std::int64_t>& samples) {
  const auto data_bytes = static_cast<std::int64_t>(samples.size()) * 2;
  std::string file = "RIFF" + LittleEndian(36 + data_bytes, 4) + "WAVEfmt " + LittleEndian(16, 4) +
                     LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(kSamplesPerSecond, 4) +
                     LittleEndian(kSamplesPerSecond * 2, 4) + LittleEndian(2, 2) +
                     LittleEndian(16, 2) + "data" + LittleEndian(data_bytes, 4);
  for (const std::int64_t sample : samples) {
    file += LittleEndian(sample, 2);
  }
  return file;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_sounds FOLDER\n";
    return 2;
  }
  for (const Sound& sound : kSounds) {
    const std::string path = std::string(argv[1]) + "/" + sound.name + ".wav";
    const std::string file = WaveFile(Mix(sound));
    std::ofstream out(path, std::ios::binary);
    out.write(file.data(), static_cast<std::streamsize>(file.size()));
    out.close();
    if (!out) {
      std::cerr << "cannot write " << path << '\n';
      return 1;
    }
  }
  return 0;
}
