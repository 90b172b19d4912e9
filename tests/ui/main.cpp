#include <QApplication>
#include <gtest/gtest.h>

#include "ui/kit/theme.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" KORVANTA_SCREENS);
  QApplication application(argc, argv);
  korvanta::theme::Apply(application);
  return RUN_ALL_TESTS();
}
