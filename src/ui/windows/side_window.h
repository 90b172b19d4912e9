/// The way the side windows close.
#pragma once

#include <QDialog>

#include "base/window_life.h"

namespace korvanta {

/// A modeless window of `owner`. Its close button and Esc unload it; whoever made it takes it off
/// the screen and deletes it then.
class SideWindow : public QDialog {
 public:
  SideWindow(WindowLife& life, QWidget* owner, Qt::WindowFlags flags = {});

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  WindowLife& life_;
};

}  // namespace korvanta
