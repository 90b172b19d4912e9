#include "ui/desktop/sound_player.h"

#include <QDir>
#include <QFileInfo>
#include <qt_windows.h>
#include <utility>

#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// The system plays one sound at a time; the next cuts it off.
class WaveSoundPlayer final : public SoundPlayer {
 public:
  explicit WaveSoundPlayer(QString program_folder) : program_folder_(std::move(program_folder)) {}

  void Play(std::string_view file) override {
    const QString path = program_folder_ + QLatin1Char('/') + ToQString(file);
    if (QFileInfo(path).isFile()) {
      PlaySoundW(QDir::toNativeSeparators(path).toStdWString().c_str(), nullptr,
                 SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
    }
  }

 private:
  QString program_folder_;
};

}  // namespace

std::unique_ptr<SoundPlayer> MakeSoundPlayer(const QString& program_folder) {
  return std::make_unique<WaveSoundPlayer>(program_folder);
}

}  // namespace korvanta
