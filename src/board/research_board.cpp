#include "board/research_board.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "base/change_notice.h"

namespace korvanta {
namespace {

constexpr std::size_t kPopulationRow = 2;
constexpr std::size_t kDefenseRow = 3;

/// The fewest significant digits that identify the number, padded with zeros up to the decimal
/// point.
std::string PlainDecimal(double number) {
  std::array<char, 32> written;
  const auto end = std::to_chars(written.data(), written.data() + written.size(), number,
                                 std::chars_format::scientific)
                       .ptr;
  const std::string_view text(written.data(), static_cast<std::size_t>(end - written.data()));
  const std::size_t mark = text.find('e');
  if (mark == std::string_view::npos) {
    return std::string(text);  // infinite, or not a number
  }
  const bool negative = text.front() == '-';
  std::string digits(text.substr(negative ? 1 : 0, mark - (negative ? 1 : 0)));
  std::erase(digits, '.');
  const bool small = text[mark + 1] == '-';
  int exponent = 0;
  std::from_chars(text.data() + mark + 2, end, exponent);
  if (small) {
    digits.insert(0, static_cast<std::size_t>(exponent), '0');
    digits.insert(1, 1, '.');
  } else if (const auto whole = static_cast<std::size_t>(exponent) + 1; digits.size() > whole) {
    digits.insert(whole, 1, '.');
  } else {
    digits.resize(whole, '0');
  }
  return (negative ? "-" : "") + digits;
}

std::string PointsText(double points) {
  return "Research Points: " + PlainDecimal(points == 0 ? 0 : points);  // no sign on a zero
}

std::size_t RowOf(TopicCode topic) {
  const auto row = std::ranges::find(kTopics, topic, &TopicRow::code);
  return row != kTopics.end() ? static_cast<std::size_t>(row - kTopics.begin()) : kDefenseRow;
}

}  // namespace

ResearchBoard::Widths::Widths() {
  frames.fill(kPlainWidth);
  lines.fill(kPlainWidth);
}

ResearchBoard::ResearchBoard(GameClock& clock) : clock_(clock), Research_(PointsText(0)) {
  clock_.on_changed = [this] { Notify(on_changed, BoardPart::TickTime); };
}

ResearchBoard::~ResearchBoard() { clock_.on_changed = nullptr; }

void ResearchBoard::ShowResearchPoints(double points) {
  std::string text = PointsText(points);
  if (text != Research_) {
    Research_ = std::move(text);
    Notify(on_changed, BoardPart::Research);
  }
}

void ResearchBoard::SetRow(std::size_t row, const Widths& widths) {
  if (rows_[row] != widths) {
    rows_[row] = widths;
    Notify(on_changed, static_cast<BoardPart>(row));
  }
}

void ResearchBoard::ShowTopicLevel(TopicCode topic, std::int16_t level) {
  modLight::LightTopic(*this, topic, level);
}

void ResearchBoard::ShowClearedBoard() { modLight::ResetBoard(*this); }

namespace modLight {

void LightTopic(ResearchBoard& board, TopicCode topic, std::int16_t level) {
  const std::size_t row = RowOf(topic);
  ResearchBoard::Widths widths;
  for (int i = 1; i <= kTopLevel && i <= level; ++i) {
    widths.frames[ResearchBoard::Index(i)] = kReachedWidth;
    if (i != 1) {
      widths.lines[ResearchBoard::Index(i - 1)] = kReachedWidth;
    }
  }
  if (row == kPopulationRow ? level == kTopLevel : level >= kTopLevel) {
    widths.lines[ResearchBoard::Index(kTopLevel)] = kReachedWidth;
  }
  board.SetRow(row, widths);
}

void ResetBoard(ResearchBoard& board) {
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    board.SetRow(row, {});
  }
  board.clock().Stop();
  board.ShowResearchPoints(0);
}

}  // namespace modLight
}  // namespace korvanta
