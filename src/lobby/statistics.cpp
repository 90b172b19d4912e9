#include "lobby/statistics.h"

#include <algorithm>

#include "base/change_notice.h"
#include "base/trim.h"
#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

/// Award code n is entry n - 1.
constexpr std::array<std::string_view, 24> kAwards = {
    "Gold Award - 1,000,000 Total Score",
    "Silver Award - 500,000 Total Score",
    "Purple Award - 250,000 Total Score",
    "Green Award - 100,000 Total Score",
    "Blue Award - 50,000 Total Score",
    "Red Award - 10,000 Total Score",
    "Overlord Ace Award - 1,000 Wins",
    "Master Ace Award - 500 Wins",
    "Pro Ace Award - 100 Wins",
    "Ace Award - 10 Wins",
    "Winner Award - 1 Win",
    "Devastation Award - 5,000 Research Destroyed",
    "Carnage Award - 1,000 Research Destroyed",
    "Massacre Award - 250 Research Destroyed",
    "Ruin Award - 100 Research Destroyed",
    "Wreckage Award - 50 Research Destroyed",
    "Fortification Award - 1,000 Blocks",
    "Restraint Award - 500 Blocks",
    "Blockade Award - 100 Blocks",
    "Barrier Award - 25 Blocks",
    "Orange Award - 1,000 Total Score",
    "Light Blue Award - 25,000 Total Score",
    "Obstacle Award - 50 Blocks",
    "No awards for this user!",
};

std::string Quoted(std::string_view words, std::string_view name) {
  return std::string(words) + " '" + std::string(name) + "'";
}

}  // namespace

Statistics::Statistics(Connection& connection, const ConnectionValues& values)
    : connection_(connection), values_(values), window_([this] { Load(); }) {}

void Statistics::Load() {
  state_ = {};
  connection_.SendIfLoggedIn(outbound::LookUpStatistics(values_.CurrentUserName));
}

void Statistics::SearchClicked() {
  if (!TrimSpaces(state_.UserInput).empty()) {
    connection_.SendIfLoggedIn(outbound::LookUpStatistics(state_.UserInput));
  }
}

void Statistics::ShowUserStatistics(std::string_view payload) {
  FieldReader fields(payload);
  const std::string_view name = fields.Next();
  window_.Create();
  const ChangeNotice notice(state_, on_changed);
  state_.frmUserData = Quoted("Statistics for", name);
  state_.frmAward = Quoted("Awards for", name);
  for (std::size_t field = 1; field <= kStatisticsFields.size(); ++field) {
    const auto row = std::ranges::find(kStatisticsFields, field, &StatisticsField::reply_field);
    state_.fields[static_cast<std::size_t>(row - kStatisticsFields.begin())] = fields.Next();
  }
  const std::string_view codes = fields.Next();
  state_.lstAwards.clear();
  for (std::string_view code : Split(codes, kRecordSeparator)) {
    if (ReadLeadingNumber(code) > 0) {
      modData::AddAward(state_, code);
    }
  }
}

void modData::AddAward(StatisticsState& statistics, std::string_view code) {
  if (const auto* award = NumberedEntry(kAwards, ReadNumber(code))) {
    statistics.lstAwards.push_back(*award);
  }
}

}  // namespace korvanta
