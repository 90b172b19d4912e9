/// The cost of a chat line on its whole way from a received block to the message view, beside
/// copying its bytes and the toolkit's own text widget.
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>
#include <benchmark/benchmark.h>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "chat_lines.h"
#include "client/client.h"
#include "protocol/block_assembler.h"
#include "protocol/message_table.h"
#include "tests/fakes/fake_platform.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr std::size_t kDifferentLines = 4096;

/// As many chat lines per block as the socket would deliver.
std::vector<std::string> Blocks(const std::vector<std::string>& lines) {
  std::vector<std::string> blocks(1);
  for (const std::string& line : lines) {
    const std::string message = BuildMessage<ServerMessage::ChatLine>("cht", line, "False");
    if (blocks.back().size() + message.size() > BlockAssembler::kBlockLimit) {
      blocks.emplace_back();
    }
    blocks.back() += message;
  }
  return blocks;
}

/// range(0) lines arrive, a multiple of the different ones, with the language filter on.
void Road(benchmark::State& state, std::vector<std::string> (*make_lines)(std::size_t)) {
  const std::vector<std::string> blocks = Blocks(make_lines(kDifferentLines));
  const auto lines = static_cast<std::size_t>(state.range(0));
  bool is_complete = true;
  for (auto _ : state) {
    state.PauseTiming();
    {
      fakes::FakePlatform platform;
      Client client(platform.platform(), {});
      client.StartUp();
      const std::size_t before = client.message_view.size();
      state.ResumeTiming();
      for (std::size_t in = 0; in < lines; in += kDifferentLines) {
        for (const std::string& block : blocks) {
          platform.socket.Receive(block);
        }
      }
      state.PauseTiming();
      is_complete &= client.message_view.size() == before + lines * (bench::kLineLength + 2);
    }
    state.ResumeTiming();
  }
  if (!is_complete) {
    state.SkipWithError("lines were lost");
  }
  state.counters["per_line"] = bench::SecondsEach(lines);
}
BENCHMARK_CAPTURE(Road, clean, bench::CleanLines)
    ->Arg(1 << 12)
    ->Arg(1 << 14)
    ->Arg(1 << 17)
    ->Arg(1 << 20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Road, hits, bench::OffensiveLines)->Arg(1 << 17)->Unit(benchmark::kMillisecond);

/// Just copying the same bytes.
void CopyBytes(benchmark::State& state) {
  const std::vector<std::string> blocks = Blocks(bench::CleanLines(kDifferentLines));
  std::string copy;
  for (auto _ : state) {
    for (const std::string& block : blocks) {
      copy.resize(block.size());
      std::memcpy(copy.data(), block.data(), block.size());
      benchmark::ClobberMemory();
    }
  }
  state.counters["per_line"] = bench::SecondsEach(kDifferentLines);
}
BENCHMARK(CopyBytes)->Unit(benchmark::kMillisecond);

/// As many of the same lines in two colours into the toolkit's text widget, which is not shown.
void TextEdit(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<std::string> lines = bench::CleanLines(kDifferentLines);
  QTextCharFormat first;
  first.setForeground(QColor(0, 0, 128));
  QTextCharFormat second;
  second.setForeground(QColor(64, 64, 192));
  for (auto _ : state) {
    state.PauseTiming();
    {
      QTextEdit edit;
      edit.setUndoRedoEnabled(false);
      QTextCursor cursor(edit.document());
      state.ResumeTiming();
      for (std::size_t i = 0; i < count; ++i) {
        const std::string_view text(lines[i % kDifferentLines]);
        const std::size_t head = text.find(':') + 1;
        cursor.insertText(ToQString(text.substr(0, head)), first);
        cursor.insertText(ToQString(text.substr(head)), second);
        cursor.insertBlock();
      }
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
  state.counters["per_line"] = bench::SecondsEach(count);
}
BENCHMARK(TextEdit)->Arg(1 << 12)->Arg(1 << 17)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvanta
