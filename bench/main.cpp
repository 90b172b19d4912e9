/// The main program of every benchmark: Qt on its offscreen platform with the theme of the client,
/// then the benchmarks of the one file that it is linked to.
#include <QApplication>
#include <benchmark/benchmark.h>

#include "ui/kit/theme.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  korvanta::theme::Apply(application);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
