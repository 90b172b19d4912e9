/// A client in front of a server that makes every kind of mischief.
#include "practice/trouble/mischief.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

#include "client/client.h"
#include "protocol/wire_format.h"
#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using practice::ConnectionId;

/// Every message that a server can send, in an evening's order; "|" stands for the field separator
/// and "&" for the record separator.
constexpr std::string_view kEvening[] = {
    "[con]Alice|12",
    "[log]Bobby logged in",
    "[cap]nothing",
    "[msg]ann|Korvanta: Welcome, Alice!|False",
    "[onl]Alice|1|3|0&Bobby|5|2|1&Carol|8|40|1",
    "[msg]cht|Bobby: hello, damn it|False",
    "[bre]Bobby|None|2|3|250|54|1|0|0|99|0|1|1&2&19",
    "[nws]First line\r\nSecond line",
    "[tif]5|10|2|4",
    "[ttm]Foxes: Alice, Bobby&Hares: Carol",
    "[tdd]Foxes|Hares",
    "[clr]",
    "[tim]90",
    "[sou]1",
    "[poi]12.5",
    "[upg]1|2",
    "[msg]tel|Bobby tells you: psst|True",
    "[att]1|1",
    "[end]30",
    "[clt]",
};

std::string Bytes(std::string_view message) {
  std::string bytes(message);
  std::replace(bytes.begin(), bytes.end(), '|', kFieldSeparator);
  std::replace(bytes.begin(), bytes.end(), '&', kRecordSeparator);
  return bytes + kMessageTerminator;
}

/// A client whose server's words reach it through mischief, a block at each delivery.
class MischievousEvening : private practice::ResettableTransport {
 public:
  explicit MischievousEvening(std::uint64_t seed)
      : mischief_(*this, {*practice::ReadMischiefKinds("all"), seed}) {
    client.StartUp();
    platform.timers.Tick(4000ms);
    platform.message_box.answers.assign(1000, true);
  }

  void Play() {
    LogIn();
    for (std::string_view message : kEvening) {
      mischief_.Send(connection_, Bytes(message));
      if (++messages_ % 3 == 0) {
        Deliver();
        Act();
      }
    }
    for (int tick = 0; tick < 40; ++tick) {
      mischief_.Tick();
      Deliver();
      platform.timers.Tick(1000ms);
    }
    platform.socket.Hangup();
    mischief_.Vanished(connection_);
  }

  std::string ViewText() const {
    return client.message_view.text().Bytes(0, client.message_view.size());
  }

  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};

 private:
  void LogIn() {
    client.login_dialog.window().Show();
    client.login_dialog.UserNameTyped("alice");
    client.login_dialog.PasswordTyped("secret");
    client.login_dialog.LoginClicked();
    platform.socket.Accept();
    mischief_.Connected(++connection_);
  }

  /// Something of the user's that depends on what was heard.
  void Act() {
    client.statistics.window().Show();
    client.news.window().Show();
    client.tournament.window().Show();
    client.board_actions.BoxRightClicked(TopicCode::Military, 3);
    client.board_actions.ResearchThis();
    platform.socket.TakeSent();
  }

  void Send(ConnectionId /*connection*/, std::string_view messages) override { block_ += messages; }
  void Close(ConnectionId /*connection*/) override {}
  void Reset(ConnectionId /*connection*/) override { is_reset_ = true; }

  void Deliver() {
    if (!block_.empty()) {
      platform.socket.Receive(std::exchange(block_, {}));
    }
    if (std::exchange(is_reset_, false)) {
      platform.socket.Hangup();
      mischief_.Vanished(connection_);
      LogIn();
    }
  }

  practice::Mischief mischief_;
  ConnectionId connection_ = 0;
  std::string block_;
  bool is_reset_ = false;
  int messages_ = 0;
};

TEST(ClientUnderMischief, LivesThroughTheEveningAndPlaysTheNextAsIfNothingHadBeen) {
  for (std::uint64_t seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    MischievousEvening evening(seed);
    evening.Play();
    evening.Play();

    Client& client = evening.client;
    client.message_view.Clear();
    evening.platform.socket.Accept();
    std::string clean;
    for (std::string_view message : kEvening) {
      clean += Bytes(message);
    }
    evening.platform.socket.Receive(clean.substr(0, clean.find("[clt]")));
    EXPECT_EQ(evening.ViewText(),
              "Connected as Alice\r\nBobby logged in\r\nKorvanta: Welcome, Alice!\r\n"
              "Bobby: hello, **** it\r\nBobby tells you: psst\r\n");
    EXPECT_EQ(client.values.UserID, 12);
    evening.platform.timers.Tick(1000ms);
    EXPECT_EQ(client.research_board.TickTime(), "Tick Time - 0:29");
    EXPECT_EQ(client.research_board.Research(), "Research Points: 12.5");
    EXPECT_EQ(client.news.rbNews(), "First line\r\nSecond line");
    client.CloseMainWindow();
    EXPECT_EQ(evening.platform.settings.commits, 1);
  }
}

}  // namespace
}  // namespace korvanta
