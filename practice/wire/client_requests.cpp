#include "practice/wire/client_requests.h"

#include <array>
#include <cstddef>

#include "practice/wire/player_text.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

struct RequestLayout {
  std::string_view tag;
  RequestKind kind;
  std::size_t fields;
};

constexpr auto kLayouts = std::to_array<RequestLayout>({
    {"[con]", RequestKind::Login, 3},
    {"[dis]", RequestKind::Disconnect, 0},
    {"[p]", RequestKind::KeepAlive, 0},
    {"[ctc]", RequestKind::Line, 1},
    {"[aly]", RequestKind::FormAlliance, 1},
    {"[att]", RequestKind::Attack, 1},
    {"[bre]", RequestKind::Statistics, 1},
    {"[jon]", RequestKind::EnterGame, 0},
    {"[inf]", RequestKind::TopicInformation, 1},
    {"[upg]", RequestKind::Research, 2},
    {"[nws]", RequestKind::News, 0},
    {"[tif]", RequestKind::TournamentInfo, 0},
    {"[ttm]", RequestKind::TeamList, 0},
    {"[tcr]", RequestKind::StartTournament, 3},
    {"[tst]", RequestKind::SetTournamentGame, 0},
    {"[ted]", RequestKind::EndTournament, 0},
    {"[tjo]", RequestKind::JoinTeam, 2},
    {"[tdb]", RequestKind::DisbandTeam, 0},
    {"[tkp]", RequestKind::KickPlayer, 1},
});

}  // namespace

std::optional<ClientRequest> ReadRequest(std::string_view message) {
  for (const RequestLayout& layout : kLayouts) {
    if (!message.starts_with(layout.tag)) {
      continue;
    }
    const std::string_view payload = message.substr(layout.tag.size());
    ClientRequest request{layout.kind, {}};
    if (layout.fields == 1) {
      request.fields.push_back(WithoutControls(payload));
      return request;
    }
    for (std::string_view field : Split(payload, kFieldSeparator)) {
      if (request.fields.size() == layout.fields) {
        break;
      }
      request.fields.push_back(WithoutControls(field));
    }
    if (request.fields.size() < layout.fields) {
      request.fields.clear();
      request.is_complete = false;
    }
    return request;
  }
  return std::nullopt;
}

}  // namespace korvanta::practice
