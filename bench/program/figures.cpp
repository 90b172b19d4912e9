#include "bench/program/figures.h"

#include <algorithm>

#include "harness/host.h"

namespace korvanta::bench {

double Milliseconds(Clock::duration duration) {
  return std::chrono::duration<double, std::milli>(duration).count();
}

double Median(std::vector<double> numbers) {
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

void CountMilliseconds(benchmark::State& state, const std::vector<double>& measured) {
  state.counters["median_ms"] = Median(measured);
  state.counters["worst_ms"] = *std::max_element(measured.begin(), measured.end());
  state.counters["measured"] = static_cast<double>(measured.size());
}

double NumberIn(const QByteArray& text, const QByteArray& name) {
  for (const QByteArray& line : text.split('\n')) {
    if (line.startsWith(name + ':')) {
      return line.mid(name.size() + 1).simplified().split(' ').front().toDouble();
    }
  }
  throw harness::HarnessError("no line \"" + name + "\" in:\n" + text);
}

}  // namespace korvanta::bench
