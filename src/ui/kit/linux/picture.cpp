#include "ui/kit/picture.h"

#include <QPainter>
#include <QSvgRenderer>

namespace korvanta {

QString PictureFile(const QString& name) { return QStringLiteral(":/pictures/%1.svg").arg(name); }

QPixmap RenderPicture(const QString& name, QSize size, qreal device_pixel_ratio) {
  QSvgRenderer renderer(PictureFile(name));
  QPixmap picture(qRound(size.width() * device_pixel_ratio),
                  qRound(size.height() * device_pixel_ratio));
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter);
  painter.end();
  picture.setDevicePixelRatio(device_pixel_ratio);
  return picture;
}

}  // namespace korvanta
