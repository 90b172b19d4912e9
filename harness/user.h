/// A person at a virtual display: eyes that see windows, hands on keyboard and mouse.
#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>

#include "harness/host.h"
#include "harness/virtual_display.h"

namespace korvanta::harness {

struct Window {
  QString id;
  QString title;
};

/// Every call throws HarnessError when the display does not do what a person could expect.
class User {
 public:
  explicit User(const VirtualDisplay& display) : environment_(display.environment()) {}

  /// In place of a process: every client on the display, whatever it was started by.
  static constexpr qint64 kAnyClient = 0;
  /// The visible windows of a process.
  QList<Window> Windows(qint64 pid) const;
  /// Waits for a window whose title is `title`, or begins with it when it ends in "*".
  Window WaitForWindow(qint64 pid, const QString& title) const;

  void WaitUntilGone(const Window& window) const;

  /// Raises the window and waits until it has the keyboard focus.
  void Activate(const Window& window) const;
  /// Keys go to the focused window. Characters of the US layout only.
  void Type(const QString& text) const;
  /// One chord after the other, in X names: "ctrl+a", "Return", "alt+F4".
  void Press(const QStringList& chords) const;
  /// `place` is in fractions of the window's width and height, (0, 0) at the top left.
  void Click(const Window& window, QPointF place, int button = 1) const;

  /// Copies the whole text at `place` until it contains `text`, and returns it. Leaves the focus
  /// there, with the caret at the end of the text.
  QString WaitForText(const Window& window, QPointF place, const QString& text) const;
  /// The grey values of a part of a window, which is in fractions of its width and height.
  QByteArray Pixels(const Window& window, const QRectF& part = {0, 0, 1, 1}) const;
  /// Saves a picture (PNG) of a window, or of the whole screen.
  void Photograph(const Window& window, const QString& file) const;
  /// So with what other windows show in front of it.
  void PhotographWithAllAbove(const Window& window, const QString& file) const;
  void PhotographScreen(const QString& file) const;

  /// Runs a command by the shell on the display, and waits for its end.
  void RunCommand(const QString& command) const { Do("sh", {"-c", command}); }

 private:
  QSize SizeOf(const Window& window) const;
  void Save(const QString& window_id, const QString& file, const QStringList& options = {}) const;
  QString Do(const QString& program, const QStringList& arguments) const;

  QProcessEnvironment environment_;
};

}  // namespace korvanta::harness
