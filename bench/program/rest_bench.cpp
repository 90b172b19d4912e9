/// What the client costs while nothing happens: wake-ups, processor time, memory.
#include <QDir>
#include <QFile>
#include <benchmark/benchmark.h>
#include <thread>

#include "bench/program/figures.h"
#include "bench/program/logged_in_client.h"

namespace korvanta::bench {
namespace {

constexpr std::chrono::seconds kSettling{3};

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw process::HarnessError(path + " cannot be read");
  }
  return file.readAll();
}

struct Activity {
  double wakeups = 0;      ///< a thread went on after it had waited
  double cpu_seconds = 0;  ///< to the nanosecond
};

Activity ActivityOf(qint64 pid) {
  const QDir threads(QString("/proc/%1/task").arg(pid));
  Activity activity;
  for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    activity.wakeups +=
        NumberIn(ReadAll(threads.filePath(thread + "/status")), "voluntary_ctxt_switches");
    activity.cpu_seconds +=
        ReadAll(threads.filePath(thread + "/schedstat")).split(' ').front().toDouble() * 1e-9;
  }
  return activity;
}

double ProportionalShareInMegabytes(qint64 pid) {
  return NumberIn(ReadAll(QString("/proc/%1/smaps_rollup").arg(pid)), "Pss") / 1024;
}

/// Logged in, its window in front, the caret in the chat line, no clock running.
void Idle(benchmark::State& state) {
  const LoggedInClient client;
  std::this_thread::sleep_for(kSettling);
  Activity activity;
  for (auto _ : state) {
    const Activity before = ActivityOf(client.pid());
    std::this_thread::sleep_for(std::chrono::seconds(state.range(0)));
    const Activity after = ActivityOf(client.pid());
    activity = {after.wakeups - before.wakeups, after.cpu_seconds - before.cpu_seconds};
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

/// The yardstick of MemoryAtRest: a window as large as the main window.
void MemoryOfEmptyWindow(benchmark::State& state) {
  const process::VirtualDisplay display;
  const process::Installation installation(process::UniqueLoopbackAddress());
  const process::Program program(KORVANTA_EMPTY_WINDOW, {"1120", "690"},
                                 installation.EnvironmentOn(display));
  const process::User user(display);
  user.WaitForWindow(program.pid(), "*");
  for (auto _ : state) {
    std::this_thread::sleep_for(kSettling);
  }
  state.counters["pss_megabytes"] = ProportionalShareInMegabytes(program.pid());
}
BENCHMARK(MemoryOfEmptyWindow)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace
}  // namespace korvanta::bench
