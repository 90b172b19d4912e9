#include "board/board_actions.h"

#include "protocol/message_catalogue.h"

namespace korvanta {

void BoardActions::BoxRightClicked(std::int16_t topic, std::int16_t level) {
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

void BoardActions::ResearchThis() {
  SendIfConnected(outbound::ResearchTopic(SelectedTopic, SelectedLevel));
}

void BoardActions::Information() { SendIfConnected(outbound::TopicInformation(SelectedTopic)); }

void BoardActions::AttackPlayer() { SendIfConnected(outbound::AttackPlayer(SelectedPlayer)); }

void BoardActions::ShowStatistics() {
  if (!connection_.IsSocketConnected()) {
    return;
  }
  statistics_.window().Show();
  connection_.Send(outbound::LookUpStatistics(SelectedPlayer));
}

void BoardActions::FormAlliance() {
  const std::string player = SelectedPlayer;
  if (message_box_.Ask("Are you sure you want to ally with this user?", "Alliance?")) {
    SendIfConnected(outbound::FormAlliance(player));
  }
}

void BoardActions::EnterGame() { SendIfConnected(outbound::EnterGame()); }

void BoardActions::SendIfConnected(const std::string& message) {
  if (connection_.IsSocketConnected()) {
    connection_.Send(message);
  }
}

}  // namespace korvanta
