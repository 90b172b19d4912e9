#include "ui/board/board_element.h"

#include "ui/board/board_layout.h"
#include "ui/board/board_widget.h"
#include "ui/kit/text.h"

namespace korvanta {

using namespace board_layout;

namespace {

QString NameOf(BoardElement::Kind kind, int box) {
  const bool is_box = kind == BoardElement::Kind::Box;
  if (box == kGoldenIndex) {
    return is_box ? QStringLiteral("GoldKnow") : QStringLiteral("Shape1");
  }
  const TopicRow& row = kTopics[RowOf(box)];
  const bool is_frame = kind == BoardElement::Kind::Frame;
  const std::string_view name = is_box ? row.boxes : is_frame ? row.frames : row.lines;
  return QStringLiteral("%1(%2)").arg(ToQString(name)).arg(LevelOf(box));
}

}  // namespace

BoardElement::BoardElement(Kind kind, int box, BoardWidget& board)
    : QObject(&board), kind_(kind), box_(box) {
  setObjectName(NameOf(kind, box));
}

BoardWidget& BoardElement::board() const { return *static_cast<BoardWidget*>(parent()); }

QRect BoardElement::rect() const {
  return kind_ == Kind::Line ? LineRect(RowOf(box_), LevelOf(box_)) : BoxRect(box_);
}

}  // namespace korvanta
