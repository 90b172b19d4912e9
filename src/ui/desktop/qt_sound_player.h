/// Plays the wave files beside the program.
#pragma once

#include <QObject>
#include <QString>
#include <string_view>

#include "platform/sound_player.h"

namespace korvanta {

/// A sound lives from its start to its end. Only a few play together; one more cuts off the oldest.
/// Nothing of the desktop's sound is touched before the first file is played.
class QtSoundPlayer final : public SoundPlayer {
 public:
  /// `program_folder` holds the folder of the sounds.
  explicit QtSoundPlayer(QString program_folder);

  void Play(std::string_view file) override;

 private:
  QString program_folder_;
  QObject playing_;  ///< owns the sounds, oldest first
};

}  // namespace korvanta
