#include "ui/board/board_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <array>

#include "ui/board/board_layout.h"
#include "ui/board/board_widget.h"

namespace korvanta {

using namespace board_layout;

namespace {

class BoxAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  BoxAccessible(BoardWidget& board, int box) : board_(board), box_(box) {}

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&board_);
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? board_.BoxText(box_) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  QRect rect() const override {
    const QRect place = BoxRect(box_);
    return {board_.mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::Role role() const override { return QAccessible::ButtonMenu; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.hasPopup = true;
    state.focused = board_.hasFocus() && board_.current_box() == box_;
    state.disabled = !board_.isEnabled();
    state.invisible = !board_.isVisible();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (name == setFocusAction()) {
      board_.SetCurrentBox(box_);
      board_.setFocus(Qt::OtherFocusReason);
    } else if (name == showMenuAction()) {
      board_.OpenBoxMenu(box_, rect().center());
    }
  }
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
  BoardWidget& board_;
  int box_;
};

/// The labels come first, as children of their own; the boxes follow.
class BoardAccessible : public QAccessibleWidget {
 public:
  explicit BoardAccessible(BoardWidget& board) : QAccessibleWidget(&board, QAccessible::Grouping) {
    for (int box = 0; box < kBoxes; ++box) {
      boxes_[static_cast<std::size_t>(box)] =
          QAccessible::registerAccessibleInterface(new BoxAccessible(board, box));
    }
  }
  ~BoardAccessible() override {
    for (const QAccessible::Id id : boxes_) {
      QAccessible::deleteAccessibleInterface(id);
    }
  }

  int childCount() const override { return Labels() + kBoxes; }
  QAccessibleInterface* child(int index) const override {
    return index < Labels() ? QAccessibleWidget::child(index) : Box(index - Labels());
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int box = 0; box < kBoxes; ++box) {
      if (Box(box) == child) {
        return Labels() + box;
      }
    }
    return QAccessibleWidget::indexOfChild(child);
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const int box = BoardWidget::BoxUnder(widget()->mapFromGlobal(QPoint(x, y)));
    return box >= 0 ? Box(box) : QAccessibleWidget::childAt(x, y);
  }
  QAccessibleInterface* focusChild() const override {
    return widget()->hasFocus() ? Box(static_cast<BoardWidget*>(widget())->current_box()) : nullptr;
  }

 private:
  int Labels() const { return QAccessibleWidget::childCount(); }
  QAccessibleInterface* Box(int box) const {
    if (box < 0 || box >= kBoxes) {
      return nullptr;
    }
    return QAccessible::accessibleInterface(boxes_[static_cast<std::size_t>(box)]);
  }

  std::array<QAccessible::Id, kBoxes> boxes_{};
};

QAccessibleInterface* MakeBoardAccessible(const QString& /*class_name*/, QObject* object) {
  auto* board = dynamic_cast<BoardWidget*>(object);
  return board == nullptr ? nullptr : new BoardAccessible(*board);
}

void Tell(BoardWidget& board, int box, QAccessible::Event kind) {
  if (!QAccessible::isActive()) {
    return;
  }
  const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&board);
  QAccessibleEvent event(&board, kind);
  event.setChild(interface->childCount() - kBoxes + box);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void InstallBoardAccessibility() { QAccessible::installFactory(MakeBoardAccessible); }

void TellBoxRenamed(BoardWidget& board, int box) { Tell(board, box, QAccessible::NameChanged); }

void TellBoxFocused(BoardWidget& board, int box) { Tell(board, box, QAccessible::Focus); }

}  // namespace korvanta
