/// Chat lines as fast as the client takes them, until it has answered the message after them.
#include <array>
#include <benchmark/benchmark.h>
#include <thread>

#include "bench/program/activity.h"
#include "bench/program/feed.h"
#include "bench/program/logged_in_client.h"
#include "protocol/message_catalogue.h"
#include "protocol/message_table.h"

namespace korvanta::bench {
namespace {

void Flood(benchmark::State& state) {
  const auto lines = static_cast<std::size_t>(state.range(0));
  LoggedInClient client("[Menu]\nAuto Ready=True\n");
  const std::string flood = ChatLines(lines).append(BuildMessage<ServerMessage::BoardCleared>());
  double cpu_seconds = 0;
  for (auto _ : state) {
    const double cpu_before = ActivityOf(client.pid()).cpu_seconds;
    std::thread sender([&] { client.server().Send(flood); });
    client.server().ReceiveUntil(outbound::EnterGame());
    cpu_seconds = ActivityOf(client.pid()).cpu_seconds - cpu_before;
    sender.join();
  }
  state.counters["lines_a_cpu_second"] = static_cast<double>(lines) / cpu_seconds;
  state.counters["lines_a_second"] =
      benchmark::Counter(static_cast<double>(lines), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(Flood)->Arg(100'000)->Arg(1'000'000)->Iterations(1)->UseRealTime()->Unit(
    benchmark::kMillisecond);

/// The yardstick of Flood: the same bytes read and discarded.
void FloodDiscarded(benchmark::State& state) {
  const auto lines = static_cast<std::size_t>(state.range(0));
  harness::ScriptedServer server;
  const harness::Socket client = harness::Socket::ConnectedTo(server.address());
  server.WaitForClient();
  const std::string flood = ChatLines(lines).append(BuildMessage<ServerMessage::BoardCleared>());
  for (auto _ : state) {
    std::thread sender([&] { server.Send(flood); });
    std::array<char, std::size_t{256} * 1024> buffer;
    for (std::size_t rest = flood.size(); rest > 0;) {
      rest -= client.Receive(buffer, harness::kPatience);
    }
    sender.join();
  }
  state.counters["lines_a_second"] =
      benchmark::Counter(static_cast<double>(lines), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(FloodDiscarded)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvanta::bench
