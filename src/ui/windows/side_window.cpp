#include "ui/windows/side_window.h"

#include <QCloseEvent>

namespace korvanta {

SideWindow::SideWindow(WindowLife& life, QWidget* owner, Qt::WindowFlags flags)
    : QDialog(owner, flags), life_(life) {}

void SideWindow::reject() { life_.Unload(); }

void SideWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  life_.Unload();
}

}  // namespace korvanta
