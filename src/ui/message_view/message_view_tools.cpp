/// What the message view offers beside its text: letters of another size, the search, and the mark
/// that tells of lines out of sight.
#include <QAction>
#include <QApplication>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "ui/kit/text.h"
#include "ui/kit/theme.h"
#include "ui/message_view/find_bar.h"
#include "ui/message_view/message_view_widget.h"

namespace korvanta {
namespace {

using Direction = MessageSearch::Direction;

constexpr std::array<int, 12> kZoomLevels = {60,  70,  80,  90,  100, 110,
                                             125, 150, 175, 200, 250, 300};
constexpr std::size_t kNormalLevel = 4;
static_assert(kZoomLevels[kNormalLevel] == 100);

/// The most of a found line that is handed to screen readers.
constexpr std::size_t kMostToRead = 1000;

}  // namespace

/// The keys hold in the whole window, so that nobody has to leave the chat line for them. The main
/// menu has Ctrl+F and F3 for uses of its own.
void MessageViewWidget::MakeActions() {
  struct Entry {
    const char* name;
    const char* caption;
    std::array<const char*, 2> keys;
    std::function<void()> act;
  };
  const Entry entries[] = {
      {"mnuFind", "&Find", {"Ctrl+Shift+F"}, [this] { OpenFind(); }},
      {"mnuFindOlder", "Find &Older", {"Ctrl+G"}, [this] { FindNext(Direction::Older); }},
      {"mnuFindNewer", "Find &Newer", {"Ctrl+Shift+G"}, [this] { FindNext(Direction::Newer); }},
      {"mnuNewLines", "&Show New Lines", {"Ctrl+J"}, [this] { ShowNewLines(); }},
      {"mnuLarger", "&Larger Text", {"Ctrl++", "Ctrl+="}, [this] { Zoom(1); }},
      {"mnuSmaller", "S&maller Text", {"Ctrl+-"}, [this] { Zoom(-1); }},
      {"mnuNormalSize", "Normal Si&ze", {"Ctrl+0"}, [this] { ZoomTo(kNormalLevel); }},
  };
  zoom_level_ = kNormalLevel;
  for (const auto& [name, caption, keys, act] : entries) {
    auto* action = new QAction(QLatin1String(caption), this);
    action->setObjectName(QLatin1String(name));
    QList<QKeySequence> shortcuts;
    for (const char* key : keys) {
      if (key != nullptr) {
        shortcuts.push_back(QKeySequence(QLatin1String(key), QKeySequence::PortableText));
      }
    }
    action->setShortcuts(shortcuts);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
  }
  mnuNewLines = findChild<QAction*>(QStringLiteral("mnuNewLines"));
  mnuNewLines->setEnabled(false);
}

int MessageViewWidget::zoom() const { return kZoomLevels[zoom_level_]; }

void MessageViewWidget::Zoom(int steps) {
  const int level = static_cast<int>(zoom_level_) + steps;
  ZoomTo(static_cast<std::size_t>(std::clamp(level, 0, static_cast<int>(kZoomLevels.size()) - 1)));
}

void MessageViewWidget::ZoomTo(std::size_t level) {
  if (level == zoom_level_) {
    return;
  }
  SettleChanges();
  follow_ = IsEndLookedAt();
  zoom_level_ = level;
  ApplyFont();
}

void MessageViewWidget::ApplyFont() {
  QFont scaled = font();
  const double factor = zoom() / 100.0;
  if (scaled.pixelSize() > 0) {
    scaled.setPixelSize(qRound(scaled.pixelSize() * factor));
  } else {
    scaled.setPointSizeF(scaled.pointSizeF() * factor);
  }
  canvas_.SetFont(scaled);
  wrap_changed_ = end_changed_ = true;
  Settle();
  viewport()->update();
}

bool MessageViewWidget::IsFindOpen() const {
  return find_bar_ != nullptr && !find_bar_->isHidden();
}

void MessageViewWidget::OpenFind() {
  if (find_bar_ == nullptr) {
    find_bar_ = new FindBar(this);
    find_bar_->on_typed = [this](const QString& text) { ShowOutcome(search_.Seek(ToBytes(text))); };
    find_bar_->on_next = [this](Direction direction) { FindNext(direction); };
    find_bar_->on_close = [this] { CloseFind(); };
    find_bar_->on_take = [this] {
      search_.Take();
      CloseFind();
      setFocus(Qt::OtherFocusReason);
    };
    find_bar_->hide();
  }
  if (!IsFindOpen()) {
    focus_before_find_ = QApplication::focusWidget();
    search_.Start();
    find_bar_->Tell(MessageSearch::Outcome::Nothing, {});
    find_bar_->show();
    setViewportMargins(0, 0, 0, find_bar_->sizeHint().height());
    PlaceTools();
  }
  find_bar_->Begin();
}

void MessageViewWidget::CloseFind() {
  QWidget* const back = focus_before_find_ != nullptr && focus_before_find_->isVisible()
                            ? focus_before_find_.data()
                            : this;
  back->setFocus(Qt::OtherFocusReason);
  find_bar_->hide();
  search_.Stop();
  setViewportMargins(0, 0, 0, 0);
  viewport()->update();
}

void MessageViewWidget::FindNext(Direction direction) {
  if (!IsFindOpen()) {
    OpenFind();
  }
  ShowOutcome(search_.Next(direction));
}

void MessageViewWidget::ShowOutcome(MessageSearch::Outcome outcome) {
  const auto [from, to] = search_.match();
  QString line;
  if (from != to) {
    SettleChanges();
    const std::size_t start = LineStart(view_.text(), from);
    const std::size_t end = LineEnd(view_.text(), from);
    line = ToQString(view_.text().Bytes(start, std::min(end, start + kMostToRead)));
    if (!canvas_.IsInSight(from, top_) || !canvas_.IsInSight(to, top_)) {
      const TextRows& rows = canvas_.rows();
      ScrollTo(rows.Up(rows.StartOf(from), canvas_.WholeRows() / 2));
    }
  }
  find_bar_->Tell(outcome, line);
  viewport()->update();
}

/// Scrolls only: the caret, where lines go in, stays where the user has put it.
void MessageViewWidget::ShowNewLines() {
  if (unseen_.count() > 0) {
    ShowOffset(LineEnd(view_.text(), unseen_.newest()));
    ShowOffset(unseen_.newest());
  }
}

void MessageViewWidget::RefreshNewLines() {
  if (unseen_.count() > 0 && canvas_.IsInSight(unseen_.newest(), top_)) {
    unseen_.Clear();
  }
  const bool any = unseen_.count() > 0;
  mnuNewLines->setEnabled(any);
  if (!any) {
    if (btnNewLines != nullptr) {
      btnNewLines->hide();
    }
    return;
  }
  if (btnNewLines == nullptr) {
    btnNewLines = new QToolButton(viewport());
    btnNewLines->setObjectName(QStringLiteral("btnNewLines"));
    btnNewLines->setFocusPolicy(Qt::NoFocus);  // it comes and goes; its keys are the action's
    btnNewLines->setCursor(Qt::PointingHandCursor);
    btnNewLines->setToolTip(QStringLiteral("Show them (Ctrl+J)"));
    connect(btnNewLines, &QToolButton::clicked, this, [this] { ShowNewLines(); });
  }
  const QString where =
      unseen_.newest() < top_ ? QStringLiteral(" above") : QStringLiteral(" below");
  btnNewLines->setText(ToQString(unseen_.Caption()) + where);
  btnNewLines->setAccessibleName(btnNewLines->text());
  btnNewLines->show();
  PlaceTools();
}

void MessageViewWidget::PlaceTools() {
  const QRect port = viewport()->geometry();
  if (IsFindOpen()) {
    find_bar_->setGeometry(port.left(), port.bottom() + 1, port.width(),
                           find_bar_->sizeHint().height());
  }
  if (btnNewLines != nullptr && !btnNewLines->isHidden()) {
    const QSize size = btnNewLines->sizeHint();
    const bool above = unseen_.newest() < top_;
    btnNewLines->setGeometry(port.width() - size.width() - theme::kUnit,
                             above ? theme::kUnit : port.height() - size.height() - theme::kUnit,
                             size.width(), size.height());
  }
}

}  // namespace korvanta
