/// What the side windows have in common: the way they close, and the showing of plain text in the
/// controls that they are made of.
#pragma once

#include <QDialog>
#include <QGroupBox>
#include <QString>
#include <string_view>

#include "lobby/window_life.h"

class QLineEdit;

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

/// A group box whose caption may hold what the server sent: shown as it is, '&' included, cut to
/// the width of the box with the whole of it in the tool tip. The caption never widens the window.
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

/// Sets the control's own name and what assistive technology calls it.
void NameControl(QWidget& control, const QString& name, const QString& accessible_name);

/// Shows a text, from its start, unless the box shows it already. Of a text longer than anyone
/// reads, only the head: the toolkit lays out all that a box holds at every key.
void ShowText(QLineEdit& box, std::string_view text);

/// The text on one line and not longer than a screen is wide, for controls that cut it to their
/// width: measuring and painting stay cheap whatever the server sends.
QString OneLine(const QString& text);

/// A tool tip that shows `text` as it is, markup included, in lines that fit a screen. Very long
/// texts are cut.
QString PlainToolTip(const QString& text);

}  // namespace korvanta
