/// Binds a window to its presenter: it exists from the moment the presenter shows it until the
/// presenter unloads it.
#pragma once

#include <QPointer>
#include <memory>

#include "base/window_life.h"

class QWidget;

namespace korvanta {

/// `Form` is created as `new Form(presenter, owner)`; its `Refresh` is called whenever the
/// presenter changes, until the window is unloaded.
template <typename Form, typename Presenter>
void BindWindow(Presenter& presenter, QWidget* owner) {
  const auto form = std::make_shared<QPointer<Form>>();
  presenter.window().on_show = [&presenter, owner, form] {
    if (form->isNull()) {
      *form = new Form(presenter, owner);
      presenter.on_changed = [form] {
        if (!form->isNull()) {
          (*form)->Refresh();
        }
      };
    }
    (*form)->Appear();
  };
  presenter.window().on_unload = [form] {
    if (!form->isNull()) {
      (*form)->hide();
      (*form)->deleteLater();
      form->clear();
    }
  };
}

}  // namespace korvanta
