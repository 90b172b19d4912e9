#include "ui/windows/side_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QWindow>

namespace korvanta {

SideWindow::SideWindow(WindowLife& life, QWidget* owner, Qt::WindowFlags flags)
    : QDialog(owner, flags), life_(life) {}

void SideWindow::Appear() {
  QWindow* const owner = parentWidget() == nullptr ? nullptr : parentWidget()->windowHandle();
  if (isVisible()) {
    raise();
    activateWindow();
  } else if (owner == nullptr || owner->isExposed()) {
    show();
  } else {
    owner->installEventFilter(this);  // its position is not known before
  }
}

bool SideWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose) {
    watched->removeEventFilter(this);
    show();
  }
  return false;
}

void SideWindow::reject() { life_.Unload(); }

void SideWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (enter && button != nullptr) {
    button->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void SideWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  life_.Unload();
}

}  // namespace korvanta
