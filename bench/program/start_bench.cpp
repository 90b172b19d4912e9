/// The time from the start of a process to its first window in its final look.
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <thread>

#include "bench/program/activity.h"
#include "bench/program/figures.h"
#include "bench/program/screen.h"
#include "harness/program.h"

namespace korvanta::bench {
namespace {

/// A part of the splash, and of the empty window, that does not change once painted: it contains
/// title and picture, not the moving dots.
constexpr QRect kWatched{460, 380, 480, 140};
constexpr std::chrono::milliseconds kStill{500};

/// What that part shows once nothing has been drawn there for a while.
std::vector<std::uint8_t> LookWhenStill(Screen& screen, const std::vector<std::uint8_t>& before) {
  std::vector<std::uint8_t> seen = before;
  auto since = Clock::now();
  const auto is_still = [&] {
    if (auto now = screen.Look(kWatched); now != seen) {
      seen = std::move(now);
      since = Clock::now();
    }
    return seen != before && Clock::now() - since >= kStill;
  };
  harness::WaitUntil("a window is painted", is_still, harness::kPatience,
                     [&] { screen.WaitForDrawing(std::chrono::milliseconds(50)); });
  return seen;
}

void WaitUntilSeen(Screen& screen, const std::vector<std::uint8_t>& picture) {
  harness::WaitUntil(
      "the window looks as it did the first time", [&] { return screen.Look(kWatched) == picture; },
      harness::kPatience, [&] { screen.WaitForDrawing(std::chrono::milliseconds(100)); });
}

/// `start` starts the process and returns its owner. The first start, which is not timed, shows
/// what to wait for and warms the system's caches.
template <typename Start>
void StartToPainted(benchmark::State& state, const harness::VirtualDisplay& display, Start start) {
  Screen screen(display);
  const auto nothing = screen.Look(kWatched);
  std::vector<std::uint8_t> painted;
  {
    const auto program = start();
    painted = LookWhenStill(screen, nothing);
  }
  std::vector<double> measured;
  std::vector<double> worked;
  for (auto _ : state) {
    WaitUntilSeen(screen, nothing);
    const auto from = Clock::now();
    const auto program = start();
    WaitUntilSeen(screen, painted);
    measured.push_back(Milliseconds(Clock::now() - from));
    worked.push_back(1000 * ActivityOf(program->pid()).cpu_seconds);
    state.SetIterationTime(measured.back() / 1000);
  }
  CountMilliseconds(state, measured);
  state.counters["worked_ms"] = Median(worked);
}

void StartToSplash(benchmark::State& state) {
  const harness::VirtualDisplay display;
  const harness::Installation installation(harness::UniqueLoopbackAddress());
  StartToPainted(state, display,
                 [&] { return std::make_unique<harness::Program>(installation, display); });
}
BENCHMARK(StartToSplash)->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The yardstick of StartToSplash.
void StartToEmptyWindow(benchmark::State& state) {
  const harness::VirtualDisplay display;
  const harness::Installation installation(harness::UniqueLoopbackAddress());
  StartToPainted(state, display, [&] {
    return std::make_unique<harness::Program>(KORVANTA_EMPTY_WINDOW, QStringList{"520", "320"},
                                              installation.EnvironmentOn(display));
  });
}
BENCHMARK(StartToEmptyWindow)->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvanta::bench
