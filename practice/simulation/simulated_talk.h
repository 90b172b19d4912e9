/// What simulated players are called and what they say.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace korvanta::practice {

/// The name of the simulated player of that number, from 0. Names are user names, and differ.
std::string SimulatedName(std::size_t number);
/// So with teams.
std::string SimulatedTeamName(std::size_t number);

enum class Occasion : std::uint8_t {
  Lobby,     // nothing is going on
  Playing,   // a game is on
  Closing,   // someone needs only the Golden Knowledge
  Ending,    // a game is over
  Greeting,  // someone has said hello
  Question,  // someone has asked something
  Mention,   // someone has named the speaker, or spoken to it alone
};

/// Lines for it, any of which will do; "%" stands for another player's name.
std::span<const std::string_view> LinesFor(Occasion occasion);

/// What someone's words are to whoever hears them.
Occasion OccasionOf(std::string_view words);

}  // namespace korvanta::practice
