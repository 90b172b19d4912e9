/// Ties a window's plain half to its Qt half: the Qt window exists from the moment the plain half
/// shows it until the plain half unloads it.
#pragma once

#include <QPointer>
#include <memory>

#include "base/window_life.h"

class QWidget;

namespace korvanta {

/// `Form` is made as `new Form(plain, owner)` and sets `plain.on_changed`, which the binding clears
/// when the window goes: a window on its way out hears of nothing, and takes nothing from the next.
template <typename Form, typename Plain>
void BindWindow(Plain& plain, QWidget* owner) {
  const auto form = std::make_shared<QPointer<Form>>();
  plain.window().on_show = [&plain, owner, form] {
    if (form->isNull()) {
      *form = new Form(plain, owner);
      (*form)->show();  // where the desktop puts a new window, and with what focus, is its affair
      return;
    }
    (*form)->show();
    (*form)->raise();
    (*form)->activateWindow();
  };
  plain.window().on_unload = [&plain, form] {
    plain.on_changed = nullptr;
    if (!form->isNull()) {
      (*form)->hide();
      (*form)->deleteLater();
      form->clear();
    }
  };
}

}  // namespace korvanta
