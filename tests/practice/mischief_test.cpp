#include "practice/trouble/mischief.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

using namespace std::string_literals;

constexpr ConnectionId kPlayer = 1;

const std::vector<std::string> kSession = {
    "[con]Anna\00190\0"s,
    "[onl]Anna\0011\0013\0010\2Bobby\0015\0012\0011\0"s,
    "[msg]cht\1Bobby: hello\1False\0"s,
    "[tim]90\0"s,
    "[log]Carol logged in\0"s,
};

std::string Whole() {
  std::string bytes;
  for (const std::string& message : kSession) {
    bytes += message;
  }
  return bytes;
}

/// What one player hears of the session.
struct Heard : ResettableTransport {
  void Send(ConnectionId /*connection*/, std::string_view messages) override {
    EXPECT_FALSE(is_reset || is_closed);
    sends.emplace_back(messages);
    bytes += messages;
  }
  void Close(ConnectionId /*connection*/) override {
    EXPECT_FALSE(is_reset || is_closed);
    is_closed = true;
  }
  void Reset(ConnectionId /*connection*/) override { is_reset = true; }

  std::vector<std::string> Pieces() const {
    const Split split(bytes, kMessageTerminator);
    return {split.begin(), split.end()};
  }
  std::ptrdiff_t Count(char c) const { return std::count(bytes.begin(), bytes.end(), c); }

  std::vector<std::string> sends;
  std::string bytes;
  bool is_closed = false;
  bool is_reset = false;
  std::size_t said_at_once = 0;    ///< bytes that came before any time had passed
  bool was_reset_at_once = false;  ///< before anything was to be said
};

void PlaySession(const MischiefOptions& options, Heard& heard) {
  Mischief mischief(heard, options);
  mischief.Connected(kPlayer);
  heard.was_reset_at_once = heard.is_reset;
  for (const std::string& message : kSession) {
    mischief.Send(kPlayer, message);
  }
  heard.said_at_once = heard.bytes.size();
  mischief.Close(kPlayer);
  for (int tick = 0; tick < 100; ++tick) {
    mischief.Tick();
  }
  EXPECT_NE(heard.is_closed, heard.is_reset);
}

/// Whether all messages are there, each with its fields.
bool KeepsItsFrame(const Heard& heard) {
  const std::string whole = Whole();
  const auto has_all = [&](char c) {
    return heard.Count(c) == std::count(whole.begin(), whole.end(), c);
  };
  return has_all(kMessageTerminator) && has_all(kFieldSeparator) && has_all(kRecordSeparator) &&
         std::all_of(kSession.begin(), kSession.end(), [&](const std::string& message) {
           return heard.bytes.find(message.substr(0, kTagLength)) != std::string::npos;
         });
}

/// Whether there is nothing but messages of the session.
bool IsOfTheSession(const Heard& heard) {
  const std::vector<std::string> pieces = heard.Pieces();
  return std::all_of(pieces.begin(), pieces.end(), [](const std::string& piece) {
    return piece.empty() || Whole().find(piece + '\0') != std::string::npos;
  });
}

