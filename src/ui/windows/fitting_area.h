/// What windows are laid out in that may be larger than a screen: the main window and the
/// statistics window.
#pragma once

#include <QScrollArea>

namespace korvanta {

/// As large as its content, and then no more to see than the content alone. Where the screen has
/// less room, scroll bars come, and the control that takes the keyboard's focus scrolls into sight.
class FittingArea : public QScrollArea {
 public:
  /// `stretches`: the content fills room beyond its own, and bars come in every window that is
  /// smaller. Else it stays at the left top, and is cut off in a window smaller than need be.
  FittingArea(QWidget* content, bool stretches);

  QSize sizeHint() const override { return ContentSize(); }
  QSize minimumSizeHint() const override { return {}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  QSize ContentSize() const;
  bool MayScroll() const;
};

/// Gives a window that holds a FittingArea its size at first: that which its layout asks for, or
/// what the screen has room for.
void FitToScreen(QWidget& window, QSize wanted);

}  // namespace korvanta
