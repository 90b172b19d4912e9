#include "ui/message_view/message_view_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <limits>

#include "lobby/line_colours.h"
#include "ui/kit/text.h"
#include "ui/message_view/message_view_widget.h"

namespace korvanta {
namespace {

/// The toolkit counts in ints; text beyond them is not accessible.
constexpr auto kReach = static_cast<std::size_t>(std::numeric_limits<int>::max());

int ToInt(std::size_t offset) { return static_cast<int>(std::min(offset, kReach)); }

/// One byte is one character, so offsets are the same on both sides. Only what is asked for is
/// converted.
class MessageViewAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit MessageViewAccessible(MessageViewWidget& view)
      : QAccessibleWidget(&view, QAccessible::EditableText), view_(view) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : QAccessibleWidget::interface_cast(type);
  }

  int characterCount() const override { return ToInt(Model().size()); }
  int cursorPosition() const override { return ToInt(Model().caret()); }
  void setCursorPosition(int position) override {
    Model().MoveCaret(Offset(position), false);
    view_.position().Show(Model().caret());
  }

  int selectionCount() const override { return Model().selection().empty() ? 0 : 1; }
  void selection(int index, int* from, int* to) const override {
    const TextRange range = index == 0 ? Model().selection() : TextRange{0, 0};
    *from = ToInt(range.from);
    *to = ToInt(range.to);
  }
  void addSelection(int from, int to) override { setSelection(0, from, to); }
  void setSelection(int index, int from, int to) override {
    if (index == 0) {
      Model().Select(Offset(from), Offset(to));
    }
  }
  void removeSelection(int index) override {
    if (index == 0) {
      Model().MoveCaret(Model().caret(), false);
    }
  }

  QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }
  QString text(int from, int to) const override {
    const std::size_t start = Offset(from);
    return ToQString(Model().text().Bytes(start, std::max(start, Offset(to))));
  }
  QString textAtOffset(int offset, QAccessible::TextBoundaryType unit, int* from,
                       int* to) const override {
    return Answer(UnitAt(Offset(offset), unit), from, to);
  }
  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType unit, int* from,
                           int* to) const override {
    const TextRange here = UnitAt(Offset(offset), unit);
    return Answer(here.from == 0 ? TextRange{0, 0} : UnitAt(here.from - 1, unit), from, to);
  }
  QString textAfterOffset(int offset, QAccessible::TextBoundaryType unit, int* from,
                          int* to) const override {
    const TextRange here = UnitAt(Offset(offset), unit);
    const bool last = here.to == Model().size();
    return Answer(last ? TextRange{here.to, here.to} : UnitAt(here.to, unit), from, to);
  }

  QRect characterRect(int offset) const override {
    const auto rect = view_.canvas().ByteRect(Offset(offset), view_.position().top());
    return rect ? QRect(view_.viewport()->mapToGlobal(rect->topLeft()), rect->size()) : QRect();
  }
  int offsetAtPoint(const QPoint& point) const override {
    const QPoint place = view_.viewport()->mapFromGlobal(point);
    return view_.viewport()->rect().contains(place)
               ? ToInt(view_.position().OffsetAt(view_.canvas().PositionAt(place), Aim::Byte))
               : -1;
  }
  void scrollToSubstring(int from, int to) override {
    view_.position().Show(Offset(to));
    view_.position().Show(Offset(from));
  }

  /// The colour, and how far it extends within the line.
  QString attributes(int offset, int* from, int* to) const override {
    const std::size_t place = Offset(offset);
    const TextRange line = LineAt(Model().text(), place);
    Excerpt excerpt;
    Model().text().Read(line.from, line.to, excerpt);
    std::size_t start = line.from;
    for (const ColourRun& run : excerpt.runs) {
      const std::size_t end = line.from + run.end;
      if (place < end) {
        *from = ToInt(start);
        *to = ToInt(end);
        const auto [red, green, blue] = ColourOf(run.role);
        return QStringLiteral("color:rgb(%1,%2,%3);").arg(red).arg(green).arg(blue);
      }
      start = end;
    }
    *from = *to = ToInt(place);
    return {};
  }

 private:
  MessageView& Model() const { return view_.model(); }

  /// Two values are special: -1 is the end of the text, -2 the caret.
  std::size_t Offset(int asked) const {
    if (asked < 0) {
      return asked == -2 ? Model().caret() : Model().size();
    }
    return std::min(static_cast<std::size_t>(asked), Model().size());
  }

  /// No unit is longer than a line.
  TextRange UnitAt(std::size_t offset, QAccessible::TextBoundaryType unit) const {
    const ColouredText& text = Model().text();
    const TextRows& rows = view_.position().rows();
    switch (unit) {
      case QAccessible::CharBoundary:
        return {CaretPosition(text, offset), NextCaretPosition(text, CaretPosition(text, offset))};
      case QAccessible::WordBoundary:
        return offset == LineEnd(text, offset)
                   ? TextRange{CaretPosition(text, offset), NextCaretPosition(text, offset)}
                   : WordAt(text, offset);
      case QAccessible::LineBoundary: {
        const std::size_t start = rows.StartOf(offset);
        return {start, rows.At(start).next};
      }
      case QAccessible::SentenceBoundary:
      case QAccessible::ParagraphBoundary:
      case QAccessible::NoBoundary:
        break;
    }
    return LineAt(text, offset);
  }

  QString Answer(TextRange range, int* from, int* to) const {
    *from = ToInt(range.from);
    *to = ToInt(range.to);
    return ToQString(Model().text().Bytes(range.from, range.to));
  }

  MessageViewWidget& view_;
};

QAccessibleInterface* MakeAccessible(const QString& /*class_name*/, QObject* object) {
  auto* view = dynamic_cast<MessageViewWidget*>(object);
  return view == nullptr ? nullptr : new MessageViewAccessible(*view);
}

}  // namespace

void InstallMessageViewAccessibility() { QAccessible::installFactory(MakeAccessible); }

void NotifyAccessibility(MessageViewWidget& widget, const MessageView::Change& change) {
  using What = MessageView::Change::What;
  if (!QAccessible::isActive() || change.what == What::ScrollLock) {
    return;
  }
  const MessageView& model = widget.model();
  if (change.what == What::Inserted) {
    const std::string bytes = model.text().Bytes(change.offset, change.offset + change.length);
    QAccessibleTextInsertEvent inserted(&widget, ToInt(change.offset), ToQString(bytes));
    QAccessible::updateAccessibility(&inserted);
  } else if (change.what == What::Cleared) {
    QAccessibleEvent cleared(&widget, QAccessible::VisibleDataChanged);
    QAccessible::updateAccessibility(&cleared);
  }
  const auto [from, to] = model.selection();
  QAccessibleTextSelectionEvent selected(&widget, ToInt(from), ToInt(to));
  selected.setCursorPosition(ToInt(model.caret()));
  QAccessible::updateAccessibility(&selected);
}

}  // namespace korvanta
