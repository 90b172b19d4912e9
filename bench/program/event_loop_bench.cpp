/// How long incoming lines hold up the event loop.
#include <benchmark/benchmark.h>

#include "bench/program/feed.h"
#include "bench/program/figures.h"
#include "harness/program.h"

namespace korvanta::bench {
namespace {

constexpr std::chrono::seconds kFed{5};

/// What the message view gains by a chat line, and by the notice that the connection is closed.
constexpr std::size_t kShownLine =
    std::string_view(
        "Marlow: keep your defense up, I go for Industry and then we both take Corin\r\n")
        .size();
constexpr std::size_t kShownNotice = std::string_view("Disconnected\r\n").size();

/// range(0) lines a second for a while; with 0, a million as fast as the socket takes them.
void EventLoopHeld(benchmark::State& state) {
  const harness::VirtualDisplay display;
  harness::ScriptedServer server;
  const harness::Installation installation(server.address());
  for (auto _ : state) {
    const int known = server.clients();
    harness::Program client(KORVANTA_TIMED_CLIENT, {server.address()},
                            installation.EnvironmentOn(display));
    server.LetIn(known);
    harness::WaitUntil("the client is ready", [&] { return client.Output().contains("ready"); });
    std::size_t lines = 1'000'000;
    if (state.range(0) == 0) {
      server.Send(ChatLines(lines));
    } else {
      Feed feed(server, static_cast<std::size_t>(state.range(0)));
      std::this_thread::sleep_for(kFed);
      lines = feed.Stop();
    }
    server.DropClient();
    client.WaitForExit();
    for (const char* name : {"lasted_ms", "worked_ms", "characters"}) {
      state.counters[name] = NumberIn(client.Output(), name);
    }
    if (NumberIn(client.Output(), "characters") !=
        static_cast<double>(lines * kShownLine + kShownNotice)) {
      state.SkipWithError("lines were lost");
    }
  }
}
BENCHMARK(EventLoopHeld)
    ->ArgName("lines_a_second")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(0)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvanta::bench
