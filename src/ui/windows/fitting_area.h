/// The scroll area of windows that may be larger than the screen: the main window and the
/// statistics window.
#pragma once

#include <QScrollArea>

namespace korvanta {

/// As large as its content. Where the screen is too small, scroll bars appear, and the control that
/// receives the keyboard focus is scrolled into view.
class FittingArea : public QScrollArea {
 public:
  /// If `stretches`, the content fills extra space, and the window may be made smaller. Otherwise
  /// the content stays at the top left, and the window cannot be made smaller, screen permitting.
  FittingArea(QWidget* content, bool stretches);

  /// Sets the initial size of the window that holds this area: `wanted`, or as much as fits on the
  /// screen. Without stretching this is also its minimum size, on any screen.
  void FitWindow(QSize wanted);

  QSize sizeHint() const override { return ContentSize(); }
  QSize minimumSizeHint() const override { return {}; }

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QSize ContentSize() const;
  /// The part of `wanted_` that fits on the screen, with room for scroll bars.
  QSize FittingSize() const;
  void LimitWindow();

  QSize wanted_;
};

}  // namespace korvanta
