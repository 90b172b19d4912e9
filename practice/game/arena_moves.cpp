/// What players do in a game, and what they are told of it.
#include <string>
#include <utility>

#include "practice/game/arena.h"
#include "practice/wire/player_text.h"

namespace korvanta::practice {
namespace {

/// All levels on one line, and whose side the contender is on.
std::string Board(const Contender& contender) {
  std::string board;
  for (Topic topic : kTopicsWithLevels) {
    board += std::string(TopicName(topic)) + " " + std::to_string(contender.LevelOf(topic)) +
             (topic == kTopicsWithLevels.back() ? "" : ", ");
  }
  if (contender.ally != nullptr) {
    board += "; allied with " + contender.ally->name();
  }
  return contender.team.empty() ? board : board + "; team " + contender.team;
}

}  // namespace

void Arena::Research(Player& player, std::string_view topic_code, std::string_view level_text) {
  Contender* self = SeatOrRefuse(player);
  if (self == nullptr) {
    return;
  }
  const auto topic = ReadTopic(topic_code);
  const auto level = NumberWithin(level_text, 1, kGoldenLevel);
  if (!topic || !level || (*topic == Topic::GoldenKnowledge) != (*level == kGoldenLevel)) {
    players_.Refuse(player, "There is no such topic or level.");
    return;
  }
  const Game::Research research = game_->DoResearch(*self, *topic, *level);
  if (!research.refusal.empty()) {
    players_.Refuse(player, research.refusal);
    return;
  }
  if (research.wins) {
    Tell(*self, messages::ResearchPoints(self->points));
    End(game_->WinnersWith(*self), self);
    return;
  }
  Tell(*self, messages::Researched(Code(*topic), research.level) +
                  messages::ResearchPoints(self->points) + messages::PlaySound(Sound::Research));
  if (self->IsNearWinning()) {
    players_.ListChanges();
    if (!std::exchange(self->has_been_near_winning, true)) {
      players_.AnnounceToAll(player.name() + " needs only the Golden Knowledge now!");
    }
  }
}

void Arena::Attack(Player& player, std::string_view name) {
  Contender* self = SeatOrRefuse(player);
  Contender* target = self == nullptr ? nullptr : Opponent(player, *self, name);
  if (target == nullptr) {
    return;
  }
  const Game::Attack attack = game_->DoAttack(*self, *target);
  if (!attack.refusal.empty()) {
    players_.Refuse(player, attack.refusal);
    return;
  }
  Tell(*self, messages::ResearchPoints(self->points) + messages::PlaySound(Sound::Attack));
  if (attack.broke_alliance) {
    Comment(player.name() + " betrays " + target->name() + "!");
  }
  if (attack.was_blocked) {
    Tell(*target, messages::PlaySound(Sound::Attacked));
    Comment(target->name() + " blocks an attack by " + player.name());
    return;
  }
  Tell(*target,
       messages::Attacked(Code(attack.topic), attack.level) + messages::PlaySound(Sound::Attacked));
  Comment(player.name() + " attacks " + target->name() + ", whose " +
          std::string(TopicName(attack.topic)) + " falls to level " + std::to_string(attack.level));
  players_.ListChanges();
}

void Arena::Ally(Player& player, std::string_view name) {
  Contender* self = SeatOrRefuse(player);
  Contender* other = self == nullptr ? nullptr : Opponent(player, *self, name);
  if (other == nullptr) {
    return;
  }
  const Game::Alliance alliance = Game::Propose(*self, *other);
  if (!alliance.refusal.empty()) {
    players_.Refuse(player, alliance.refusal);
  } else if (alliance.is_formed) {
    Comment(player.name() + " and " + other->name() + " are allied now");
    players_.ListChanges();
  } else {
    players_.Answer(player, "You offer " + other->name() + " an alliance. It is formed when " +
                                other->name() + " offers one to you.");
    if (const Player* listener = players_.Find(other->name())) {
      players_.Answer(*listener, player.name() + " offers you an alliance. To agree, right-click " +
                                     player.name() + " and choose \"Form Alliance\".");
    }
  }
}

void Arena::BreakAlliance(Player& player) {
  Contender* self = SeatOrRefuse(player);
  if (self == nullptr) {
    return;
  }
  if (self->ally == nullptr) {
    players_.Refuse(player, "You have no ally.");
    return;
  }
  Comment(player.name() + " and " + self->ally->name() + " are allied no longer");
  Game::EndAlliance(*self);
  players_.ListChanges();
}

void Arena::Explain(Player& player, std::string_view topic_code) {
  const auto topic = ReadTopic(topic_code);
  if (!topic) {
    players_.Refuse(player, "There is no such topic.");
    return;
  }
  std::string text = std::string(TopicName(*topic)) + ": " + std::string(TopicPurpose(*topic));
  const Contender outsider{player.account};
  const Contender* self = Seat(player);
  const Contender& contender = self == nullptr ? outsider : *self;
  if (*topic == Topic::GoldenKnowledge) {
    text += " It costs " + std::to_string(Game::Cost(contender, *topic)) + " points.";
  } else if (const int level = contender.LevelOf(*topic); level == kTopLevel) {
    text += " You have reached its last level.";
  } else {
    text += " Level " + std::to_string(level + 1) + " costs " +
            std::to_string(Game::Cost(contender, *topic)) + " points.";
  }
  players_.Answer(player, self == nullptr ? text : text + " " + Points(*self));
}

void Arena::Describe(Player& player) {
  if (phase_ != Phase::Playing) {
    players_.Answer(player, due_ ? "The next game begins in " + TimeLeft() + " at the earliest."
                                 : "The next game begins when two players are ready.");
    return;
  }
  players_.Answer(player, "Game " + std::to_string(games_) + ", tick " +
                              std::to_string(game_->ticks()) + "; the next in " + TimeLeft() + ".");
  for (const Contender& contender : game_->contenders()) {
    players_.Answer(player, "  " + contender.name() + ": " + Board(contender));
  }
  if (const Contender* self = Seat(player)) {
    players_.Answer(player, Points(*self));
  }
}

Contender* Arena::SeatOrRefuse(Player& player) {
  Contender* self = Seat(player);
  if (self == nullptr) {
    players_.Refuse(player, phase_ == Phase::Playing
                                ? "You are not in the game. Choose \"Enter Game\" (Ctrl+E)."
                                : "No game is being played right now. Choose \"Enter Game\" "
                                  "(Ctrl+E) for the next one.");
  }
  return self;
}

Contender* Arena::Opponent(Player& player, const Contender& self, std::string_view name) {
  Player* other = players_.Find(Trimmed(name));
  if (other == nullptr) {
    players_.Refuse(player, "That player is not online.");
    return nullptr;
  }
  Contender* opponent = Seat(*other);
  if (opponent == nullptr) {
    players_.Refuse(player, other->name() + " is not in the game.");
  } else if (opponent == &self) {
    players_.Refuse(player, "That is you.");
    return nullptr;
  }
  return opponent;
}

std::string Arena::Points(const Contender& contender) const {
  return "You have " + Counted(contender.points, "point") + " and get " +
         std::to_string(game_->Income(contender)) + " with each tick.";
}

}  // namespace korvanta::practice
