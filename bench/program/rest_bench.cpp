/// The cost of an idle client: wake-ups, processor time, memory.
#include <benchmark/benchmark.h>
#include <thread>

#include "bench/program/activity.h"
#include "bench/program/figures.h"
#include "bench/program/logged_in_client.h"

namespace korvanta::bench {
namespace {

constexpr std::chrono::seconds kSettling{3};
/// The toolkit ends idle helper threads of the start after 30 seconds.
constexpr std::chrono::seconds kThreadsEnded{35};

double ProportionalShareInMegabytes(qint64 pid) {
  return NumberIn(SystemFile(pid, "smaps_rollup"), "Pss") / 1024;
}

/// Logged in, its window in front, the caret in the chat line, no clock running.
void Idle(benchmark::State& state) {
  const LoggedInClient client;
  std::this_thread::sleep_for(kThreadsEnded);
  Activity activity;
  for (auto _ : state) {
    const Activity before = ActivityOf(client.pid());
    std::this_thread::sleep_for(std::chrono::seconds(state.range(0)));
    const Activity after = ActivityOf(client.pid());
    if (after.threads != before.threads) {
      state.SkipWithError("a thread came or went");
    }
    activity = {after.threads, after.wakeups - before.wakeups,
                after.cpu_seconds - before.cpu_seconds};
  }
  state.counters["wakeups"] = activity.wakeups;
  state.counters["cpu_percent"] = 100 * activity.cpu_seconds / static_cast<double>(state.range(0));
}
BENCHMARK(Idle)->ArgName("seconds")->Arg(10)->Arg(60)->Iterations(1)->UseRealTime()->Unit(
    benchmark::kSecond);

void MemoryAtRest(benchmark::State& state) {
  const LoggedInClient client;
  for (auto _ : state) {
    std::this_thread::sleep_for(kSettling);
  }
  state.counters["pss_megabytes"] = ProportionalShareInMegabytes(client.pid());
}
BENCHMARK(MemoryAtRest)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

/// The yardsticks of MemoryAtRest: windows as large as the main window.
void MemoryOfWindow(benchmark::State& state, const char* path) {
  const harness::VirtualDisplay display;
  const harness::Installation installation(harness::UniqueLoopbackAddress());
  const harness::Program program(path, {"1120", "690"}, installation.EnvironmentOn(display));
  const harness::User user(display);
  user.WaitForWindow(program.pid(), "*");
  for (auto _ : state) {
    std::this_thread::sleep_for(kSettling);
  }
  state.counters["pss_megabytes"] = ProportionalShareInMegabytes(program.pid());
}
BENCHMARK_CAPTURE(MemoryOfWindow, empty, KORVANTA_EMPTY_WINDOW)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(MemoryOfWindow, plain, KORVANTA_PLAIN_WINDOW)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace korvanta::bench