TEST(Mischief, EachKindDoesWhatItsLineSaysAndNothingElse) {
  struct Case {
    MischiefKind kind;
    std::function<bool(const Heard&)> is_told;
  };
  const auto sum_of = [](std::size_t messages) {
    std::string bytes;
    for (std::size_t i = 0; i < messages; ++i) {
      bytes += kSession[i];
    }
    return bytes;
  };
  using Kind = MischiefKind;
  const Case cases[] = {
      {Kind::Cut,
       [](const Heard& h) { return h.bytes == Whole() && h.said_at_once < Whole().size(); }},
      {Kind::Drop,
       [](const Heard& h) {
         return h.bytes.size() < Whole().size() && h.Count('\0') == std::ssize(kSession);
       }},
      {Kind::Numbers,
       [](const Heard& h) {
         return KeepsItsFrame(h) && h.bytes.find("Bobby: hello") != std::string::npos;
       }},
      {Kind::Tags,
       [](const Heard& h) {
         return std::all_of(kSession.begin(), kSession.end(), [&](const std::string& message) {
           return h.bytes.find(message.substr(kTagLength)) != std::string::npos;
         });
       }},
      {Kind::Bytes,
       [](const Heard& h) { return std::set<char>(h.bytes.begin(), h.bytes.end()).size() >= 255; }},
      {Kind::Giant, [](const Heard& h) { return KeepsItsFrame(h) && h.bytes.size() > 250'000; }},
      {Kind::Markup,
       [](const Heard& h) {
         return KeepsItsFrame(h) && h.bytes.size() > Whole().size() &&
                h.bytes.find("90\0"s) != std::string::npos;
       }},
      {Kind::Unended,
       [](const Heard& h) {
         std::string without = Whole();
         std::erase(without, '\0');
         std::string bytes = h.bytes;
         std::erase(bytes, '\0');
         return bytes == without && h.Count('\0') < std::ssize(kSession);
       }},
      {Kind::Twice,
       [](const Heard& h) { return IsOfTheSession(h) && h.Count('\0') > std::ssize(kSession); }},
      {Kind::Shuffle,
       [](const Heard& h) {
         return IsOfTheSession(h) && h.bytes.size() == Whole().size() && h.bytes != Whole();
       }},
      {Kind::Silence, [](const Heard& h) { return h.bytes.empty() && h.is_closed; }},
      {Kind::ResetAccept, [](const Heard& h) { return h.bytes.empty() && h.was_reset_at_once; }},
      {Kind::ResetHandshake,
       [](const Heard& h) { return h.bytes.empty() && h.is_reset && !h.was_reset_at_once; }},
      {Kind::ResetMessage,
       [](const Heard& h) {
         return h.is_reset && !h.bytes.empty() && h.bytes.back() != '\0' &&
                Whole().starts_with(h.bytes);
       }},
      {Kind::ResetLogin, [&](const Heard& h) { return h.is_reset && h.bytes == sum_of(1); }},
      {Kind::ResetGame, [&](const Heard& h) { return h.is_reset && h.bytes == sum_of(4); }},
  };
  ASSERT_EQ(std::size(cases), kMischiefKinds);
  for (const Case& c : cases) {
    const MischiefEntry& entry = MischiefTable()[static_cast<std::size_t>(c.kind)];
    SCOPED_TRACE(entry.name);
    const auto kinds = ReadMischiefKinds(entry.name);
    ASSERT_TRUE(kinds);
    int told = 0;
    int spared = 0;
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
      Heard heard;
      PlaySession({*kinds, seed}, heard);
      const bool is_plain = heard.sends == kSession && heard.is_closed;
      EXPECT_TRUE(is_plain || c.is_told(heard))
          << "seed " << seed << ": " << testing::PrintToString(heard.bytes.substr(0, 300));
      ++(is_plain ? spared : told);
    }
    EXPECT_GT(told, 5);
    EXPECT_EQ(spared == 0, entry.one_in == 1);
  }
}

TEST(Mischief, TheSameSeedReplaysTheSameBytes) {
  const MischiefKinds all = *ReadMischiefKinds("all");
  std::set<std::vector<std::string>> evenings;
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    Heard first;
    Heard again;
    PlaySession({all, seed}, first);
    PlaySession({all, seed}, again);
    EXPECT_EQ(first.sends, again.sends);
    EXPECT_EQ(first.is_reset, again.is_reset);
    evenings.insert(first.sends);
  }
  EXPECT_GT(evenings.size(), 8U);
}

TEST(Mischief, WithoutAKindEverythingPassesAsItIs) {
  Heard heard;
  PlaySession({}, heard);
  EXPECT_EQ(heard.sends, kSession);
}

TEST(Mischief, KindsAreReadByTheirNames) {
  EXPECT_EQ(*ReadMischiefKinds("all"), MischiefKinds().set());
  EXPECT_EQ(*ReadMischiefKinds("drop,cut"), MischiefKinds(0b11));
  for (const char* wrong : {"", "cut,", ",cut", "CUT", "cut,all", "cut drop"}) {
    EXPECT_FALSE(ReadMischiefKinds(wrong)) << wrong;
  }
}

}  // namespace
}  // namespace korvanta::practice
