/// The online list as the server sends it: who is online, and how everyone stands.
#pragma once

#include <chrono>
#include <string>

#include "practice/game/arena.h"
#include "practice/players/players.h"
#include "practice/tournament/tournament.h"

namespace korvanta::practice {

class OnlineList {
 public:
  /// All must outlive the list.
  OnlineList(Players& players, Arena& arena, const Tournament& tournament)
      : players_(players), arena_(arena), tournament_(tournament) {}

  /// The list of this moment, to one who has none yet.
  void SendTo(const Player& player) { players_.Send(player, Message()); }

  /// Sends the list to everyone when it is not the one that was sent last. It is made at most every
  /// 100 ms, and less often the more players there are: what it costs to send it to everyone grows
  /// with the square of the players.
  void SendIfDue(std::chrono::milliseconds now);

 private:
  std::string Message();

  Players& players_;
  Arena& arena_;
  const Tournament& tournament_;
  std::string sent_;
  std::chrono::milliseconds due_{0};
};

}  // namespace korvanta::practice
