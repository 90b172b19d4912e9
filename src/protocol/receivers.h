/// What the protocol asks of the floors above it: the narrow interfaces through which its handlers
/// show, draw and play what the server says. The client plugs the implementations in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/message_kind.h"

namespace korvanta {

/// The message view.
class ChatOutput {
 public:
  virtual ~ChatOutput() = default;

  virtual void AppendMessage(std::string_view text, MessageKind kind) = 0;
};

/// The main window's title and the caption of its connect item.
class ConnectionDisplay {
 public:
  virtual ~ConnectionDisplay() = default;

  virtual void SetConnectCaption(std::string_view caption) = 0;
  virtual void SetTitle(std::string_view title) = 0;
};

/// The research board and the game clock.
class GameDisplay {
 public:
  virtual ~GameDisplay() = default;

  virtual void StartGameClock(std::int16_t seconds) = 0;
  virtual void LightTopic(std::int16_t topic, std::int16_t level) = 0;
  virtual void ResetBoard() = 0;
  virtual void ShowResearchPoints(double points) = 0;
};

/// The online list and the side windows; each reads its own payload and raises MessageError from a
/// broken one, keeping what it did before.
class LobbyDisplay {
 public:
  virtual ~LobbyDisplay() = default;

  virtual void ShowOnlineList(std::string_view payload) = 0;
  virtual void ShowUserStatistics(std::string_view payload) = 0;
  virtual void ShowNews(std::string_view payload) = 0;
  virtual void ShowTournamentInfo(std::string_view payload) = 0;
  virtual void ShowTeamList(std::string_view payload) = 0;
  virtual void ShowTeamNames(std::string_view payload) = 0;
};

/// Masks offensive words.
class ChatFilter {
 public:
  virtual ~ChatFilter() = default;

  /// The text as it may be shown: `text` itself, or a masked copy that lies in `masked`.
  virtual std::string_view FilterLanguage(std::string_view text, std::string& masked) const = 0;
};

}  // namespace korvanta
