/// The program's pictures, rendered for a screen.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

namespace korvanta {

/// The file of the picture of that name (in assets/pictures, without its extension), for icons and
/// style sheets, which load and scale it themselves.
QString PictureFile(const QString& name);

/// The picture of that name, filling `size` logical pixels on a screen of `device_pixel_ratio`.
/// Transparent if there is none.
QPixmap RenderPicture(const QString& name, QSize size, qreal device_pixel_ratio);

}  // namespace korvanta
