/// The time from a key press to the line that it sends, with and without incoming lines.
#include <benchmark/benchmark.h>

#include "bench/program/feed.h"
#include "bench/program/figures.h"
#include "bench/program/logged_in_client.h"
#include "bench/program/screen.h"
#include "protocol/message_catalogue.h"

namespace korvanta::bench {
namespace {

/// Types a letter and sends it by Enter, again and again; Enter is timed, at moments that drift
/// against everything periodic.
void KeyToLine(benchmark::State& state) {
  constexpr int kPresses = 200;
  constexpr std::chrono::milliseconds kPause{20};
  LoggedInClient client("[Menu]\nSounds=False\n");
  Screen screen(client.display());
  std::vector<double> measured;
  for (auto _ : state) {
    const Feed feed(client.server(), static_cast<std::size_t>(state.range(0)));
    for (int i = 0; i < kPresses; ++i) {
      screen.Press('h');
      std::this_thread::sleep_for(kPause + std::chrono::milliseconds(i * 7 % 17));
      const Clock::time_point pressed = screen.Press(Screen::kReturn);
      client.server().ReceiveUntil(outbound::ChatLine("c h"));
      measured.push_back(Milliseconds(Clock::now() - pressed));
    }
  }
  CountMilliseconds(state, measured);
}
BENCHMARK(KeyToLine)
    ->ArgName("lines_a_second")
    ->Arg(0)
    ->Arg(2'000)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvanta::bench
