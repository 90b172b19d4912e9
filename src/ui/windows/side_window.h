/// The base of the windows beside the main one.
#pragma once

#include <QDialog>

#include "base/window_life.h"

namespace korvanta {

/// A modeless window of `owner`. Its close button and Esc unload it; its creator then hides and
/// deletes it. Enter presses the focused button, or in any other control the default button if
/// there is one.
class SideWindow : public QDialog {
 public:
  SideWindow(WindowLife& life, QWidget* owner, Qt::WindowFlags flags = {});

  /// Shows the window in the middle of its owner, once that is on the screen; raises it if it is
  /// shown already.
  void Appear();

  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  WindowLife& life_;
};

}  // namespace korvanta
