#include <QApplication>
#include <QWidget>

#include "ui/theme.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  korvanta::theme::Apply(application);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Korvanta"));
  window.show();
  return QApplication::exec();
}
