/// What benchmarks that do not time a repeated call give in place of a mean.
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

/// The number behind `name` in a text of "name: number" lines. HarnessError when it is not there.
double NumberIn(const QByteArray& text, const QByteArray& name);

}  // namespace korvanta::bench
