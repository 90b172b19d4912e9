/// The group boxes of the side windows.
#pragma once

#include <QGroupBox>
#include <QString>

namespace korvanta {

/// A group box whose caption may hold text from the server: shown literally, '&' included, elided
/// to the width of the box, with the full text in the tool tip. The caption never widens the
/// window.
class CaptionFrame : public QGroupBox {
 public:
  void SetCaption(const QString& caption);

  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitTitle();

  QString caption_;
};

}  // namespace korvanta
