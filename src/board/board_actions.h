/// The requests of a player during the game: from the popup menus of the board and the online list,
/// and from the Game menu. Each only sends a message; the server decides.
#pragma once

#include <cstdint>
#include <string>

#include "lobby/online_list.h"
#include "lobby/statistics.h"
#include "platform/message_box.h"
#include "protocol/connection.h"
#include "protocol/message_catalogue.h"
#include "protocol/topic_code.h"

namespace korvanta {

class BoardActions {
 public:
  BoardActions(Connection& connection, OnlineList& online_list, Statistics& statistics,
               MessageBox& message_box)
      : connection_(connection),
        online_list_(online_list),
        statistics_(statistics),
        message_box_(message_box) {}

  /// The popup menu was requested for this box: level 1 to 4, or 5 for the Golden Knowledge. It
  /// opens whatever the state of the box.
  void BoxRightClicked(TopicCode topic, std::int16_t level);

  /// The player menu was requested, for the selected entry of the online list. It opens only if
  /// this returns true.
  bool PlayerRightClicked();

  void ResearchThis() {
    connection_.SendIfSocketConnected(outbound::ResearchTopic(SelectedTopic, SelectedLevel));
  }
  void Information() {
    connection_.SendIfSocketConnected(outbound::TopicInformation(SelectedTopic));
  }
  void AttackPlayer() { connection_.SendIfSocketConnected(outbound::AttackPlayer(SelectedPlayer)); }
  /// Opens the statistics window, which requests the user's own record, then requests the player's,
  /// so that the player's answer is the last.
  void ShowStatistics();
  void FormAlliance();
  void EnterGame() { connection_.SendIfSocketConnected(outbound::EnterGame()); }

  TopicCode SelectedTopic{};  ///< 0 until a box was right-clicked
  std::int16_t SelectedLevel = 0;
  std::string SelectedPlayer;

 private:
  Connection& connection_;
  OnlineList& online_list_;
  Statistics& statistics_;
  MessageBox& message_box_;
};

}  // namespace korvanta
