/// Plays the wave files beside the program.
#pragma once

#include <QString>
#include <memory>

#include "platform/sound_player.h"

namespace korvanta {

/// The desktop's sound system is not used before the first file is played. `program_folder`
/// contains the folder of the sounds.
std::unique_ptr<SoundPlayer> MakeSoundPlayer(const QString& program_folder);

}  // namespace korvanta
