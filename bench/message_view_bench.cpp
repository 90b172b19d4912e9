/// The cost of the message view as it grows: a line added at the end and at a caret, memory, a
/// frame.
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <string>
#include <vector>

#include "chat_lines.h"
#include "lobby/message_view.h"
#include "lobby/scroll_position.h"
#include "lobby/text_search.h"
#include "ui/message_view/message_canvas.h"

namespace korvanta {
namespace {

/// 75 characters in two colours; 77 bytes with the line break.
const std::string kLine =
    "Marlow: keep your defense up, I go for Industry and then we both take Corin";

constexpr std::int64_t kLinesInAll = 1'000'000;

void Fill(MessageView& view, std::int64_t lines) {
  for (std::int64_t line = 0; line < lines; ++line) {
    view.AppendMessage(kLine, MessageKind::Chat);
  }
}

/// The last tenth of a view that grows to range(0) lines.
void AppendLine(benchmark::State& state) {
  const std::int64_t lines = state.range(0);
  for (auto _ : state) {
    state.PauseTiming();
    const Options options;
    MessageView view(options);
    Fill(view, lines - lines / 10);
    state.ResumeTiming();
    Fill(view, lines / 10);
    state.PauseTiming();
    view.Clear();
    state.ResumeTiming();
  }
  state.counters["per_line"] = bench::SecondsEach(static_cast<std::size_t>(lines / 10));
}
BENCHMARK(AppendLine)->RangeMultiplier(10)->Range(1'000, 10'000'000)->Unit(benchmark::kMillisecond);

/// The yardstick of AppendLine: just copying the same bytes into blocks of the same size.
void CopyLine(benchmark::State& state) {
  const std::int64_t lines = state.range(0);
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<std::string> blocks;
    const auto copy = [&blocks](std::int64_t count) {
      for (std::int64_t line = 0; line < count; ++line) {
        if (blocks.empty() || blocks.back().size() + kLine.size() + 2 > ColouredText::kChunkSize) {
          blocks.emplace_back().reserve(ColouredText::kChunkSize);
        }
        blocks.back().append(kLine).append("\r\n");
      }
    };
    copy(lines - lines / 10);
    state.ResumeTiming();
    copy(lines / 10);
    state.PauseTiming();
    blocks.clear();
    state.ResumeTiming();
  }
  state.counters["per_line"] = bench::SecondsEach(static_cast<std::size_t>(lines / 10));
}
BENCHMARK(CopyLine)->RangeMultiplier(10)->Range(1'000, 10'000'000)->Unit(benchmark::kMillisecond);

/// 100,000 lines into 1,000,000: at the end, or with Scroll Lock at a caret in the middle.
void InsertInto(benchmark::State& state, bool at_caret) {
  constexpr std::size_t kInserted = 100'000;
  for (auto _ : state) {
    state.PauseTiming();
    Options options;
    MessageView view(options);
    Fill(view, kLinesInAll);
    options.mnuScrollLock = at_caret;
    view.MoveCaret(at_caret ? view.size() / 2 : view.size(), false);
    state.ResumeTiming();
    Fill(view, static_cast<std::int64_t>(kInserted));
    benchmark::DoNotOptimize(view.text().At(view.size() - 1));  // brings the offsets up to date
    state.PauseTiming();
    view.Clear();
    state.ResumeTiming();
  }
  state.counters["per_line"] = bench::SecondsEach(kInserted);
}
BENCHMARK_CAPTURE(InsertInto, end, false)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(InsertInto, caret, true)->Unit(benchmark::kMillisecond)->Iterations(20);

/// A search through 1,000,000 lines without a match: the most that one key press in the find bar
/// costs.
void SearchInVain(benchmark::State& state, bool upwards, const char* sought) {
  const Options options;
  MessageView view(options);
  Fill(view, kLinesInAll);
  for (auto _ : state) {
    benchmark::DoNotOptimize(upwards ? FindLast(view.text(), sought, view.size())
                                     : FindFirst(view.text(), sought, 0));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(view.size()) * state.iterations());
}
BENCHMARK_CAPTURE(SearchInVain, up_word, true, "Corinth")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SearchInVain, up_letter, true, "#")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SearchInVain, down_word, false, "Corinth")->Unit(benchmark::kMillisecond);

std::size_t AllocatedBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

/// Allocated bytes per line beyond the bytes of the text itself.
void Memory(benchmark::State& state) {
  double overhead = 0;
  for (auto _ : state) {
    const std::size_t before = AllocatedBytes();
    const Options options;
    MessageView view(options);
    Fill(view, state.range(0));
    overhead = (static_cast<double>(AllocatedBytes() - before) - static_cast<double>(view.size())) /
               static_cast<double>(state.range(0));
  }
  state.counters["bytes_a_line_over_text"] = overhead;
}
BENCHMARK(Memory)
    ->RangeMultiplier(10)
    ->Range(1'000, 10'000'000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

enum class Place { End, Middle };

/// The visible part of the message view.
struct Screen {
  explicit Screen(const MessageView& view)
      : canvas(view, QApplication::font()), position(view, canvas.rows()) {
    canvas.SetSize(image.size());
    position.Rewrap(canvas.WholeRows());
  }

  void Paint() {
    position.Settle();
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::white);
    canvas.Paint(painter, position.top(), false);
  }

  QImage image{740, 216, QImage::Format_RGB32};
  MessageCanvas canvas;
  ScrollPosition position;
};

/// One frame of 740 x 216 pixels as the widget makes it, the search for the end included.
void Frame(benchmark::State& state, Place place) {
  Options options;
  MessageView view(options);
  Fill(view, state.range(0));
  Screen screen(view);
  view.on_changed = [&](const MessageView::Change& change) { screen.position.TextChanged(change); };
  if (place == Place::Middle) {
    options.mnuScrollLock = true;
    const std::size_t middle = LineStart(view.text(), view.size() / 2);
    screen.position.ScrollTo(middle);
    view.MoveCaret(NextLine(view.text(), middle), false);
  }
  for (auto _ : state) {
    view.AppendMessage(kLine, MessageKind::Chat);  // arrived since the last frame
    screen.Paint();
  }
}
BENCHMARK_CAPTURE(Frame, end, Place::End)
    ->Arg(1'000)
    ->Arg(kLinesInAll)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Frame, middle, Place::Middle)
    ->Arg(1'000)
    ->Arg(kLinesInAll)
    ->Unit(benchmark::kMicrosecond);

/// The same with one word of range(0) bytes as the last line, which wraps into row after row.
void FrameOfOneLine(benchmark::State& state) {
  const Options options;
  MessageView view(options);
  view.AppendMessage(std::string(static_cast<std::size_t>(state.range(0)), 'w'), MessageKind::Chat);
  Screen screen(view);
  for (auto _ : state) {
    screen.position.TextChanged(
        {MessageView::Change::What::ScrollLock});  // the end is searched for again
    screen.Paint();
  }
}
BENCHMARK(FrameOfOneLine)->Arg(1'000)->Arg(1 << 20)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvanta
