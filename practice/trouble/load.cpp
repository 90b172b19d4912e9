#include "practice/trouble/load.h"

#include <algorithm>
#include <vector>

#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

constexpr std::string_view kListTag = TagOf(ServerMessage::OnlineList);
/// Bytes, about, that one refill brings.
constexpr std::size_t kRefill = std::size_t{64} * 1024;

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

/// A line of chat between invented players: one whole message.
std::string ChatterLine(Dice& dice) {
  constexpr std::size_t kSpeakers = 500;
  const std::string speaker = InventedName(dice.Below(kSpeakers), dice);
  std::vector<std::string_view> words(3 + dice.Below(13));
  std::generate(words.begin(), words.end(), [&] { return dice.Pick(kWords); });
  return ChatLine(MessageKind::Chat, speaker, Joined(words, " "));
}

}  // namespace

std::string CrowdRecords(int players, std::uint64_t seed) {
  constexpr std::size_t kColours = 8;
  constexpr std::size_t kLevels = 60;
  Dice dice(seed);
  std::string records;
  for (std::size_t number = 0; number < static_cast<std::size_t>(players); ++number) {
    const std::string name = InventedName(number, dice);
    const std::size_t colour = 1 + dice.Below(kColours);
    const std::size_t level = 1 + dice.Below(kLevels);
    records += Record(name, colour, level, dice.OneIn(4)) + kRecordSeparator;
  }
  return records;
}

Load::Load(Transport& next, const LoadOptions& options, std::uint64_t seed)
    : next_(next), options_(options), crowd_(CrowdRecords(options.crowd, seed)), dice_(seed) {}

void Load::Send(ConnectionId connection, std::string_view messages) {
  bool is_login = false;
  std::string with_crowd;
  messages.remove_suffix(1);
  for (std::string_view message : Split(messages, kMessageTerminator)) {
    is_login |= message.starts_with(TagOf(ServerMessage::LoginAccepted));
    if (message.starts_with(kListTag)) {
      with_crowd.append(kListTag).append(crowd_);
      message.remove_prefix(kListTag.size());
    }
    with_crowd.append(message).push_back(kMessageTerminator);
  }
  next_.Send(connection, with_crowd);
  if (is_login) {
    logged_in_.insert(connection);
    Refill(connection);
  }
}

void Load::Tick(std::chrono::milliseconds now) {
  const std::chrono::duration<double> passed = now - last_tick_;
  last_tick_ = now;
  // A server that was held up does not make up for more than a quarter of a second: at the highest
  // rate, all lines of a second are more than may wait for one player.
  lines_due_ += options_.lines_per_second * std::min(passed.count(), 0.25);
  std::string lines;
  for (; lines_due_ >= 1; --lines_due_) {
    lines += ChatterLine(dice_);
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
    lines += ChatterLine(dice_);
  }
  next_.Send(connection, lines);
}

}  // namespace korvanta::practice
