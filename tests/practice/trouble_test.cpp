/// What makes trouble on the way to a client: mischief and load.
#include <functional>
#include <numeric>

#include "practice/base/player_text.h"
#include "practice/trouble/load.h"
#include "practice/trouble/mischief.h"
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

const std::vector<std::string> kSession = {
    "[con]Anna\00190\0"s,
    "[onl]Anna\0011\0013\0010\2Bobby\0015\0012\0011\0"s,
    "[msg]cht\1Bobby: hello\1False\0"s,
    "[sou]1\0"s,
    "[log]Carol logged in\0"s,
};

std::string FirstMessages(std::ptrdiff_t count) {
  return std::accumulate(kSession.begin(), kSession.begin() + count, std::string());
}
const std::string kWhole = FirstMessages(std::ssize(kSession));

/// What one player hears of the session.
struct Heard : ResettableTransport {
  explicit Heard(const MischiefOptions& options) {
    Mischief mischief(*this, options);
    mischief.Connected(1);
    was_reset_at_once = is_reset;
    for (const std::string& message : kSession) {
      mischief.Send(1, message);
    }
    said_at_once = bytes.size();
    mischief.Close(1);
    for (int tick = 0; tick < 100; ++tick) {
      const std::size_t said = bytes.size();
      mischief.Tick();
      pauses += said > said_at_once && said == bytes.size() && said < kWhole.size() ? 1 : 0;
    }
    EXPECT_NE(is_closed, is_reset);
  }

  void Send(ConnectionId /*connection*/, std::string_view messages) override {
    EXPECT_FALSE(is_reset || is_closed);
    sends.emplace_back(messages);
    bytes += messages;
  }
  void Close(ConnectionId /*connection*/) override { is_closed = true; }
  void Reset(ConnectionId /*connection*/) override { is_reset = true; }

  std::ptrdiff_t Count(char c) const { return std::count(bytes.begin(), bytes.end(), c); }
  bool Has(std::string_view text) const { return bytes.find(text) != std::string::npos; }
  /// All messages are there, each with its fields.
  bool KeepsItsFrame() const {
    return std::ranges::all_of("\0\1\2"s,
                               [&](char c) { return Count(c) == std::ranges::count(kWhole, c); }) &&
           std::ranges::all_of(kSession, [&](const auto& m) { return Has(m.substr(0, 5)); });
  }
  /// Nothing is there but messages of the session.
  bool IsOfTheSession() const {
    return std::ranges::all_of(Split(bytes, '\0'), [](std::string_view piece) {
      return piece.empty() || kWhole.find(std::string(piece) + '\0') != std::string::npos;
    });
  }

  std::vector<std::string> sends;
  std::string bytes;
  bool is_closed = false;
  bool is_reset = false;
  std::size_t said_at_once = 0;    ///< bytes that came before any time had passed
  int pauses = 0;                  ///< ticks without a word between the others
  bool was_reset_at_once = false;  ///< before anything was to be said
};

