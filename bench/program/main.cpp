/// Measures the built program as a process, on a virtual display, against a server on loopback.
#include <QCoreApplication>
#include <benchmark/benchmark.h>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const QCoreApplication application(argc, argv);
  try {
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  benchmark::Shutdown();
  return 0;
}
