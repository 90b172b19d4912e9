/// What windows are laid out in that may be larger than a screen: the main window and the
/// statistics window.
#pragma once

#include <QScrollArea>

namespace korvanta {

/// As large as its content. Where the screen has less room, scroll bars come, and the control that
/// takes the keyboard's focus scrolls into sight.
class FittingArea : public QScrollArea {
 public:
  /// `stretches`: the content fills room beyond its own, and the window may be made smaller. Else
  /// the content stays at the left top in a window that is no smaller, screen permitting.
  FittingArea(QWidget* content, bool stretches);

  /// Gives the window that holds this area its size at first: `wanted`, or what the screen has room
  /// for. Without stretching it is never smaller than that, whatever screen it comes to.
  void FitWindow(QSize wanted);

  QSize sizeHint() const override { return ContentSize(); }
  QSize minimumSizeHint() const override { return {}; }

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QSize ContentSize() const;
  /// The size of the window that this screen has room for.
  QSize Affordable() const;
  void LimitWindow();

  QSize wanted_;
};

}  // namespace korvanta