TEST(Mischief, EachKindDoesWhatItsLineSaysAndNothingElse) {
  const auto count = std::ssize(kSession);
  const struct {
    const char* kind;
    std::function<bool(const Heard&)> is_done;
  } cases[] = {
      {"cut", [](auto& h) { return h.bytes == kWhole && h.said_at_once < kWhole.size(); }},
      {"drop", [&](auto& h) { return h.bytes.size() < kWhole.size() && h.Count('\0') == count; }},
      {"numbers",
       [](auto& h) { return h.KeepsItsFrame() && h.Has("hello") && h.Has("\2Bobby\1"); }},
      {"tags",
       [](auto& h) {
         return std::ranges::all_of(kSession, [&](auto& m) { return h.Has(m.substr(5)); });
       }},
      {"bytes", [](auto& h) { return std::set(h.bytes.begin(), h.bytes.end()).size() >= 255; }},
      {"giant", [](auto& h) { return h.KeepsItsFrame() && h.bytes.size() > 250'000; }},
      {"markup",
       [](auto& h) {
         return h.KeepsItsFrame() && h.bytes.size() > kWhole.size() && h.Has("90\0"s);
       }},
      {"unended",
       [&](auto& h) {
         std::string bytes = h.bytes;
         std::string without = kWhole;
         std::erase(bytes, '\0');
         std::erase(without, '\0');
         return bytes == without && h.Count('\0') < count;
       }},
      {"twice", [&](auto& h) { return h.IsOfTheSession() && h.Count('\0') > count; }},
      {"shuffle",
       [](auto& h) {
         return h.IsOfTheSession() && h.bytes.size() == kWhole.size() && h.bytes != kWhole;
       }},
      {"silence", [](auto& h) { return h.bytes.empty() && h.is_closed; }},
      {"reset-accept", [](auto& h) { return h.bytes.empty() && h.was_reset_at_once; }},
      {"reset-handshake",
       [](auto& h) { return h.bytes.empty() && h.is_reset && !h.was_reset_at_once; }},
      {"reset-message",
       [](auto& h) {
         return h.is_reset && !h.bytes.empty() && h.bytes.back() != '\0' &&
                kWhole.starts_with(h.bytes);
       }},
      {"reset-login", [](auto& h) { return h.is_reset && h.bytes == FirstMessages(1); }},
      {"reset-game", [](auto& h) { return h.is_reset && h.bytes == FirstMessages(4); }},
  };
  ASSERT_EQ(std::size(cases), MischiefTable().size());
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(cases[i].kind);
    const auto kinds = ReadMischiefKinds(cases[i].kind);
    ASSERT_EQ(kinds, MischiefKinds{&MischiefTable()[i]});
    int spared = 0;
    int pauses = 0;
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
      const Heard heard({*kinds, seed});
      const bool is_spared = heard.sends == kSession && heard.is_closed;
      spared += is_spared ? 1 : 0;
      pauses += heard.pauses;
      EXPECT_TRUE(is_spared || cases[i].is_done(heard)) << seed;
      EXPECT_EQ(Heard({*kinds, seed}).sends, heard.sends) << "a seed replays the same bytes";
    }
    EXPECT_LT(spared, 95);
    EXPECT_TRUE(i > 0 || pauses > 0) << "pieces come after a while";
    EXPECT_EQ(spared == 0, MischiefTable()[i].one_in == 1);
  }
  EXPECT_THAT(ReadMischiefKinds("all"), Optional(SizeIs(std::size(cases))));
  EXPECT_EQ(Heard({}).sends, kSession) << "without a kind everything passes as it is";
}

constexpr ConnectionId kPlayer = 1;

TEST(Load, CrowdsOnlineListsWithUniqueNamesThatNoPlayerCanHave) {
  const std::string records = CrowdRecords(20'000, 3);
  std::set<std::string> names;
  for (std::string_view record : Split(records, kRecordSeparator)) {
    const std::string_view name = record.substr(0, record.find(kFieldSeparator));
    EXPECT_FALSE(IsUserName(name));
    EXPECT_EQ(std::ranges::count(record, kFieldSeparator), record.empty() ? 0 : 3);
    names.insert(NameKey(name));
  }
  EXPECT_EQ(names.size(), 20'001U) << "and none behind the last separator";

  RecordingTransport network;
  Load load(network, {.crowd = 2}, 3);
  load.Send(kPlayer, "[log]Anna\0[onl]Anna\0011\0011\0010\0[nws]no [onl] here\0"s);
  EXPECT_EQ(network.sent[kPlayer], "[log]Anna\0[onl]"s + CrowdRecords(2, 3) +
                                       "Anna\0011\0011\0010\0[nws]no [onl] here\0"s);
}

TEST(Load, FloodsThoseWhoAreLoggedInAtItsRateUntilTheyGo) {
  RecordingTransport network;
  Load load(network, {.lines_per_second = 25}, 3);
  load.Send(kPlayer, kSession[0]);
  load.Send(kPlayer + 1, kSession[1]);
  const std::pair<std::chrono::milliseconds, int> seconds[] = {{1s, 25}, {60s, 29}, {61s, 0}};
  for (const auto& [now, lines] : seconds) {
    network.sent.clear();
    if (lines == 0) {
      load.Vanished(kPlayer);
    }
    for (auto tick = now - 900ms; tick <= now; tick += 100ms) {
      load.Tick(tick);
    }
    const auto count = std::ranges::count(network.sent[kPlayer], kMessageTerminator);
    EXPECT_NEAR(static_cast<double>(count), lines, 1) << "after a hold-up no more than for 250 ms";
    EXPECT_THAT(network.sent[kPlayer + 1], IsEmpty());
  }
}

}  // namespace
}  // namespace korvanta::practice
