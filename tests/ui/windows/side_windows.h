/// A main window to stand above, and the window under test, which follows its plain half on and off
/// the screen as it does in the program.
#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QTabBar>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

#include "base/window_life.h"

namespace korvanta {

template <typename Frame, typename Plain>
struct Desk {
  explicit Desk(Plain& plain) : life(plain.window()) {
    owner.setGeometry(200, 50, 500, 600);
    owner.show();
    life.on_show = [this, &plain] {
      if (!frame) {
        frame = std::make_unique<Frame>(plain, &owner);
      }
      frame->show();
    };
    life.on_unload = [this] { frame.release()->deleteLater(); };
  }
  ~Desk() { life.on_unload = nullptr; }

  void Open() {
    life.Show();
    frame->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  }
  bool IsClosed() const { return frame == nullptr && life.state() == WindowLife::State::Absent; }

  template <typename Control>
  Control& Get(const char* name) const {
    auto* control = frame->template findChild<Control*>(QLatin1String(name));
    if (control == nullptr) {
      throw std::logic_error(std::string("no control ") + name);
    }
    return *control;
  }

  WindowLife& life;
  QWidget owner;
  std::unique_ptr<Frame> frame;
};

/// Controls that a user can reach and that have no accessible name.
inline std::string NamelessControls(const QWidget& window) {
  std::string nameless;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr &&
        widget->accessibleName().isEmpty()) {
      nameless +=
          widget->objectName().toStdString() + "/" + widget->metaObject()->className() + " ";
    }
  }
  return nameless;
}

/// Opens the window, whose controls all have names, and closes it in each way that a user has: Esc,
/// and the button of its frame.
template <typename Frame, typename Plain>
void ExpectClosesByEscAndByItsFrame(Desk<Frame, Plain>& desk) {
  desk.Open();
  EXPECT_EQ(NamelessControls(*desk.frame), "");
  QTest::keyClick(desk.frame.get(), Qt::Key_Escape);
  EXPECT_TRUE(desk.IsClosed());
  desk.Open();
  desk.frame->close();
  EXPECT_TRUE(desk.IsClosed());
}

}  // namespace korvanta
