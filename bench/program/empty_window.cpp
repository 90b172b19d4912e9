/// A Qt program with one empty window of the splash's size at the splash's place: the least that a
/// program with windows costs.
#include <QApplication>
#include <QPalette>
#include <QScreen>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setPalette(QPalette(QColor(0x80, 0x30, 0x60)));  // no frame or background is like it
  window.setFixedSize(520, 320);
  window.move(window.screen()->availableGeometry().center() - window.rect().center());
  window.show();
  return QApplication::exec();
}
