/// What the protocol needs from the floors above it: a narrow interface for each thing that a
/// server's message changes. The things implement them; the client connects them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/message_kind.h"
#include "protocol/topic_code.h"

namespace korvanta {

/// The message view.
class ChatOutput {
 public:
  virtual ~ChatOutput() = default;

  virtual void AppendMessage(std::string_view text, MessageKind kind) = 0;
};

/// Masks offensive words.
class ChatFilter {
 public:
  virtual ~ChatFilter() = default;

  /// The text to show: `text` itself, or a masked copy stored in `masked`.
  virtual std::string_view FilterLanguage(std::string_view text, std::string& masked) const = 0;
};

/// The main window's title and the caption of its connect item.
class ConnectionDisplay {
 public:
  virtual ~ConnectionDisplay() = default;

  virtual void SetConnectCaption(std::string_view caption) = 0;
  virtual void SetTitle(std::string_view title) = 0;
};

/// The game clock.
class ClockReceiver {
 public:
  virtual ~ClockReceiver() = default;

  virtual void StartGameClock(std::int16_t seconds) = 0;
};

/// The research board.
class BoardReceiver {
 public:
  virtual ~BoardReceiver() = default;

  virtual void ShowTopicLevel(TopicCode topic, std::int16_t level) = 0;
  virtual void ShowResearchPoints(double points) = 0;
  virtual void ShowClearedBoard() = 0;
};

// The following read their payloads themselves. They throw MessageError for a malformed one;
// earlier effects remain.

class OnlineListReceiver {
 public:
  virtual ~OnlineListReceiver() = default;

  virtual void ShowOnlineList(std::string_view payload) = 0;
};

class StatisticsReceiver {
 public:
  virtual ~StatisticsReceiver() = default;

  virtual void ShowUserStatistics(std::string_view payload) = 0;
};

class NewsReceiver {
 public:
  virtual ~NewsReceiver() = default;

  virtual void ShowNews(std::string_view payload) = 0;
};

class TournamentReceiver {
 public:
  virtual ~TournamentReceiver() = default;

  virtual void ShowTournamentInfo(std::string_view payload) = 0;
  virtual void ShowTeamList(std::string_view payload) = 0;
  virtual void ShowTeamNames(std::string_view payload) = 0;
};

}  // namespace korvanta
