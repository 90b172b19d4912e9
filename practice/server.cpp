#include "practice/server.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace korvanta::practice {
namespace {

constexpr std::chrono::milliseconds kGameStep{100};
/// At a time; after a long sleep of the machine the rest follows.
constexpr int kMostSteps = 10'000;

}  // namespace

Server::Server(Transport& transport, const ServerOptions& options,
               std::function<void(std::string_view line)> journal)
    : transport_(transport),
      journal_(journal ? std::move(journal) : [](std::string_view) {}),
      dice_(options.seed),
      players_(transport),
      arena_(players_, tournament_, dice_, options.pace, journal_),
      lobby_(players_, accounts_, tournament_, arena_, dice_),
      simulation_(accounts_, lobby_, arena_, tournament_, ~options.seed, options.players),
      pace_(options.pace) {}

void Server::Connected(ConnectionId connection) {
  sessions_.try_emplace(connection, Session{{}, now_});
}

void Server::Received(ConnectionId connection, std::string_view bytes) {
  auto session = sessions_.find(connection);
  if (session == sessions_.end()) {
    return;
  }
  session->second.stream.Append(bytes);
  while (const auto message = session->second.stream.Next()) {
    Handle(connection, session->second, *message);
    session = sessions_.find(connection);
    if (session == sessions_.end()) {
      return;
    }
  }
  if (session->second.stream.IsBroken()) {
    End(connection, Refusal::MessageTooLong);
  }
}

void Server::Vanished(ConnectionId connection) {
  if (auto session = sessions_.extract(connection)) {
    LogOut(session.mapped());
  }
}

void Server::Tick(std::chrono::milliseconds now) {
  now_ = now;
  // The game goes on in steps of one length, so that it does not depend on how often this is
  // called.
  const auto game_now =
      std::chrono::milliseconds(std::llround(static_cast<double>(now.count()) * pace_));
  for (int step = 0; step < kMostSteps && game_now_ + kGameStep <= game_now; ++step) {
    game_now_ += kGameStep;
    arena_.Step(game_now_);
    simulation_.Step(game_now_);
  }
  std::vector<ConnectionId> too_late;
  for (const auto& [connection, session] : sessions_) {
    if (session.player == nullptr && now - session.connected_at >= kLoginTime) {
      too_late.push_back(connection);
    }
  }
  for (ConnectionId connection : too_late) {
    End(connection, Refusal::LoginTooLate);
  }
  lobby_.Tick(now);
}

void Server::Handle(ConnectionId connection, Session& session, std::string_view message) {
  const auto request = ReadRequest(message);
  if (session.player == nullptr) {
    if (request && request->kind == ClientMessage::Login) {
      LogIn(connection, session, *request);
    }
  } else if (!request) {
    players_.Refuse(*session.player, Refusal::UnknownMessage);
  } else if (request->kind == ClientMessage::Disconnect) {
    End(connection, Refusal::None);
  } else {
    lobby_.Handle(*session.player, *request);
  }
}

void Server::LogIn(ConnectionId connection, Session& session, const ClientRequest& request) {
  if (!request.is_complete) {
    return End(connection, Refusal::IncompleteLogin);
  }
  const auto [refusal, account] = accounts_.Admit(request.fields[1], request.fields[2]);
  if (account == nullptr) {
    return End(connection, refusal);
  }
  if (players_.Find(account->name) != nullptr) {
    return End(connection, Refusal::LoggedInElsewhere, {account->name});
  }
  session.player = &lobby_.Enter(connection, *account);
  journal_(account->name + " logged in");
}

/// The reason, if there is one, is the last that is sent.
void Server::End(ConnectionId connection, Refusal reason, const std::vector<std::string>& values) {
  if (reason != Refusal::None) {
    transport_.Send(connection, LineOf(SentenceFor(reason), values));
  }
  const auto session = sessions_.extract(connection);
  LogOut(session.mapped());
  transport_.Close(connection);
}

void Server::LogOut(const Session& session) {
  if (session.player != nullptr) {
    const std::string name = session.player->name();
    lobby_.Leave(*session.player);
    journal_(name + " logged out");
  }
}

}  // namespace korvanta::practice
