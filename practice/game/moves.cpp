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
  std::string summary = "  " + contender.name();
  for (TopicCode topic : kTopicsWithLevels) {
    summary.append(topic == kTopicsWithLevels.front() ? ": " : ", ").append(TextOf(topic).name);
    summary += " " + std::to_string(contender.LevelOf(topic));
  }
  return summary + (contender.ally == nullptr ? "" : "; allied with " + contender.ally->name()) +
         (contender.team.empty() ? "" : "; team " + contender.team);
}

/// Null, and refused, when the player has no place in the game.
Contender* SeatOf(World& world, const Player& player) {
  Contender* self = world.arena.SeatOf(*player.account);
  if (self == nullptr) {
    world.players.Refuse(player,
                         world.arena.game() == nullptr ? Refusal::NoGameOn : Refusal::NotInGame);
  }
  return self;
}

/// The player's side of a move and the other's; null, and refused, when there is no such opponent.
std::pair<Contender*, Contender*> Opponents(World& world, const Player& player,
                                            std::string_view name) {
  Contender* self = SeatOf(world, player);
  if (self == nullptr) {
    return {};
  }
  const Player* other = world.players.Find(TrimSpaces(name));
  Contender* opponent = other == nullptr ? nullptr : world.arena.SeatOf(*other->account);
  const Refusal refusal = other == nullptr      ? Refusal::OpponentOffline
                          : opponent == nullptr ? Refusal::OpponentNotInGame
                          : opponent == self    ? Refusal::Yourself
                                                : Refusal::None;
  const bool is_refused =
      world.players.Refuse(player, refusal, other == nullptr ? "" : other->name());
  return {self, is_refused ? nullptr : opponent};
}

std::string PointsOf(World& world, const Contender& contender) {
  return Filled(sentences::kPoints, {Counted(contender.points, "point"),
                                     std::to_string(world.arena.game()->Income(contender))});
}

}  // namespace

void Research(World& world, const Player& player, std::string_view topic_code,
              std::string_view level_code) {
  Contender* self = SeatOf(world, player);
  if (self == nullptr) {
    return;
  }
  const auto topic = ReadTopic(topic_code);
  const auto level = NumberWithin(level_code, 1, kGoldenLevel);
  const bool wins = topic == TopicCode::GoldenKnowledge;
  if (!topic || !level || wins != (*level == kGoldenLevel)) {
    world.players.Refuse(player, Refusal::NoSuchLevel);
    return;
  }
  const int cost = Game::Cost(*self, *topic);
  const Refusal refusal = world.arena.game()->Research(*self, *topic, *level);
  if (world.players.Refuse(
          player, refusal, wins ? "The Golden Knowledge" : LevelName(*topic, *level),
          wins ? "" : LevelName(*topic, self->LevelOf(*topic) + 1), Counted(cost, "point"),
          self->points, world.arena.game()->Income(*self))) {
    return;
  }
  const std::string points = Message<ServerMessage::ResearchPoints>(self->points);
  if (wins) {
    world.players.Send(player, points);
    world.arena.Win(*self);
    return;
  }
  world.players.Send(player, Message<ServerMessage::TopicResearched>(*topic, *level) + points +
                                 Message<ServerMessage::Sound>(Sound::Research));
  if (self->IsNearWinning() && !std::exchange(self->has_been_near_winning, true)) {
    world.players.SayToAll(sentences::kNearlyWins, player.name());
  }
}

void Attack(World& world, const Player& player, std::string_view name) {
  const auto [self, target] = Opponents(world, player, name);
  if (target == nullptr) {
    return;
  }
  const Game::AttackResult attack = world.arena.game()->Attack(*self, *target);
  if (world.players.Refuse(player, attack.refusal, target->name(),
                           Counted(Game::kAttackCost, "point"), self->points)) {
    return;
  }
  world.players.Send(player, Message<ServerMessage::ResearchPoints>(self->points) +
                                 Message<ServerMessage::Sound>(Sound::Attack));
  const std::vector<std::string> values = {player.name(), target->name(),
                                           std::string(TextOf(attack.topic).name),
                                           std::to_string(attack.level)};
  if (attack.broke_alliance) {
    world.arena.Comment(sentences::kBetrays, values);
  }
  if (!attack.was_blocked) {
    world.players.Send(*target->account,
                       Message<ServerMessage::TopicAttacked>(attack.topic, attack.level));
  }
  world.players.Send(
      *target->account,
      Message<ServerMessage::Sound>(Sound::Attacked) +
          LineOf(attack.was_blocked ? sentences::kYouBlock : sentences::kYouAreHit, values));
  world.arena.Comment(attack.was_blocked ? sentences::kBlocks : sentences::kAttacks, values,
                      target);
}

void Ally(World& world, const Player& player, std::string_view name) {
  const auto [self, other] = Opponents(world, player, name);
  if (other == nullptr) {
    return;
  }
  const Refusal refusal = Game::Propose(*self, *other);
  if (world.players.Refuse(player, refusal, other->name(),
                           self->ally == nullptr ? "" : self->ally->name())) {
    return;
  }
  if (self->ally == other) {
    world.arena.Comment(sentences::kAllied, {player.name(), other->name()});
  } else {
    world.players.Say(player, sentences::kOffersAlliance, other->name());
    world.players.Send(*other->account, LineOf(sentences::kAllianceOffered, {player.name()}));
  }
}

void BreakAlliance(World& world, const Player& player) {
  Contender* self = SeatOf(world, player);
  if (self != nullptr &&
      !world.players.Refuse(player, self->ally == nullptr ? Refusal::NoAlly : Refusal::None)) {
    world.arena.Comment(sentences::kAlliedNoLonger, {player.name(), self->ally->name()});
    Game::EndAlliance(*self);
  }
}

void ExplainTopic(World& world, const Player& player, std::string_view topic_code) {
  const auto topic = ReadTopic(topic_code);
  if (!topic) {
    world.players.Refuse(player, Refusal::NoSuchTopic);
    return;
  }
  const Contender* self = world.arena.SeatOf(*player.account);
  const Contender contender = self == nullptr ? Contender{player.account} : *self;
  const bool wins = *topic == TopicCode::GoldenKnowledge;
  const int level = wins ? 0 : contender.LevelOf(*topic);
  const std::string next =
      Filled(wins                 ? sentences::kGoldenCost
             : level == kTopLevel ? sentences::kLastLevel
                                  : sentences::kNextLevel,
             {std::to_string(level + 1), Counted(Game::Cost(contender, *topic), "point")});
  world.players.Say(player, sentences::kTopic, TextOf(*topic).name, TextOf(*topic).purpose, next,
                    self == nullptr ? "" : " " + PointsOf(world, *self));
}

void DescribeGame(World& world, const Player& player) {
  const std::string time = world.arena.TimeLeft();
  if (world.arena.game() == nullptr) {
    world.players.Say(player, time.empty() ? sentences::kNextGameNeedsTwo : sentences::kNextGameIn,
                      time);
    return;
  }
  world.players.Say(player, sentences::kStanding, world.arena.number(), world.arena.game()->ticks(),
                    time);
  for (const Contender& contender : world.arena.game()->contenders()) {
    world.players.Answer(player, Summary(contender));
  }
  if (const Contender* self = world.arena.SeatOf(*player.account)) {
    world.players.Answer(player, PointsOf(world, *self));
  }
}

}  // namespace korvanta::practice
