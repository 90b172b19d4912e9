#include "ui/kit/picture.h"

namespace korvanta {

QString PictureFile(const QString& name) { return QStringLiteral(":/pictures/%1.png").arg(name); }

/// The file holds the picture in more pixels than any screen asks for.
QPixmap RenderPicture(const QString& name, QSize size, qreal device_pixel_ratio) {
  const QSize pixels(qRound(size.width() * device_pixel_ratio),
                     qRound(size.height() * device_pixel_ratio));
  QPixmap picture =
      QPixmap(PictureFile(name)).scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  if (picture.isNull()) {
    picture = QPixmap(pixels);
    picture.fill(Qt::transparent);
  }
  picture.setDevicePixelRatio(device_pixel_ratio);
  return picture;
}

}  // namespace korvanta
