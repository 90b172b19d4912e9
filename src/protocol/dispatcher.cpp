#include "protocol/dispatcher.h"

#include <algorithm>
#include <array>
#include <exception>

#include "protocol/wire_format.h"

namespace korvanta {
namespace {

enum class Tag { Removed, Kept };

struct TagTest {
  std::string_view tag;
  void (*handler)(InboundTargets& targets, std::string_view message);
  Tag treatment = Tag::Removed;

  /// Every tag has the same length; saying so spares a call for each test of each message.
  bool Matches(std::string_view message) const {
    return message.starts_with(std::string_view(tag.data(), kTagLength));
  }
};

/// In test order. Every piece goes through all of it: the tests go on after a match, on what the
/// handler left.
constexpr std::array<TagTest, 18> kTagTests = {{
    {"[con]", inbound::LoginAccepted},
    {"[log]", inbound::LoginNotice},
    {"[cap]", inbound::Caption},
    {"[tim]", inbound::GameClock},
    {"[sou]", inbound::Sound},
    {"[bre]", inbound::Statistics},
    {"[end]", inbound::GameClock},
    {"[upg]", inbound::TopicLevel},
    {"[clr]", inbound::BoardCleared, Tag::Kept},
    {"[clt]", inbound::BoardCleared, Tag::Kept},
    {"[poi]", inbound::ResearchPoints},
    {"[att]", inbound::TopicLevel},
    {"[msg]", inbound::ChatLine},
    {"[nws]", inbound::News},
    {"[onl]", inbound::OnlineList},
    {"[tif]", inbound::TournamentInfo},
    {"[ttm]", inbound::TeamList},
    {"[tdd]", inbound::TeamNames},
}};
static_assert(std::all_of(kTagTests.begin(), kTagTests.end(),
                          [](const TagTest& test) { return test.tag.size() == kTagLength; }));

void HandlePiece(InboundTargets& targets, std::string_view message) {
  for (const TagTest& test : kTagTests) {
    if (!test.Matches(message)) {
      continue;
    }
    if (test.treatment == Tag::Removed) {
      message.remove_prefix(kTagLength);
    }
    test.handler(targets, message);
  }
}

}  // namespace

void Dispatcher::HandleBlock(std::string_view block) {
  try {
    for (std::string_view piece : Split(block, kMessageTerminator)) {
      HandlePiece(targets_, piece);
    }
  } catch (const std::exception&) {
    // A broken message, or memory that ran out over it: the rest of the block is dropped.
  }
}

}  // namespace korvanta
