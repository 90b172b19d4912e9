#include "practice/server.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace korvanta::practice {
namespace {

/// How long a connection may stay without a login.
constexpr std::chrono::seconds kLoginTime{30};
constexpr std::chrono::milliseconds kGameStep{100};
/// At a time; after a long sleep of the machine the rest follows.
constexpr int kMostSteps = 10'000;

}  // namespace

Server::Server(Transport& transport, const ServerOptions& options, Journal journal)
    : transport_(transport),
      journal_(std::move(journal)),
      world_(transport, options.seed, options.pace, journal_),
      simulation_(world_, lobby_, ~options.seed, options.players),
      pace_(options.pace) {}

void Server::Connected(ConnectionId connection) {
  sessions_.try_emplace(connection, Session{{}, world_.now});
}

void Server::Received(ConnectionId connection, std::string_view bytes) {
  auto session = sessions_.find(connection);
  if (session != sessions_.end()) {
    session->second.unread += bytes;
  }
  // Each message may end the session.
  for (; session != sessions_.end(); session = sessions_.find(connection)) {
    std::string& unread = session->second.unread;
    const std::size_t end = unread.find(kMessageTerminator);
    if (std::min(end, unread.size()) > kLongestMessage) {
      return End(connection, Refusal::MessageTooLong);
    }
    if (end == std::string::npos) {
      return;
    }
    const std::string message = unread.substr(0, end);
    unread.erase(0, end + 1);
    Handle(connection, session->second, message);
  }
}

void Server::Vanished(ConnectionId connection) {
  const auto session = sessions_.extract(connection);
  if (session && session.mapped().player != nullptr) {
    const Player& player = *session.mapped().player;
    const std::string name = player.name();
    lobby_.Leave(player);
    journal_(name + " logged out");
  }
}

void Server::Tick(std::chrono::milliseconds now) {
  world_.now = now;
  // The game goes on in steps of one length, so that it does not depend on how often this is
  // called.
  const auto game_now =
      std::chrono::milliseconds(std::llround(static_cast<double>(now.count()) * pace_));
  for (int step = 0; step < kMostSteps && game_now_ + kGameStep <= game_now; ++step) {
    game_now_ += kGameStep;
    world_.arena.Step(game_now_);
    simulation_.Step(game_now_);
  }
  for (auto next = sessions_.begin(); next != sessions_.end();) {
    const auto& [connection, session] = *next++;
    if (session.player == nullptr && now - session.connected_at >= kLoginTime) {
      End(connection, Refusal::LoginTooLate);
    }
  }
  lobby_.SendOnlineList();
}

void Server::Handle(ConnectionId connection, Session& session, std::string_view message) {
  const auto request = ReadRequest(message);
  if (session.player == nullptr) {
    if (request && request->kind == ClientMessage::Login) {
      LogIn(connection, session, *request);
    }
  } else if (!request) {
    world_.players.Refuse(*session.player, Refusal::UnknownMessage);
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
  const auto [refusal, account] = world_.accounts.Admit(request.fields[1], request.fields[2]);
  if (account == nullptr) {
    return End(connection, refusal);
  }
  if (world_.players.Find(account->name) != nullptr) {
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
  Vanished(connection);
  transport_.Close(connection);
}

}  // namespace korvanta::practice
