#include "protocol/connection.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

struct ScriptedPlayer : fakes::OfflinePlayer {
  ScriptedPlayer() {
    values.ClientVersion = "1.6";
    values.CurrentUserName = "name";
    values.CurrentPassword = "password";
  }

  const std::map<char, std::function<void()>> steps = {
      {'s', [this] { connection.StartConnection(); }},
      {'t', [this] { timers.Tick(std::chrono::seconds(1)); }},
      {'a', [this] { socket.Accept(); }},
      {'l', [this] { connection.AcceptLogin("Name\001-12"); }},
      {'d', [this] { connection.Disconnect(); }},
      {'h', [this] { socket.Hangup(); }},
  };

  /// The lines written since the last call, what was shown, what was sent, and closes of our own.
  std::string Take() {
    std::string all;
    for (const auto& calls : {chat.Take(), display.Take()}) {
      for (const std::string& call : calls) {
        all += call + "; ";
      }
    }
    return all + Sent() + (std::exchange(socket.closes, 0) == 1 ? "close" : "");
  }
};

TEST(Connection, EachStepOfAnAttemptShowsAndSendsItsOwn) {
  const std::string connecting = "3|Connecting as name...; ";
  const std::string given_up = "3|No connection can be made; 3|Disconnected; close";
  const std::string connected = "title=Korvanta - v1.6 - Connected; ";
  const std::string logged_out = "caption=Connect; title=Korvanta - v1.6 - Disconnected; ";
  const struct {
    std::string script;  // after these steps the last one shows and sends this
    std::string outcome;
    int ticks;
    bool is_logged_in = false;
  } cases[] = {
      {"s", connecting + "close", 0},
      {"sttttttt", "", 7},
      {"stttttttt", given_up, 0},
      {"sttttttttt", "", 0},
      {"sttttttta", connected + "[con]1.6,name,password;", 0},
      {"stttttttat", "", 0},
      {"sal", "3|Connected as Name; caption=Disconnect; " + connected, 0, true},
      {"sald", "[dis];", 0, true},  // the server ends the connection
      {"saldh", "3|Disconnected; " + logged_out, 0},
      {"sals", "3|Connecting as Name...; " + logged_out + "close", 0},
      {"stttts", connecting + "close", 0},
      {"sttttsttttttt", "", 7},
      {"sttttstttttttt", given_up, 0},
      {"sttttas", connecting + "close", 0},  // the title stays that of a connection
      {"sttttastttttttt", given_up, 0},
      {"sttth", "3|Disconnected; " + logged_out, 3},
      {"sttthttttt", given_up, 0},
  };
  for (const auto& c : cases) {
    ScriptedPlayer player;
    for (const char letter : c.script) {
      player.Take();
      player.steps.at(letter)();
    }
    EXPECT_EQ(player.Take(), c.outcome) << c.script;
    EXPECT_EQ(player.values.ConnectTicks, c.ticks) << c.script;
    EXPECT_EQ(player.values.IsConnected, c.is_logged_in) << c.script;
    EXPECT_EQ(player.socket.attempts.back(),
              (std::pair<std::string, std::uint16_t>("127.0.0.1", 7678)));
    EXPECT_EQ(player.values.UserID, c.script.starts_with("sal") ? -12 : 0);
  }
}

}  // namespace
}  // namespace korvanta
