/// What the windows beside the main one have in common.
#pragma once

#include <QDialog>

#include "base/window_life.h"

namespace korvanta {

/// A modeless window of `owner`. Its close button and Esc unload it; whoever made it takes it off
/// the screen and deletes it then. Enter presses the button that has the keyboard, in any other
/// control the default button if there is one.
class SideWindow : public QDialog {
 public:
  SideWindow(WindowLife& life, QWidget* owner, Qt::WindowFlags flags = {});

  /// Comes on the screen in the middle of its owner, once that is there itself; again, it comes
  /// forward.
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
