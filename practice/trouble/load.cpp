#include "practice/trouble/load.h"

#include <algorithm>
#include <array>

#include "practice/wire/server_messages.h"
#include "protocol/message_table.h"

namespace korvanta::practice {
namespace {

constexpr std::string_view kListTag = TagOf(ServerMessage::OnlineList);

constexpr auto kSyllables = std::to_array<std::string_view>(
    {"ba", "den", "fir", "gol", "hun", "ka", "lor", "mi", "nor", "pel", "ros", "tav", "ul", "vin"});

constexpr auto kWords = std::to_array<std::string_view>(
    {"attack", "me",   "again",       "and",     "I",       "take", "your",      "industry",
     "hello",  "good", "game",        "well",    "played",  "the",  "knowledge", "is",
     "almost", "mine", "alliance",    "anyone?", "not",     "yet",  "wait",      "for",
     "level",  "four", "population",  "defense", "who",     "won",  "that?",     "ready",
     "thanks", "to",   "researching", "nobody",  "expects", "a",    "military",  "surprise"});

template <typename Texts>
std::string_view Pick(const Texts& texts, std::mt19937_64& dice) {
  return texts.at(dice() % texts.size());
}

/// Players have letters and digits alone in their names, so that the hyphen keeps these apart.
std::string InventedName(std::uint64_t number, std::mt19937_64& dice) {
  std::string name;
  for (auto syllables = 2 + dice() % 2; syllables > 0; --syllables) {
    name += Pick(kSyllables, dice);
  }
  name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return name + "-" + std::to_string(number);
}

}  // namespace

std::string Chatter::NextLine() {
  constexpr std::uint64_t kSpeakers = 500;
  const std::string speaker = InventedName(dice_() % kSpeakers, dice_);
  std::string words;
  for (auto count = 3 + dice_() % 13; count > 0; --count) {
    words += Pick(kWords, dice_);
    words += ' ';
  }
  words.pop_back();
  return messages::ChatLine(MessageKind::Chat, speaker, words);
}

std::string CrowdRecords(int players, std::uint64_t seed) {
  constexpr std::uint64_t kColours = 8;
  constexpr std::uint64_t kLevels = 60;
  std::mt19937_64 dice(seed);
  std::string records;
  for (int i = 0; i < players; ++i) {
    records += InventedName(static_cast<std::uint64_t>(i), dice);
    records += kFieldSeparator;
    records += std::to_string(1 + dice() % kColours);
    records += kFieldSeparator;
    records += std::to_string(1 + dice() % kLevels);
    records += kFieldSeparator;
    records += dice() % 4 == 0 ? '1' : '0';
    records += kRecordSeparator;
  }
  return records;
}

Load::Load(Transport& next, const LoadOptions& options)
    : next_(next),
      options_(options),
      crowd_(CrowdRecords(options.crowd, options.seed)),
      chatter_(options.seed) {}

void Load::Send(ConnectionId connection, std::string_view messages) {
  const bool floods = options_.lines_per_second > 0 || options_.is_unbounded;
  if (crowd_.empty() && !floods) {
    next_.Send(connection, messages);
    return;
  }
  bool is_login = false;
  std::string with_crowd;
  for (std::string_view message : Split(messages, kMessageTerminator)) {
    is_login |= message.starts_with(TagOf(ServerMessage::LoginAccepted));
    if (crowd_.empty() || message.empty()) {
      continue;
    }
    if (message.starts_with(kListTag)) {
      with_crowd += kListTag;
      with_crowd += crowd_;
      message.remove_prefix(kListTag.size());
    }
    with_crowd += message;
    with_crowd += kMessageTerminator;
  }
  next_.Send(connection, crowd_.empty() ? messages : with_crowd);
  if (is_login) {
    logged_in_.insert(connection);
    Refill(connection);
  }
}

void Load::Close(ConnectionId connection) {
  logged_in_.erase(connection);
  next_.Close(connection);
}

void Load::Tick(std::chrono::milliseconds now) {
  const std::chrono::duration<double> passed = now - last_tick_;
  last_tick_ = now;
  // A server that was held up does not make up for more than a second.
  lines_due_ += options_.lines_per_second * std::min(passed.count(), 1.0);
  std::string lines;
  for (; lines_due_ >= 1; --lines_due_) {
    lines += chatter_.NextLine();
  }
  if (!lines.empty()) {
    for (ConnectionId connection : logged_in_) {
      next_.Send(connection, lines);
    }
  }
}

void Load::Refill(ConnectionId connection) {
  if (!options_.is_unbounded || !logged_in_.contains(connection)) {
    return;
  }
  std::string lines;
  while (lines.size() < kRefill) {
    lines += chatter_.NextLine();
  }
  next_.Send(connection, lines);
}

}  // namespace korvanta::practice
