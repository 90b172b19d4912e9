/// Ties a window to its presenter: it exists from the moment the presenter shows it until the
/// presenter unloads it.
#pragma once

#include <QPointer>
#include <memory>

#include "base/window_life.h"

class QWidget;

namespace korvanta {

/// `Form` is made as `new Form(presenter, owner)`, and its `Refresh` called whenever the presenter
/// changes. A window that closes is refreshed no more.
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
