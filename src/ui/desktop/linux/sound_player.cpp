#include "ui/desktop/sound_player.h"

#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QObject>
#include <QSoundEffect>
#include <QUrl>
#include <utility>

#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr qsizetype kMaxPlaying = 4;

/// Only a few sounds play at a time; another one cuts off the oldest.
class QtSoundPlayer final : public SoundPlayer {
 public:
  explicit QtSoundPlayer(QString program_folder) : program_folder_(std::move(program_folder)) {}

  void Play(std::string_view file) override;

 private:
  QString program_folder_;
  QObject playing_;  ///< owns the sounds, oldest first
};

void QtSoundPlayer::Play(std::string_view file) {
  const QString path = program_folder_ + QLatin1Char('/') + ToQString(file);
  if (!QFileInfo(path).isFile()) {
    return;
  }
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) {
    return;
  }
  while (playing_.children().size() >= kMaxPlaying) {
    delete playing_.children().constFirst();
  }
  auto* sound = new QSoundEffect(device, &playing_);
  QObject::connect(sound, &QSoundEffect::playingChanged, sound, [sound] {
    if (!sound->isPlaying()) {
      sound->deleteLater();
    }
  });
  QObject::connect(sound, &QSoundEffect::statusChanged, sound, [sound] {
    if (sound->status() == QSoundEffect::Error) {
      sound->deleteLater();
    }
  });
  sound->setSource(QUrl::fromLocalFile(path));
  sound->play();
}

}  // namespace

std::unique_ptr<SoundPlayer> MakeSoundPlayer(const QString& program_folder) {
  return std::make_unique<QtSoundPlayer>(program_folder);
}

}  // namespace korvanta
