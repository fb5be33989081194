#include "ui/print/PaperText.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "ui/print/ReportPrinter.h"

namespace orvex {
namespace {

constexpr double kAnyHeight = 1e6;

/// How a text wraps: between its words, and within one only where that is wider than its place.
int WrapOf(const QFont& font, const QString& text, double width) {
  const QFontMetricsF metrics(font);
  const QStringList words = text.split(QLatin1Char(' '));
  const bool fits = std::ranges::all_of(
      words, [&](const QString& word) { return metrics.horizontalAdvance(word) < width; });
  return fits ? Qt::TextWordWrap : Qt::TextWrapAnywhere;
}

}  // namespace

QPalette PaperPalette() {
  QPalette palette(Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, Qt::black);
  }
  for (const auto role : {QPalette::Window, QPalette::Base}) palette.setColor(role, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0, 84, 166));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

QFont PaperTextFont() {
  return PaperFont(QApplication::font(), kPaperTextSize);
}

QFont PaperBoldFont(double size) {
  QFont font = PaperFont(QApplication::font(), size);
  font.setBold(true);
  return font;
}

double HeightOf(const QFont& font, const QString& text, double width) {
  return QFontMetricsF(font)
      .boundingRect(QRectF(0, 0, width, kAnyHeight), WrapOf(font, text, width), text)
      .height();
}

void Write(QPainter& painter, const QRectF& area, int alignment, const QString& text) {
  painter.drawText(area, alignment | WrapOf(painter.font(), text, area.width()), text);
}

QStringList PartsOf(QString text, qsizetype most) {
  QStringList parts;
  while (text.size() > most) {
    qsizetype at = text.lastIndexOf(QLatin1Char(' '), most);
    if (at < most / 2) at = most;
    if (text.at(at).isLowSurrogate()) --at;
    parts << text.left(at);
    text = text.mid(at).trimmed();
  }
  return parts << text;
}

}  // namespace orvex
