/// The player's requests from the main window during play: from the board's popup menu, from the
/// player menu of the online list, and from the Game menu. Each only asks the server.
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

  /// The board's popup menu is asked for at this box: level 1 to 4, or 5 for the Golden Knowledge.
  /// The menu is to open whatever the state of the box.
  void BoxRightClicked(TopicCode topic, std::int16_t level);

  /// The player menu is asked for: it is for the selected entry of the online list and is to open
  /// only when this returns true.
  bool PlayerRightClicked();

  void ResearchThis() {
    connection_.SendIfSocketConnected(outbound::ResearchTopic(SelectedTopic, SelectedLevel));
  }
  void Information() {
    connection_.SendIfSocketConnected(outbound::TopicInformation(SelectedTopic));
  }
  void AttackPlayer() { connection_.SendIfSocketConnected(outbound::AttackPlayer(SelectedPlayer)); }
  /// Opens the statistics window, then asks for the player's record, so that of the two answers it
  /// is the last.
  void ShowStatistics();
  void FormAlliance();
  void EnterGame() { connection_.SendIfSocketConnected(outbound::EnterGame()); }

  TopicCode SelectedTopic{};  ///< 0 until a box is chosen
  std::int16_t SelectedLevel = 0;
  std::string SelectedPlayer;

 private:
  Connection& connection_;
  OnlineList& online_list_;
  Statistics& statistics_;
  MessageBox& message_box_;
};

}  // namespace korvanta
