#include "practice/game/moves.h"

#include <utility>

#include "practice/base/player_text.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

/// Nothing for a text that is not a topic code.
std::optional<TopicCode> ReadTopic(std::string_view code) {
  const auto number = NumberWithin(code, 1, static_cast<int>(TopicCode::GoldenKnowledge));
  return number ? std::optional(static_cast<TopicCode>(*number)) : std::nullopt;
}

std::string LevelName(TopicCode topic, int level) {
  return std::string(TextOf(topic).name) + " level " + std::to_string(level);
}

/// All levels on one line, and whose side the contender is on.
std::string Summary(const Contender& contender) {
  std::vector<std::string> levels;
  levels.reserve(kTopicsWithLevels.size());
  for (TopicCode topic : kTopicsWithLevels) {
    levels.push_back(std::string(TextOf(topic).name) + " " +
                     std::to_string(contender.LevelOf(topic)));
  }
  return "  " + contender.name() + ": " + Joined(levels, ", ") +
         (contender.ally == nullptr ? "" : "; allied with " + contender.ally->name()) +
         (contender.team.empty() ? "" : "; team " + contender.team);
}

}  // namespace

void Moves::Research(const Player& player, std::string_view topic_code,
                     std::string_view level_code) {
  Contender* self = Seat(player);
  if (self == nullptr) {
    return;
  }
  const auto topic = ReadTopic(topic_code);
  const auto level = NumberWithin(level_code, 1, kGoldenLevel);
  const bool wins = topic == TopicCode::GoldenKnowledge;
  if (!topic || !level || wins != (*level == kGoldenLevel)) {
    players_.Refuse(player, Refusal::NoSuchLevel);
    return;
  }
  const int cost = Game::Cost(*self, *topic);
  const Refusal refusal = arena_.game()->Research(*self, *topic, *level);
  if (players_.Refuse(player, refusal, wins ? "The Golden Knowledge" : LevelName(*topic, *level),
                      wins ? "" : LevelName(*topic, self->LevelOf(*topic) + 1),
                      Counted(cost, "point"), self->points, arena_.game()->Income(*self))) {
    return;
  }
  const std::string points = Message<ServerMessage::ResearchPoints>(self->points);
  if (wins) {
    players_.Send(player, points);
    arena_.Win(*self);
    return;
  }
  players_.Send(player, Message<ServerMessage::TopicResearched>(*topic, *level) + points +
                            Message<ServerMessage::Sound>(Sound::Research));
  if (self->IsNearWinning() && !std::exchange(self->has_been_near_winning, true)) {
    players_.SayToAll(sentences::kNearlyWins, player.name());
  }
}

void Moves::Attack(const Player& player, std::string_view name) {
  const auto [self, target] = Opponents(player, name);
  if (target == nullptr) {
    return;
  }
  const Game::AttackResult attack = arena_.game()->Attack(*self, *target);
  if (players_.Refuse(player, attack.refusal, target->name(), Counted(Game::kAttackCost, "point"),
                      self->points)) {
    return;
  }
  players_.Send(player, Message<ServerMessage::ResearchPoints>(self->points) +
                            Message<ServerMessage::Sound>(Sound::Attack));
  const std::vector<std::string> values = {player.name(), target->name(),
                                           std::string(TextOf(attack.topic).name),
                                           std::to_string(attack.level)};
  if (attack.broke_alliance) {
    arena_.Comment(sentences::kBetrays, values);
  }
  if (!attack.was_blocked) {
    arena_.Send(*target, Message<ServerMessage::TopicAttacked>(attack.topic, attack.level));
  }
  arena_.Send(*target, Message<ServerMessage::Sound>(Sound::Attacked) +
                           LineOf(attack.was_blocked ? sentences::kYouBlock : sentences::kYouAreHit,
                                  values));
  arena_.Comment(attack.was_blocked ? sentences::kBlocks : sentences::kAttacks, values, target);
}

