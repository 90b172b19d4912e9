#include "bench/program/figures.h"

#include <algorithm>

#include "tests/process/host.h"

namespace korvanta::bench {

void CountMilliseconds(benchmark::State& state, std::vector<double> measured) {
  std::sort(measured.begin(), measured.end());
  state.counters["median_ms"] = measured[measured.size() / 2];
  state.counters["worst_ms"] = measured.back();
  state.counters["measured"] = static_cast<double>(measured.size());
}

double NumberIn(const QByteArray& text, const QByteArray& name) {
  for (const QByteArray& line : text.split('\n')) {
    if (line.startsWith(name + ':')) {
      return line.mid(name.size() + 1).simplified().split(' ').front().toDouble();
    }
  }
  throw process::HarnessError("no line \"" + name + "\" in:\n" + text);
}

}  // namespace korvanta::bench
