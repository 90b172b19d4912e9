#include "board/research_board.h"

#include <charconv>
#include <system_error>

namespace korvanta {
namespace {

constexpr std::size_t kPopulationRow = 2;
constexpr std::size_t kDefenseRow = 3;

/// The longest double has a sign, "0." and 323 zeros before its 17 digits.
constexpr std::size_t kLongestNumber = 1 + 2 + 323 + 17;

std::string PointsText(double points) {
  std::array<char, kLongestNumber> digits;
  const double value = points == 0 ? 0 : points;  // no sign on a negative zero
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
  std::string text = "Research Points: ";
  return error == std::errc() ? text.append(digits.data(), end) : text;
}

std::size_t RowOf(std::int16_t topic) {
  return topic >= 1 && topic <= 3 ? static_cast<std::size_t>(topic - 1) : kDefenseRow;
}

}  // namespace

ResearchBoard::Widths::Widths() {
  frames.fill(kPlainWidth);
  lines.fill(kPlainWidth);
}

ResearchBoard::ResearchBoard(GameClock& clock) : clock_(clock), Research_(PointsText(0)) {
  clock_.on_changed = [this] { Changed(BoardPart::TickTime); };
}

ResearchBoard::~ResearchBoard() { clock_.on_changed = nullptr; }

void ResearchBoard::ShowResearchPoints(double points) {
  std::string text = PointsText(points);
  if (text != Research_) {
    Research_ = std::move(text);
    Changed(BoardPart::Research);
  }
}

void ResearchBoard::SetRow(std::size_t row, const Widths& widths) {
  if (rows_[row] != widths) {
    rows_[row] = widths;
    Changed(static_cast<BoardPart>(row));
  }
}

void ResearchBoard::Changed(BoardPart part) const {
  if (on_changed) {
    on_changed(part);
  }
}

namespace modLight {

void LightTopic(ResearchBoard& board, std::int16_t topic, std::int16_t level) {
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
  board.clock_.Stop();
  board.ShowResearchPoints(0);
}

}  // namespace modLight
}  // namespace korvanta