void Moves::Ally(const Player& player, std::string_view name) {
  const auto [self, other] = Opponents(player, name);
  if (other == nullptr) {
    return;
  }
  const Refusal refusal = Game::Propose(*self, *other);
  if (players_.Refuse(player, refusal, other->name(),
                      self->ally == nullptr ? "" : self->ally->name())) {
    return;
  }
  if (self->ally == other) {
    arena_.Comment(sentences::kAllied, {player.name(), other->name()});
  } else {
    players_.Say(player, sentences::kOffersAlliance, other->name());
    arena_.Send(*other, LineOf(sentences::kAllianceOffered, {player.name()}));
  }
}

void Moves::BreakAlliance(const Player& player) {
  Contender* self = Seat(player);
  if (self != nullptr &&
      !players_.Refuse(player, self->ally == nullptr ? Refusal::NoAlly : Refusal::None)) {
    arena_.Comment(sentences::kAlliedNoLonger, {player.name(), self->ally->name()});
    Game::EndAlliance(*self);
  }
}

void Moves::Explain(const Player& player, std::string_view topic_code) {
  const auto topic = ReadTopic(topic_code);
  if (!topic) {
    players_.Refuse(player, Refusal::NoSuchTopic);
    return;
  }
  const Contender* self = arena_.SeatOf(*player.account);
  const Contender contender = self == nullptr ? Contender{player.account} : *self;
  const bool wins = *topic == TopicCode::GoldenKnowledge;
  const int level = wins ? 0 : contender.LevelOf(*topic);
  const std::string next =
      Filled(wins                 ? sentences::kGoldenCost
             : level == kTopLevel ? sentences::kLastLevel
                                  : sentences::kNextLevel,
             {std::to_string(level + 1), Counted(Game::Cost(contender, *topic), "point")});
  players_.Say(player, sentences::kTopic, TextOf(*topic).name, TextOf(*topic).purpose, next,
               self == nullptr ? "" : " " + PointsOf(*self));
}

void Moves::Describe(const Player& player) {
  const std::string time = arena_.TimeLeft();
  if (arena_.game() == nullptr) {
    players_.Say(player, time.empty() ? sentences::kNextGameNeedsTwo : sentences::kNextGameIn,
                 time);
    return;
  }
  players_.Say(player, sentences::kStanding, arena_.number(), arena_.game()->ticks(), time);
  for (const Contender& contender : arena_.game()->contenders()) {
    players_.Answer(player, Summary(contender));
  }
  if (const Contender* self = arena_.SeatOf(*player.account)) {
    players_.Answer(player, PointsOf(*self));
  }
}

Contender* Moves::Seat(const Player& player) {
  Contender* self = arena_.SeatOf(*player.account);
  if (self == nullptr) {
    players_.Refuse(player, arena_.game() == nullptr ? Refusal::NoGameOn : Refusal::NotInGame);
  }
  return self;
}

std::pair<Contender*, Contender*> Moves::Opponents(const Player& player, std::string_view name) {
  Contender* self = Seat(player);
  if (self == nullptr) {
    return {};
  }
  const Player* other = players_.Find(TrimSpaces(name));
  Contender* opponent = other == nullptr ? nullptr : arena_.SeatOf(*other->account);
  const Refusal refusal = other == nullptr      ? Refusal::OpponentOffline
                          : opponent == nullptr ? Refusal::OpponentNotInGame
                          : opponent == self    ? Refusal::Yourself
                                                : Refusal::None;
  const bool is_refused = players_.Refuse(player, refusal, other == nullptr ? "" : other->name());
  return {self, is_refused ? nullptr : opponent};
}

std::string Moves::PointsOf(const Contender& contender) {
  return Filled(sentences::kPoints, {Counted(contender.points, "point"),
                                     std::to_string(arena_.game()->Income(contender))});
}

}  // namespace korvanta::practice
