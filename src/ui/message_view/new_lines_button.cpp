#include "ui/message_view/new_lines_button.h"

#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {

NewLinesButton::NewLinesButton(QWidget* viewport) : QToolButton(viewport) {
  setObjectName(QStringLiteral("btnNewLines"));
  setFocusPolicy(Qt::NoFocus);  // it comes and goes; its keys are the action's
  setCursor(Qt::PointingHandCursor);
  setToolTip(QStringLiteral("Show them (Ctrl+J)"));
}

void NewLinesButton::Show(const UnseenLines& unseen, bool above) {
  if (unseen.count() == 0) {
    hide();
    return;
  }
  setText(ToQString(unseen.Caption()) +
          (above ? QStringLiteral(" above") : QStringLiteral(" below")));
  setAccessibleName(text());
  show();
  const QSize size = sizeHint();
  const QSize port = parentWidget()->size();
  const int y = above ? theme::kUnit : port.height() - size.height() - theme::kUnit;
  setGeometry({{port.width() - size.width() - theme::kUnit, y}, size});
}

}  // namespace korvanta
