/// Plays the wave files beside the program.
#pragma once

#include <QString>
#include <memory>

#include "platform/sound_player.h"

namespace korvanta {

/// Nothing of the desktop's sound is touched before the first file is played. `program_folder`
/// holds the folder of the sounds.
std::unique_ptr<SoundPlayer> MakeSoundPlayer(const QString& program_folder);

}  // namespace korvanta
