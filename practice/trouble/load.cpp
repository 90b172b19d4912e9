#include "practice/trouble/load.h"

#include <algorithm>
#include <vector>

#include "practice/base/texts.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

constexpr std::string_view kListTag = TagOf(ServerMessage::OnlineList);

constexpr auto kSyllables = Texts("ba", "den", "fir", "gol", "hun", "ka", "lor", "mi", "nor", "pel",
                                  "ros", "tav", "ul", "vin");

constexpr auto kWords = Texts(
    "attack", "me", "again", "and", "I", "take", "your", "industry", "hello", "good", "game",
    "well", "played", "the", "knowledge", "is", "almost", "mine", "alliance", "anyone?", "not",
    "yet", "wait", "for", "level", "four", "population", "defense", "who", "won", "that?", "ready",
    "thanks", "to", "researching", "nobody", "expects", "a", "military", "surprise");

/// Players have letters and digits alone in their names, so that the hyphen keeps these apart.
std::string InventedName(std::size_t number, Dice& dice) {
  std::string name;
  for (auto syllables = 2 + dice.Below(2); syllables > 0; --syllables) {
    name += dice.Pick(kSyllables);
  }
  name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return name + "-" + std::to_string(number);
}

}  // namespace

std::string Chatter::NextLine() {
  constexpr std::size_t kSpeakers = 500;
  const std::string speaker = InventedName(dice_.Below(kSpeakers), dice_);
  std::vector<std::string_view> words(3 + dice_.Below(13));
  for (std::string_view& word : words) {
    word = dice_.Pick(kWords);
  }
  return ChatLine(MessageKind::Chat, speaker, Joined(words, " "));
}

std::string CrowdRecords(int players, std::uint64_t seed) {
  constexpr std::size_t kColours = 8;
  constexpr std::size_t kLevels = 60;
  Dice dice(seed);
  std::string records;
  for (std::size_t number = 0; number < static_cast<std::size_t>(players); ++number) {
    records += InventedName(number, dice);
    records += kFieldSeparator;
    records += std::to_string(1 + dice.Below(kColours));
    records += kFieldSeparator;
    records += std::to_string(1 + dice.Below(kLevels));
    records += kFieldSeparator;
    records += dice.OneIn(4) ? '1' : '0';
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
