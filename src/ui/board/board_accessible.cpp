#include "ui/board/board_accessible.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QAccessibleWidget>

#include "ui/board/board_element.h"
#include "ui/board/board_layout.h"
#include "ui/board/board_widget.h"

namespace korvanta {

using namespace board_layout;

namespace {

using Kind = BoardElement::Kind;

/// A box is a button with a menu, inside its frame. Frames and lines have a position but no text:
/// the name of the box describes what they show.
class ElementAccessible : public QAccessibleObject, public QAccessibleActionInterface {
 public:
  explicit ElementAccessible(BoardElement& element)
      : QAccessibleObject(&element), element_(element), board_(element.board()) {}

  QWindow* window() const override { return parent()->window(); }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(IsBox() ? Inside(Kind::Frame) : &board_);
  }
  QAccessibleInterface* child(int index) const override {
    return index < childCount() ? QAccessible::queryAccessibleInterface(Inside(Kind::Box))
                                : nullptr;
  }
  int childCount() const override { return element_.kind() == Kind::Frame ? 1 : 0; }
  int indexOfChild(const QAccessibleInterface* box) const override {
    return box != nullptr && box == child(0) ? 0 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    return rect().contains(x, y) ? child(0) : nullptr;
  }

  QString text(QAccessible::Text kind) const override {
    if (!IsBox()) {
      return {};
    }
    return kind == QAccessible::Name          ? board_.BoxText(element_.box())
           : kind == QAccessible::Description ? BoardWidget::BoxHint()
                                              : QString();
  }
  QRect rect() const override {
    const QRect inside = element_.rect();
    return {board_.mapToGlobal(inside.topLeft()), inside.size()};
  }
  QAccessible::Role role() const override {
    return IsBox()                          ? QAccessible::ButtonMenu
           : element_.kind() == Kind::Frame ? QAccessible::Grouping
                                            : QAccessible::Separator;
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = state.hasPopup = IsBox();
    state.focused = IsBox() && board_.hasFocus() && board_.current_box() == element_.box();
    state.disabled = !board_.isEnabled();
    state.invisible = !board_.isVisible();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return IsBox() && type == QAccessible::ActionInterface
               ? static_cast<QAccessibleActionInterface*>(this)
               : nullptr;
  }
  QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (name == setFocusAction()) {
      board_.SetCurrentBox(element_.box());
      board_.setFocus(Qt::OtherFocusReason);
    } else if (name == showMenuAction()) {
      board_.OpenBoxMenu(element_.box(), rect().center(), OpenedBy::Keyboard);
    }
  }
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
  bool IsBox() const { return element_.kind() == Kind::Box; }
  QObject* Inside(Kind kind) const { return board_.Element(kind, element_.box()); }

  BoardElement& element_;
  BoardWidget& board_;
};

/// The children are the labels, then the frames with their boxes, then the lines.
class BoardAccessible : public QAccessibleWidget {
 public:
  explicit BoardAccessible(BoardWidget& board)
      : QAccessibleWidget(&board, QAccessible::Grouping), board_(board) {}

  int childCount() const override { return Labels() + kBoxes + kLines; }
  QAccessibleInterface* child(int index) const override {
    const int frame = index - Labels();
    if (frame < 0) {
      return QAccessibleWidget::child(index);
    }
    const int line = frame - kBoxes;
    return QAccessible::queryAccessibleInterface(line < 0 ? board_.Element(Kind::Frame, frame)
                                                          : board_.Element(Kind::Line, line));
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* element = dynamic_cast<BoardElement*>(child->object());
    if (element == nullptr) {
      return QAccessibleWidget::indexOfChild(child);
    }
    return Labels() + (element->kind() == Kind::Line ? kBoxes : 0) + element->box();
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const int box = BoardWidget::BoxUnder(board_.mapFromGlobal(QPoint(x, y)));
    return box >= 0 ? child(Labels() + box) : QAccessibleWidget::childAt(x, y);
  }
  QAccessibleInterface* focusChild() const override {
    return board_.hasFocus() ? QAccessible::queryAccessibleInterface(
                                   board_.Element(Kind::Box, board_.current_box()))
                             : nullptr;
  }

 private:
  int Labels() const { return QAccessibleWidget::childCount(); }

  BoardWidget& board_;
};

QAccessibleInterface* Describe(const QString& /*class_name*/, QObject* object) {
  if (auto* element = dynamic_cast<BoardElement*>(object)) {
    return new ElementAccessible(*element);
  }
  auto* board = dynamic_cast<BoardWidget*>(object);
  return board == nullptr ? nullptr : new BoardAccessible(*board);
}

void Announce(const BoardWidget& board, int box, QAccessible::Event kind) {
  if (QAccessible::isActive()) {
    QAccessibleEvent event(board.Element(Kind::Box, box), kind);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace

void InstallBoardAccessibility() { QAccessible::installFactory(Describe); }

void AnnounceBoxRenamed(const BoardWidget& board, int box) {
  Announce(board, box, QAccessible::NameChanged);
}

void AnnounceBoxFocused(const BoardWidget& board, int box) {
  Announce(board, box, QAccessible::Focus);
}

}  // namespace korvanta
