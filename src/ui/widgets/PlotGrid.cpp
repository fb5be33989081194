#include "ui/widgets/PlotGrid.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>

namespace orvex {
namespace {

constexpr int kGuideStep = 10;
/// The space between the marks of adjacent rows, as a fraction of a row's height.
constexpr double kLeading = 0.12;
const QString kCharacters = QStringLiteral("0123456789_|\u2588\u2591\u255A");

bool HasMarks(const QFont& font) {
  const QFontMetricsF metrics(font);
  return std::ranges::all_of(kCharacters, [&](QChar c) { return metrics.inFont(c); });
}

}  // namespace

QFont PlotGrid::FixedFont() {
  QFont system = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  // Not smaller than all other text, where the user has chosen a larger one.
  system.setPointSizeF(std::max(system.pointSizeF(), QGuiApplication::font().pointSizeF()));
  if (HasMarks(system)) return system;
  for (const QString& family : QFontDatabase::families()) {
    QFont font(system);
    font.setFamilies({family});
    if (QFontDatabase::isFixedPitch(family) && HasMarks(font)) return font;
  }
  return system;
}

PlotGrid::PlotGrid(const QFont& font) : font_(font) {
  const QFontMetricsF metrics(font);
  for (const QChar c : kCharacters) {
    cellWidth_ = std::max(cellWidth_, metrics.horizontalAdvance(c));
  }
  cellHeight_ = metrics.height() * (1 + kLeading);
  ascent_ = metrics.ascent() + metrics.height() * kLeading / 2;
}

void PlotGrid::Paint(QPainter& painter, const QPointF& at, QStringView row) const {
  painter.setFont(font_);
  const QFontMetricsF metrics(font_);
  for (qsizetype column = 0; column < row.size(); ++column) {
    const QChar c = row.at(column);
    if (c == QLatin1Char(' ')) continue;
    const double indent = (cellWidth_ - metrics.horizontalAdvance(c)) / 2;
    painter.drawText(at + QPointF(static_cast<double>(column) * cellWidth_ + indent, ascent_),
                     QString(c));
  }
}

void PlotGrid::PaintGuides(QPainter& painter, const QPointF& at, int columns) const {
  for (int column = kGuideStep; column <= columns; column += kGuideStep) {
    const QPointF top = at + QPointF(column * cellWidth_, 0);
    painter.drawLine(top, top + QPointF(0, cellHeight_));
  }
}

}  // namespace orvex
