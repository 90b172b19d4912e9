#include "practice/simulation/conversation.h"

#include <algorithm>
#include <utility>

#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

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

std::vector<Conversation::TypedLine> Conversation::Step(milliseconds now) {
  now_ = now;
  std::vector<TypedLine> typed;
  std::erase_if(replies_, [&](Reply& reply) {
    if (reply.due > now_) {
      return false;
    }
    typed.push_back(std::move(reply.typed));
    return true;
  });
  if (now_ >= next_talk_) {
    next_talk_ = now_ + dice_.Between(8s, 20s);
    typed.push_back(SmallTalk());
  }
  std::erase_if(typed, [](const TypedLine& line) {
    return line.speaker == nullptr || line.speaker->player == nullptr || line.line.empty();
  });
  return typed;
}

void Conversation::Hear(const Player& speaker, const Player* listener, std::string_view words) {
  if (speaker.IsSimulated()) {
    return;
  }
  const bool greets = IsGreeting(words);
  const bool asks = IsQuestion(words);
  const Occasion occasion = greets ? Occasion::Greeting
                            : asks ? Occasion::Question
                                   : Occasion::Mention;
  const auto is_meant = [&](const Character& character) {
    return character.player != nullptr &&
           (listener == nullptr
                ? NameKey(words).find(NameKey(character.account->name)) != std::string::npos
                : listener == character.player);
  };
  const auto meant = std::find_if(characters_.begin(), characters_.end(), is_meant);
  if (meant != characters_.end()) {
    Answer(*meant, speaker, occasion, listener != nullptr);
  } else if (listener == nullptr && replies_.empty() && (greets || asks)) {
    if (Character* character = AnyOnline(characters_, dice_)) {
      Answer(*character, speaker, occasion, false);
    }
  }
}

/// A little later, unless the character is busy with another answer.
void Conversation::Answer(Character& character, const Player& speaker, Occasion occasion,
                          bool is_private) {
  const bool is_answering = std::any_of(replies_.begin(), replies_.end(), [&](const Reply& reply) {
    return reply.typed.speaker == &character;
  });
  if (is_answering) {
    return;
  }
  std::string line = LineFor(occasion, speaker.name());
  if (is_private && !line.empty()) {
    line.replace(0, 2, "/tell " + speaker.name());
  }
  replies_.push_back({now_ + dice_.Between(1500ms, 4s), {&character, std::move(line)}});
}

/// What someone has to say about the game, or to someone else.
Conversation::TypedLine Conversation::SmallTalk() {
  Character* speaker = AnyOnline(characters_, dice_);
  if (speaker == nullptr) {
    return {};
  }
  const Game* game = arena_.game();
  const bool plays = arena_.SeatOf(*speaker->player) != nullptr;
  const Occasion occasion = arena_.phase() == Arena::Phase::Resting ? Occasion::Ending
                            : !plays                                ? Occasion::Lobby
                            : !game->IsOpen()                       ? Occasion::Closing
                            : game->ticks() < kOpeningTicks         ? Occasion::Opening
                                                                    : Occasion::Playing;
  // Of whoever is ahead in the game, or of anyone.
  std::string_view name;
  int most = -1;
  if (game != nullptr) {
    for (const Contender& other : game->contenders()) {
      if (other.account != speaker->account && Progress(other) > most) {
        most = Progress(other);
        name = other.name();
      }
    }
  }
  if (const Character* other = AnyOnline(characters_, dice_); name.empty() && other != speaker) {
    name = other->account->name;
  }
  return {speaker, LineFor(occasion, name)};
}

std::string Conversation::LineFor(Occasion occasion, std::string_view name) {
  std::vector<std::string_view> fresh;
  for (std::string_view line : LinesFor(occasion)) {
    if (std::find(said_lately_.begin(), said_lately_.end(), line) == said_lately_.end()) {
      fresh.push_back(line);
    }
  }
  if (fresh.empty()) {
    return {};
  }
  const std::string_view chosen = dice_.Pick(fresh);
  std::string line = "/c " + std::string(chosen);
  if (const std::size_t place = line.find('%'); place != std::string::npos) {
    if (name.empty()) {
      return {};
    }
    line.replace(place, 1, name);
  }
  said_lately_.push_back(chosen);
  if (said_lately_.size() > kRemembered) {
    said_lately_.pop_front();
  }
  return line;
}

}  // namespace korvanta::practice
