#include "practice/simulation/conversation.h"

#include <algorithm>

#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;

/// Lines that nobody says again for a while.
constexpr std::size_t kRemembered = 20;
constexpr int kOpeningTicks = 5;

}  // namespace

Character* AnyOnline(std::vector<Character>& characters, Dice& dice) {
  std::vector<Character*> online;
  for (Character& character : characters) {
    if (character.player != nullptr) {
      online.push_back(&character);
    }
  }
  return online.empty() ? nullptr : dice.Pick(online);
}

std::vector<Conversation::Line> Conversation::Step(std::chrono::milliseconds now) {
  now_ = now;
  if (now_ >= next_talk_) {
    next_talk_ = now_ + dice_.Between(8s, 20s);
    if (Character* speaker = AnyOnline(characters_, dice_)) {
      MakeSmallTalk(*speaker);
    }
  }
  std::vector<Line> typed;
  std::erase_if(waiting_, [&](const Line& line) {
    if (line.due <= now_ && line.speaker->player != nullptr) {
      typed.push_back(line);
    }
    return line.due <= now_;
  });
  return typed;
}

void Conversation::Hear(const Player& speaker, const Player* listener, std::string_view words) {
  if (speaker.IsSimulated()) {
    return;
  }
  const auto is_meant = [&](const Character& character) {
    return character.player != nullptr &&
           (listener == nullptr
                ? NameKey(words).find(NameKey(character.account->name)) != std::string::npos
                : listener == character.player);
  };
  const Occasion occasion = OccasionOf(words);
  const auto meant = std::find_if(characters_.begin(), characters_.end(), is_meant);
  Character* character = meant != characters_.end() ? &*meant : nullptr;
  if (character == nullptr && listener == nullptr && waiting_.empty() &&
      occasion != Occasion::Mention) {
    character = AnyOnline(characters_, dice_);
  }
  const bool is_busy = std::any_of(waiting_.begin(), waiting_.end(),
                                   [&](const Line& line) { return line.speaker == character; });
  if (character == nullptr || is_busy) {
    return;
  }
  if (const std::string line = Pick(occasion, speaker.name()); !line.empty()) {
    const std::string command = listener == nullptr ? "/c " : "/tell " + speaker.name() + " ";
    waiting_.push_back({now_ + dice_.Between(1500ms, 4s), character, command + line});
  }
}

void Conversation::Say(Character& speaker, Occasion occasion, std::string_view name) {
  if (const std::string line = Pick(occasion, name); !line.empty()) {
    waiting_.push_back({now_, &speaker, "/c " + line});
  }
}

/// About whoever is ahead in the game, or about anyone.
void Conversation::MakeSmallTalk(Character& speaker) {
  const Game* game = arena_.game();
  const bool plays = arena_.SeatOf(*speaker.player) != nullptr;
  const Occasion occasion = arena_.phase() == Arena::Phase::Resting ? Occasion::Ending
                            : !plays                                ? Occasion::Lobby
                            : !game->IsOpen()                       ? Occasion::Closing
                            : game->ticks() < kOpeningTicks         ? Occasion::Opening
                                                                    : Occasion::Playing;
  const Character* other = AnyOnline(characters_, dice_);
  std::string_view name = other == &speaker ? std::string_view() : other->account->name;
  int most = -1;
  if (game != nullptr) {
    for (const Contender& contender : game->contenders()) {
      if (contender.account != speaker.account && Progress(contender) > most) {
        most = Progress(contender);
        name = contender.name();
      }
    }
  }
  Say(speaker, occasion, name);
}

std::string Conversation::Pick(Occasion occasion, std::string_view name) {
  std::vector<std::string_view> fresh;
  for (std::string_view line : LinesFor(occasion)) {
    const bool was_said = std::ranges::count(said_lately_, line) > 0;
    if (!was_said && (!name.empty() || line.find('%') == std::string_view::npos)) {
      fresh.push_back(line);
    }
  }
  if (fresh.empty()) {
    return {};
  }
  said_lately_.push_back(dice_.Pick(fresh));
  std::string line(said_lately_.back());
  if (const std::size_t place = line.find('%'); place != std::string::npos) {
    line.replace(place, 1, name);
  }
  if (said_lately_.size() > kRemembered) {
    said_lately_.pop_front();
  }
  return line;
}

}  // namespace korvanta::practice
