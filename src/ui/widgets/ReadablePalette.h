#pragma once

#include <QPalette>

namespace orvex {

/// How well `ink` is read on `ground`, from 1 to 21, as the WCAG counts it.
double ContrastOf(const QColor& ink, const QColor& ground);

/// `palette` with the colours that would be hard to read made stronger: a contrast of at least 4.5
/// for texts, of 3 for texts that are disabled. Colours that are good enough stay.
QPalette ReadablePalette(QPalette palette);

}  // namespace orvex
