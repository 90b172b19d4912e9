/// The research board: four topics of four levels, the research points, and the clock beside them.
/// It knows no game rules; it shows what the server sends.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/colour.h"
#include "board/game_clock.h"
#include "protocol/receivers.h"
#include "protocol/topic_code.h"

namespace korvanta {

class ResearchBoard;

namespace modLight {

/// Redraws one topic's row for its level: frames up to the level and the lines between them are
/// highlighted, line 4 if the level is 4. Topics other than the first three mean the Defense row. A
/// level above 4 is drawn like 4, but leaves line 4 of Population plain.
void LightTopic(ResearchBoard& board, TopicCode topic, std::int16_t level);

/// Makes every frame and line plain, stops the clock where it is, and shows zero points.
void ResetBoard(ResearchBoard& board);

}  // namespace modLight

/// One row of the board. `boxes`, `frames`, `lines` and `caption` are the names of its controls.
struct TopicRow {
  TopicCode code;
  std::string_view name;
  Colour colour;
  std::string_view boxes;
  std::string_view frames;
  std::string_view lines;
  std::string_view caption;
};

inline constexpr std::size_t kTopicRows = 4;
inline constexpr int kTopLevel = 4;

/// Top to bottom.
inline constexpr std::array<TopicRow, kTopicRows> kTopics{{
    {TopicCode::Military, "Military", {0, 255, 0}, "Military", "MilitaryBord", "MLine", "Label2"},
    {TopicCode::Industry, "Industry", {255, 0, 0}, "Industry", "IndustryBord", "ILine", "Label3"},
    {TopicCode::Population, "Population", {0, 255, 255}, "Pop", "PopBord", "PLine", "Label4"},
    {TopicCode::Defense, "Defense", {0, 0, 255}, "Defense", "DefenseBorder", "DLine", "Label5"},
}};

/// The level of the Golden Knowledge in requests.
inline constexpr std::int16_t kGoldenKnowledgeLevel = 5;
inline constexpr std::string_view kGoldenKnowledgeName = "Golden Knowledge";
inline constexpr Colour kGoldenKnowledgeColour{255, 255, 0};

inline constexpr int kPlainWidth = 1;
inline constexpr int kReachedWidth = 4;

/// The part of the board that changed; the first four are the rows in the order of `kTopics`.
enum class BoardPart { Military, Industry, Population, Defense, Research, TickTime };

class ResearchBoard final : public BoardReceiver {
 public:
  /// The board takes over the clock's `on_changed`; the clock must outlive it.
  explicit ResearchBoard(GameClock& clock);
  ResearchBoard(const ResearchBoard&) = delete;
  ResearchBoard& operator=(const ResearchBoard&) = delete;
  ~ResearchBoard() override;

  /// "Research Points: " and the number in its shortest plain decimal form, however large or small:
  /// no exponent, and apart from zeros only the digits that distinguish it from every other double.
  void ShowResearchPoints(double points) override;

  void ShowTopicLevel(TopicCode topic, std::int16_t level) override;
  void ShowClearedBoard() override;

  /// `row` counts from 0 in the order of `kTopics`, `level` from 1 to 4; the result is
  /// `kPlainWidth` or `kReachedWidth`. Line i leads from frame i to the next, line 4 to the goal.
  static std::size_t Index(int level) { return static_cast<std::size_t>(level - 1); }
  int FrameWidth(std::size_t row, int level) const { return rows_[row].frames[Index(level)]; }
  int LineWidth(std::size_t row, int level) const { return rows_[row].lines[Index(level)]; }

  const std::string& Research() const { return Research_; }
  const std::string& TickTime() const { return clock_.TickTime(); }

  /// Border widths of a row, by level.
  struct Widths {
    Widths();
    bool operator==(const Widths&) const = default;

    std::array<int, kTopLevel> frames;
    std::array<int, kTopLevel> lines;
  };
  void SetRow(std::size_t row, const Widths& widths);

  GameClock& clock() { return clock_; }

  /// Called once for each part that changed.
  std::function<void(BoardPart)> on_changed;

 private:
  GameClock& clock_;
  std::array<Widths, kTopicRows> rows_;
  std::string Research_;
};

}  // namespace korvanta
