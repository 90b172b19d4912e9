#include "ui/kit/contrast.h"

#include <algorithm>
#include <cmath>

namespace korvanta {
namespace {

double Linear(int component) {
  const double value = component / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(QColor colour) {
  return 0.2126 * Linear(colour.red()) + 0.7152 * Linear(colour.green()) +
         0.0722 * Linear(colour.blue());
}

}  // namespace

double Contrast(QColor one, QColor other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace korvanta
