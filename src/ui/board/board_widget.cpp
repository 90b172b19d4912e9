#include "ui/board/board_widget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QTimer>
#include <QToolTip>

#include "ui/board/board_accessible.h"
#include "ui/board/board_layout.h"
#include "ui/board/row_caption.h"
#include "ui/kit/picture.h"
#include "ui/kit/plain_label.h"
#include "ui/kit/text.h"

namespace korvanta {

using namespace board_layout;

namespace {

constexpr QColor kWhite{255, 255, 255};
constexpr QColor kHintColour{255, 255, 0};
constexpr QColor kResearchColour{0, 255, 0};
constexpr int kResearchPixels = 17;
constexpr Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;

}  // namespace

BoardWidget::BoardWidget(ResearchBoard& board, QWidget* parent) : QWidget(parent), board_(board) {
  InstallBoardAccessibility();
  setObjectName(QStringLiteral("ResearchBoard"));
  setAccessibleName(QStringLiteral("Research board"));
  setFixedSize(kSize);
  // Clicks leave the keyboard focus in the chat line.
  setFocusPolicy(Qt::TabFocus);
  setContextMenuPolicy(Qt::PreventContextMenu);

  for (int level = 1; level <= kTopLevel; ++level) {
    const int left = BoxRect(BoxAt(0, level)).left() - kLevelCaptionOverhang;
    const int width = kBoxSide + 2 * kLevelCaptionOverhang;
    ShowLine(MakeLabel(this, QStringLiteral("Label1(%1)").arg(level - 1),
                       {{left, kLevelCaptionTop, width, 24}, kWhite, 14, false, Qt::AlignCenter}),
             QStringLiteral("Level %1").arg(level));
  }
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    const TopicRow& topic = kTopics[row];
    auto* caption = new RowCaption(this);
    const QRect rect{kCaptionLeft, RowMiddle(row) - 16, kCaptionWidth, 32};
    SetUpLabel(*caption, ToQString(topic.caption), {rect, ToQColor(topic.colour), 20, true});
    ShowLine(*caption, ToQString(topic.name));
  }
  const QString hint =
      QStringLiteral("Research any 2-Level 4 Topics and research Golden Knowledge to Win!");
  QLabel& Label6 = MakeLabel(this, QStringLiteral("Label6"),
                             {kHint, kHintColour, 14, false, Qt::AlignRight | Qt::AlignTop});
  Label6.setWordWrap(true);
  Label6.setText(hint);
  Label6.setAccessibleName(hint);
  Research = &MakeLabel(this, QStringLiteral("Research"),
                        {kResearch, kResearchColour, kResearchPixels, false, kRight});
  TickTime = &MakeLabel(this, QStringLiteral("TickTime"), {kTickTime, kWhite, 20, true, kRight});
  for (const auto& [kind, count] : {std::pair{BoardElement::Kind::Box, kBoxes},
                                    {BoardElement::Kind::Frame, kBoxes},
                                    {BoardElement::Kind::Line, kLines}}) {
    for (int box = 0; box < count; ++box) {
      elements_.append(new BoardElement(kind, box, *this));
    }
  }
  Refresh(BoardPart::Research);
  Refresh(BoardPart::TickTime);
  board_.on_changed = [this](BoardPart part) { Refresh(part); };
}

BoardWidget::~BoardWidget() { board_.on_changed = nullptr; }

void BoardWidget::Refresh(BoardPart part) {
  if (part == BoardPart::Research) {
    ShowLine(*Research, ToQString(board_.Research()), kResearchPixels);
  } else if (part == BoardPart::TickTime) {
    ShowLine(*TickTime, ToQString(board_.TickTime()));
  } else {
    const auto row = static_cast<std::size_t>(part);
    update();  // single rows would not end on whole device pixels at 125 and 150 %
    for (int level = 1; level <= kTopLevel; ++level) {
      AnnounceBoxRenamed(*this, BoxAt(row, level));
    }
  }
}

bool BoardWidget::IsReached(int box) const {
  return box != kGoldenIndex && board_.FrameWidth(RowOf(box), LevelOf(box)) == kReachedWidth;
}

QString BoardWidget::BoxText(int box) const {
  if (box == kGoldenIndex) {
    return ToQString(kGoldenKnowledgeName);
  }
  return QStringLiteral("%1, level %2, %3")
      .arg(ToQString(kTopics[RowOf(box)].name))
      .arg(LevelOf(box))
      .arg(IsReached(box) ? QStringLiteral("reached") : QStringLiteral("not reached"));
}

