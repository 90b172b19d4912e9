/// korvanta-empty-window WIDTH HEIGHT: a Qt program with one empty window of that size in the
/// middle of the screen, the least that a program with windows costs.
#include <QApplication>
#include <QPalette>
#include <QScreen>
#include <QWidget>
#include <cstdlib>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 3) {
    return 2;
  }
  QWidget window;
  window.setPalette(QPalette(QColor(0x80, 0x30, 0x60)));  // unlike any frame or background
  window.setFixedSize(std::atoi(argv[1]), std::atoi(argv[2]));
  window.move(window.screen()->availableGeometry().center() - window.rect().center());
  window.show();
  return QApplication::exec();
}
