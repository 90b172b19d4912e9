#include "board/board_actions.h"

#include "protocol/message_catalogue.h"

namespace korvanta {

void BoardActions::BoxRightClicked(TopicCode topic, std::int16_t level) {
  SelectedTopic = topic;
  SelectedLevel = level;
}

bool BoardActions::PlayerRightClicked() {
  const auto selected = online_list_.selected();
  if (!selected) {
    return false;
  }
  SelectedPlayer = online_list_.entries()[*selected].name;
  return true;
}

void BoardActions::ShowStatistics() {
  if (!connection_.IsSocketConnected()) {
    return;
  }
  statistics_.window().Show();
  connection_.SendIfSocketConnected(outbound::LookUpStatistics(SelectedPlayer));
}

void BoardActions::FormAlliance() {
  const std::string player = SelectedPlayer;
  if (message_box_.Ask("Are you sure you want to ally with this user?", "Alliance?")) {
    connection_.SendIfSocketConnected(outbound::FormAlliance(player));
  }
}

}  // namespace korvanta
