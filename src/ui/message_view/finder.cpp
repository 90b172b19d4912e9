#include "ui/message_view/finder.h"

#include <QApplication>
#include <algorithm>

#include "ui/kit/text.h"
#include "ui/message_view/find_bar.h"

namespace korvanta {
namespace {

/// At most so many bytes of a found line are passed to screen readers.
constexpr std::size_t kMaxSpoken = 1000;

}  // namespace

Finder::Finder(MessageView& view, ScrollPosition& position, QWidget& widget)
    : view_(view), position_(position), widget_(widget), search_(view) {}

bool Finder::IsOpen() const { return bar_ != nullptr && !bar_->isHidden(); }

void Finder::Open() {
  if (bar_ == nullptr) {
    MakeBar();
  }
  if (!IsOpen()) {
    focus_before_ = QApplication::focusWidget();
    search_.Start();
    bar_->ShowOutcome(MessageSearch::Outcome::Nothing, {});
    bar_->show();
    on_changed();
  }
  bar_->StartTyping();
}

void Finder::Close() {
  QWidget* const back =
      focus_before_ != nullptr && focus_before_->isVisible() ? focus_before_.data() : &widget_;
  back->setFocus(Qt::OtherFocusReason);
  bar_->hide();
  search_.Stop();
  on_changed();
}

void Finder::Next(MessageSearch::Direction direction) {
  if (!IsOpen()) {
    Open();
  }
  ShowOutcome(search_.Next(direction));
}

int Finder::height() const { return IsOpen() ? bar_->sizeHint().height() : 0; }

void Finder::PlaceBelow(const QRect& viewport) {
  if (IsOpen()) {
    bar_->setGeometry(viewport.left(), viewport.bottom() + 1, viewport.width(), height());
  }
}

void Finder::MakeBar() {
  bar_ = new FindBar(&widget_);
  bar_->on_typed = [this](const QString& text) { ShowOutcome(search_.SetTerm(ToBytes(text))); };
  bar_->on_next = [this](MessageSearch::Direction direction) { Next(direction); };
  bar_->on_close = [this] { Close(); };
  bar_->on_select = [this] {
    search_.SelectMatch();
    Close();
    widget_.setFocus(Qt::OtherFocusReason);
  };
  bar_->hide();
}

void Finder::ShowOutcome(MessageSearch::Outcome outcome) {
  const TextRange match = search_.match();
  QString line;
  if (!match.empty()) {
    const std::size_t start = LineStart(view_.text(), match.from);
    const std::size_t end = LineEnd(view_.text(), match.from);
    line = ToQString(view_.text().Bytes(start, std::min(end, start + kMaxSpoken)));
    position_.ShowCentred(match);
  }
  bar_->ShowOutcome(outcome, line);
  on_changed();
}

}  // namespace korvanta
