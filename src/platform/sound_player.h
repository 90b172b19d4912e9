/// Plays wave files for the server's sound cues.
#pragma once

#include <string_view>

namespace korvanta {

class SoundPlayer {
 public:
  SoundPlayer() = default;
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;
  virtual ~SoundPlayer() = default;

  /// Starts playing the file and returns at once. `file` is relative to the program's folder, with
  /// forward slashes. Silent if the file or a sound device is missing.
  virtual void Play(std::string_view file) = 0;
};

}  // namespace korvanta
