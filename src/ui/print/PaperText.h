#pragma once

#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QString>
#include <QStringList>

class QPainter;

namespace orvex {

// How a report that flows over pages writes its texts. Lengths are in points.

inline constexpr double kPaperTextSize = 8;

/// The colours on paper.
QPalette PaperPalette();
QFont PaperTextFont();
QFont PaperBoldFont(double size = kPaperTextSize);

/// The height of a text that wraps between its words, and within one only where that is wider than
/// `width`.
double HeightOf(const QFont& font, const QString& text, double width);
/// Writes it, with the painter's font.
void Write(QPainter& painter, const QRectF& area, int alignment, const QString& text);

/// The parts of a text, cut at blanks where there are any, of at most so many characters.
QStringList PartsOf(QString text, qsizetype most);

}  // namespace orvex
