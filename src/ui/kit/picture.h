/// The program's pictures, rendered for a screen.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

namespace korvanta {

/// The file of the picture of that name (a file in assets/pictures, without its ending), for what
/// loads and scales a picture by itself: icons and style sheets.
QString PictureFile(const QString& name);

/// The picture of that name, filling `size` logical pixels on a screen of `device_pixel_ratio`.
/// Transparent when there is none.
QPixmap RenderPicture(const QString& name, QSize size, qreal device_pixel_ratio);

}  // namespace korvanta