QString BoardWidget::BoxHint() {
  return QStringLiteral("Right click or Shift+F10: research this, or ask for information");
}

BoardElement* BoardWidget::Element(BoardElement::Kind kind, int box) const {
  return elements_[static_cast<int>(kind) * kBoxes + box];
}

int BoardWidget::BoxUnder(QPoint position) {
  for (int box = 0; box < kBoxes; ++box) {
    if (BoxRect(box).contains(position)) {
      return box;
    }
  }
  return -1;
}

QVariant BoardWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
  return query == Qt::ImCursorRectangle ? QVariant(BoxRect(current_))
                                        : QWidget::inputMethodQuery(query);
}

void BoardWidget::OpenBoxMenu(int box, QPoint global_pos, OpenedBy opened_by) const {
  if (!on_box_menu) {
    return;
  }
  if (box == kGoldenIndex) {
    on_box_menu(TopicCode::GoldenKnowledge, kGoldenKnowledgeLevel, global_pos, opened_by);
  } else {
    on_box_menu(kTopics[RowOf(box)].code, static_cast<std::int16_t>(LevelOf(box)), global_pos,
                opened_by);
  }
}

void BoardWidget::SetCurrentBox(int box) {
  if (box == current_) {
    return;
  }
  current_ = box;
  if (box != kGoldenIndex) {
    last_row_ = RowOf(box);
  }
  update();
  if (hasFocus()) {
    AnnounceBoxFocused(*this, current_);
  }
  if (on_current_box) {
    on_current_box(BoxRect(current_).center());
  }
}

bool BoardWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) {
    return QWidget::event(event);
  }
  const auto* help = static_cast<QHelpEvent*>(event);
  const int box = BoxUnder(help->pos());
  if (box < 0) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help->globalPos(), BoxText(box) + QLatin1Char('\n') + BoxHint(), this,
                       BoxRect(box));
  }
  return true;
}

void BoardWidget::mouseReleaseEvent(QMouseEvent* event) {
  const int box = BoxUnder(event->position().toPoint());
  if (event->button() == Qt::RightButton && box >= 0) {
    OpenBoxMenu(box, event->globalPosition().toPoint(), OpenedBy::Mouse);
  }
}

int BoardWidget::Neighbour(int key) const {
  if (current_ == kGoldenIndex) {
    return key == Qt::Key_Left ? BoxAt(last_row_, kTopLevel) : current_;
  }
  const std::size_t row = RowOf(current_);
  const int level = LevelOf(current_);
  switch (key) {
    case Qt::Key_Left:
      return level > 1 ? current_ - 1 : current_;
    case Qt::Key_Right:
      return level < kTopLevel ? current_ + 1 : kGoldenIndex;
    case Qt::Key_Up:
      return row > 0 ? BoxAt(row - 1, level) : current_;
    default:
      return row + 1 < kTopicRows ? BoxAt(row + 1, level) : current_;
  }
}

void BoardWidget::keyPressEvent(QKeyEvent* event) {
  const bool shifted = event->modifiers() == Qt::ShiftModifier;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      SetCurrentBox(Neighbour(event->key()));
      return;
    case Qt::Key_F10:
      if (!shifted) {
        break;
      }
      [[fallthrough]];
    case Qt::Key_Menu:
      OpenBoxMenu(current_, mapToGlobal(BoxRect(current_).center()), OpenedBy::Keyboard);
      return;
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

void BoardWidget::focusInEvent(QFocusEvent* /*event*/) {
  update();
  // After the toolkit has announced the focus of the board as a whole.
  QTimer::singleShot(0, this, [this] {
    if (hasFocus()) {
      AnnounceBoxFocused(*this, current_);
    }
  });
}

void BoardWidget::focusOutEvent(QFocusEvent* /*event*/) { update(); }

const BoardPictures& BoardWidget::Pictures() {
  const qreal ratio = devicePixelRatioF();
  if (pictures_[0].isNull() || pictures_[0].devicePixelRatio() != ratio) {
    for (std::size_t row = 0; row < kTopicRows; ++row) {
      pictures_[row] = RenderPicture(ToQString(kTopics[row].name).toLower(),
                                     {kPictureSide, kPictureSide}, ratio);
    }
    pictures_[kTopicRows] = RenderPicture(QStringLiteral("golden_knowledge"),
                                          {kGoldenPictureSide, kGoldenPictureSide}, ratio);
  }
  return pictures_;
}

void BoardWidget::paintEvent(QPaintEvent* event) {
  PaintBoard(*this, event->region(), board_, Pictures(), hasFocus() ? current_ : -1);
}

}  // namespace korvanta
