/// Recorders of what the protocol shows: they implement the narrow interfaces of
/// protocol/receivers.h and keep every call as one line of text.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "protocol/receivers.h"

namespace korvanta::fakes {

/// "kind|text" for each line.
class RecordingChat : public ChatOutput {
 public:
  void AppendMessage(std::string_view text, MessageKind kind) override {
    lines.push_back(std::to_string(static_cast<int>(kind)) + "|" + std::string(text));
  }
  std::vector<std::string> Take() { return std::exchange(lines, {}); }

  std::vector<std::string> lines;
};

/// "caption=…" and "title=…" in order.
class RecordingDisplay : public ConnectionDisplay {
 public:
  void SetConnectCaption(std::string_view caption) override {
    calls.push_back("caption=" + std::string(caption));
  }
  void SetTitle(std::string_view title) override { calls.push_back("title=" + std::string(title)); }
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
};

/// "clock seconds", "light topic level", …; for a message that is handed on "tag payload".
class RecordingThings : public ClockReceiver,
                        public BoardReceiver,
                        public OnlineListReceiver,
                        public StatisticsReceiver,
                        public NewsReceiver,
                        public TournamentReceiver {
 public:
  void StartGameClock(std::int16_t seconds) override { Record("clock", std::to_string(seconds)); }
  void ShowTopicLevel(TopicCode topic, std::int16_t level) override {
    Record("light", std::to_string(static_cast<int>(topic)) + " " + std::to_string(level));
  }
  void ShowClearedBoard() override { Record("reset", "board"); }
  void ShowResearchPoints(double points) override { Record("points", std::to_string(points)); }
  void ShowOnlineList(std::string_view payload) override { Record("onl", payload); }
  void ShowUserStatistics(std::string_view payload) override { Record("bre", payload); }
  void ShowNews(std::string_view payload) override { Record("nws", payload); }
  void ShowTournamentInfo(std::string_view payload) override { Record("tif", payload); }
  void ShowTeamList(std::string_view payload) override { Record("ttm", payload); }
  void ShowTeamNames(std::string_view payload) override { Record("tdd", payload); }
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;

 private:
  void Record(const std::string& what, std::string_view payload) {
    calls.push_back(what + " " + std::string(payload));
  }
};

}  // namespace korvanta::fakes
