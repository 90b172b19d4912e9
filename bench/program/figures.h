/// Statistics of benchmarks that do not time a repeated call.
#pragma once

#include <QByteArray>
#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

namespace korvanta::bench {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration duration);

/// Of at least one number.
double Median(std::vector<double> numbers);

/// Counts median and worst of measured milliseconds, of which there is at least one.
void CountMilliseconds(benchmark::State& state, const std::vector<double>& measured);

/// The number after `name` in a text of "name: number" lines. Throws HarnessError if there is none.
double NumberIn(const QByteArray& text, const QByteArray& name);

}  // namespace korvanta::bench
