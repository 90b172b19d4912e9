/// How well one colour can be told from another.
#pragma once

#include <QColor>

namespace korvanta {

/// The contrast ratio of WCAG 2, 1 to 21, whichever colour is the lighter. Text should reach 4.5,
/// large text and signs 3. Transparency is not looked at.
double Contrast(QColor one, QColor other);

}  // namespace korvanta
