/// The cost of a list of 50,000 players: from the message to the rebuilt list and to the screen,
/// beside splitting the message alone and the toolkit's own list.
#include <QCoreApplication>
#include <QImage>
#include <QListWidget>
#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <string_view>

#include "chat_lines.h"
#include "client/client.h"
#include "protocol/message_table.h"
#include "tests/fakes/fake_platform.h"
#include "ui/kit/text.h"
#include "ui/online_list/online_list_view.h"

namespace korvanta {
namespace {

constexpr std::size_t kPlayers = 50'000;

std::string ListMessage() {
  std::mt19937 random;
  std::string message(TagOf(ServerMessage::OnlineList));
  for (std::size_t i = 0; i < kPlayers; ++i) {
    if (i > 0) {
      message += kRecordSeparator;
    }
    for (std::size_t letters = 4 + random() % 9; letters > 0; --letters) {
      message += static_cast<char>((random() % 3 == 0 ? 'A' : 'a') + random() % 26);
    }
    message += kFieldSeparator;
    message += std::to_string(random() % 10);
    message += kFieldSeparator;
    message += std::to_string(random() % 100);
    message += kFieldSeparator;
    message += random() % 20 == 0 ? '1' : '0';
  }
  return message + kMessageTerminator;
}

/// Just splitting into records and fields.
void Split(benchmark::State& state) {
  const std::string message = ListMessage();
  for (auto _ : state) {
    for (std::string_view record : korvanta::Split(message, kRecordSeparator)) {
      for (std::string_view field : korvanta::Split(record, kFieldSeparator)) {
        benchmark::DoNotOptimize(field);
      }
    }
  }
  state.counters["per_player"] = bench::SecondsEach(kPlayers);
}
BENCHMARK(Split)->Unit(benchmark::kMillisecond);

enum class Seen { No, Yes };

/// A list replaces one of the same length, which is shown sorted by `column`.
void Refill(benchmark::State& state, int column, Seen seen) {
  const std::string message = ListMessage();
  fakes::FakePlatform platform;
  Client client(platform.platform(), {});
  client.StartUp();
  OnlineListView view(client.online_list, nullptr);
  view.resize(316, 280);
  view.sortByColumn(column, Qt::AscendingOrder);
  view.show();
  platform.socket.Receive(message);
  QCoreApplication::processEvents();
  for (auto _ : state) {
    platform.socket.Receive(message);
    if (seen == Seen::Yes) {
      benchmark::DoNotOptimize(view.grab());
    }
  }
  if (view.model()->rowCount() != static_cast<int>(kPlayers)) {
    state.SkipWithError("players were lost");
  }
  state.counters["per_player"] = bench::SecondsEach(kPlayers);
}
BENCHMARK_CAPTURE(Refill, rebuilt, -1, Seen::No)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Refill, painted, -1, Seen::Yes)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Refill, rebuilt_by_name, OnlineListModel::Name, Seen::No)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Refill, painted_by_name, OnlineListModel::Name, Seen::Yes)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Refill, rebuilt_by_level, OnlineListModel::Level, Seen::No)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Refill, painted_by_level, OnlineListModel::Level, Seen::Yes)
    ->Unit(benchmark::kMillisecond);

/// A list whose second player has a name of range(0) bytes.
void LongName(benchmark::State& state) {
  const std::string name(static_cast<std::size_t>(state.range(0)), 'w');
  OnlineList list;
  OnlineListView view(list, nullptr);
  view.resize(316, 280);
  view.show();
  const std::string payload = "Ann\0011\0012\0010\002" + name + "\0011\0012\0010";
  for (auto _ : state) {
    list.ShowOnlineList(payload);
    benchmark::DoNotOptimize(view.grab());
  }
}
BENCHMARK(LongName)->Arg(8)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// The same players into the toolkit's list of single texts.
void RefillListWidget(benchmark::State& state, Seen seen) {
  const std::string message = ListMessage();
  QListWidget list;
  list.setUniformItemSizes(true);
  list.resize(316, 280);
  list.show();
  QCoreApplication::processEvents();
  for (auto _ : state) {
    list.clear();
    QStringList names;
    names.reserve(static_cast<qsizetype>(kPlayers));
    for (std::string_view record : korvanta::Split(message, kRecordSeparator)) {
      names.append(ToQString(record.substr(0, record.find(kFieldSeparator))));
    }
    list.addItems(names);
    if (seen == Seen::Yes) {
      benchmark::DoNotOptimize(list.grab());
    }
  }
  state.counters["per_player"] = bench::SecondsEach(kPlayers);
}
BENCHMARK_CAPTURE(RefillListWidget, rebuilt, Seen::No)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RefillListWidget, painted, Seen::Yes)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvanta
