/// The contrast between two colours.
#pragma once

#include <QColor>

namespace korvanta {

/// The contrast ratio of WCAG 2, 1 to 21, in either order. Text should reach 4.5, large text and
/// icons 3. Transparency is ignored.
double Contrast(QColor one, QColor other);

}  // namespace korvanta
