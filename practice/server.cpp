#include "practice/server.h"

#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "practice/wire/player_text.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

/// Why an account was not given, by Accounts::Verdict; Accepted has no reason.
constexpr std::array<std::string_view, 5> kRefusals = {
    "",
    "A user name has 4 to 20 characters, and only letters and digits.",
    "A password has 1 to 64 characters.",
    "Wrong password. A name belongs to the first password it was used with since the server was "
    "started.",
    "This server has no room for another name.",
};

constexpr std::chrono::milliseconds kGameStep{100};
/// At a time; after a long sleep of the machine the rest follows.
constexpr int kMostSteps = 10'000;

}  // namespace

Server::Server(Transport& transport, const ServerOptions& options,
               std::function<void(std::string_view line)> journal)
    : transport_(transport),
      journal_(std::move(journal)),
      dice_(options.seed),
      players_(transport),
      arena_(players_, tournament_, dice_, options.pace,
             [this](std::string_view line) { Write(line); }),
      lobby_(players_, tournament_, arena_, accounts_, dice_),
      simulation_(accounts_, players_, lobby_, arena_, tournament_, ~options.seed, options.players),
      pace_(options.pace) {
  lobby_.ListenWith([this](const Player& speaker, const Player* listener, std::string_view words) {
    simulation_.Hear(speaker, listener, words);
  });
}

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
      break;
    }
  }
  if (session != sessions_.end() && session->second.stream.IsBroken()) {
    End(connection, "A message of your client was far too long.");
  }
  lobby_.SendOnlineListIfDue();
}

void Server::Vanished(ConnectionId connection) {
  if (auto session = sessions_.extract(connection)) {
    LogOut(session.mapped());
  }
  lobby_.SendOnlineListIfDue();
}

void Server::Tick(std::chrono::milliseconds now) {
  now_ = now;
  lobby_.Tick(now);
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
    End(connection, "You did not log in within 30 seconds.");
  }
  lobby_.SendOnlineListIfDue();
}

void Server::SayFarewell() { players_.AnnounceToAll("The server is being stopped. Goodbye!"); }

void Server::Handle(ConnectionId connection, Session& session, std::string_view message) {
  const auto request = ReadRequest(message);
  if (session.player == nullptr) {
    if (request && request->kind == ClientMessage::Login) {
      LogIn(connection, session, *request);
    }
  } else if (!request) {
    players_.Refuse(*session.player, "Your client sent something that this server does not know.");
  } else if (request->kind == ClientMessage::Login) {
    players_.Refuse(*session.player, "You are logged in already.");
  } else if (request->kind == ClientMessage::Disconnect) {
    End(connection, {});
  } else if (request->kind != ClientMessage::KeepAlive) {
    lobby_.Handle(*session.player, *request);
  }
}

void Server::LogIn(ConnectionId connection, Session& session, const ClientRequest& request) {
  if (!request.is_complete) {
    End(connection, "Your client's login lacks its version, name or password.");
    return;
  }
  const auto [verdict, account] = accounts_.Admit(request.fields[1], request.fields[2]);
  if (account == nullptr) {
    End(connection, kRefusals.at(static_cast<std::size_t>(verdict)));
    return;
  }
  if (players_.Find(account->name) != nullptr) {
    End(connection, account->name + " is logged in already.");
    return;
  }
  session.player = &lobby_.Enter(connection, *account);
  Write(account->name + " logged in");
}

/// The reason, if there is one, is the last that the client hears.
void Server::End(ConnectionId connection, std::string_view reason) {
  if (!reason.empty()) {
    transport_.Send(connection, messages::ChatLine(MessageKind::Admin, "Server", reason));
  }
  const auto session = sessions_.extract(connection);
  LogOut(session.mapped());
  transport_.Close(connection);
}

void Server::LogOut(const Session& session) {
  if (session.player != nullptr) {
    const std::string name = session.player->name();
    lobby_.Leave(*session.player);
    Write(name + " logged out");
  }
}

void Server::Write(std::string_view line) const {
  if (journal_) {
    journal_(line);
  }
}

}  // namespace korvanta::practice
