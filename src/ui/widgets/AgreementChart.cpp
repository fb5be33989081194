#include "ui/widgets/AgreementChart.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>

#include "agreement/code_agreement.h"
#include "agreement/figure_text.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kGap = 12;         // between two columns
constexpr double kLeastBar = 60;    // the width of a bar
constexpr double kLeastScale = 80;  // the width of the scale of kappa
constexpr double kLeading = 8;      // between the texts of two lines
constexpr double kEnd = 0.18;       // half the height of a whisker's end, in lines

// What the scale of kappa shows. A smaller value is marked at its begin.
constexpr double kLowest = -0.2;
constexpr double kHighest = 1;

QColor Faint(QColor colour, float strength) {
  colour.setAlphaF(strength);
  return colour;
}

/// Paints kappa as a dot and its interval as a whisker on a scale.
void PaintKappa(QPainter& painter, const QRectF& scale, const CodeTable& table, const QColor& ink) {
  const auto x = [&scale](double value) {
    const double share = (value - kLowest) / (kHighest - kLowest);
    return scale.left() + std::clamp(share, 0.0, 1.0) * scale.width();
  };
  painter.setPen(QPen(Faint(ink, 0.25F), 1));
  for (const double tick : {0.0, 0.2, 0.4, 0.6, 0.8, 1.0}) {
    painter.drawLine(QPointF(x(tick), scale.top()), QPointF(x(tick), scale.bottom()));
  }
  painter.setPen(QPen(Faint(ink, 0.6F), 1));
  painter.drawLine(QPointF(x(0), scale.top()), QPointF(x(0), scale.bottom()));
  const auto kappa = Kappa(table);
  if (!kappa) return;
  const double y = scale.center().y();
  painter.setPen(QPen(ink, 1.6));
  if (const auto interval = KappaInterval(table)) {
    painter.drawLine(QPointF(x(interval->low), y), QPointF(x(interval->high), y));
    for (const double end : {interval->low, interval->high}) {
      // An end beyond the scale has no cap.
      if (end < kLowest || end > kHighest) continue;
      painter.drawLine(QPointF(x(end), y - kEnd * scale.height()),
                       QPointF(x(end), y + kEnd * scale.height()));
    }
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  const double radius = 0.2 * scale.height();
  painter.drawEllipse(QPointF(x(*kappa), y), radius, radius);
}

void PaintPercent(QPainter& painter, const QRectF& bar, const CodeTable& table,
                  const QPalette& palette) {
  const QColor ink = palette.color(QPalette::WindowText);
  const auto percent = PercentAgreed(table);
  painter.fillRect(bar, Faint(ink, 0.08F));
  if (!percent) return;
  QRectF filled = bar;
  filled.setWidth(bar.width() * *percent / 100);
  painter.fillRect(filled, palette.color(QPalette::Highlight));
  painter.setPen(QPen(Faint(ink, 0.4F), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(bar.adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace

/// Where the columns stand: left and width.
struct AgreementChart::Columns {
  struct Column {
    double left = 0;
    double width = 0;
  };
  Column label, n, bar, percent, kappa, interval, scale, ac1, leftOut;
  double line = 0;  ///< the height of a line

  /// The bar and the scale, of no width, are left out where there is room for the figures only.
  bool HasBars() const { return bar.width > 0; }
  QRectF At(const Column& column, double top) const {
    return {column.left, top, column.width, line};
  }
};

std::vector<AgreementLine> LinesOf(const std::vector<CodeAgreement>& codes) {
  std::vector<AgreementLine> lines;
  for (const CodeAgreement& code : codes) {
    lines.push_back({ToQt(code.compared->label), code.table, code.leftOut});
  }
  return lines;
}

double AgreementChart::HeightOfLine(const QFontMetricsF& metrics) {
  return std::ceil(metrics.height() + kLeading);
}

double AgreementChart::Height(const QFontMetricsF& metrics) const {
  return HeightOfLine(metrics) * static_cast<double>(lines_.size() + 1);
}

double AgreementChart::LeastWidth(const QFontMetricsF& metrics) const {
  const Columns columns = Place(metrics, {});
  return columns.leftOut.left + columns.leftOut.width;
}

AgreementChart::Columns AgreementChart::Place(const QFontMetricsF& metrics,
                                              const QRectF& area) const {
  const auto widest = [&](const QString& heading, auto textOf) {
    constexpr double kBold = 1.15;  // the headings are bold
    double width = kBold * metrics.horizontalAdvance(heading);
    for (const AgreementLine& line : lines_) {
      width = std::max(width, metrics.horizontalAdvance(textOf(line)));
    }
    return std::ceil(width);
  };
  Columns columns;
  columns.line = HeightOfLine(metrics);
  columns.label.width = widest({}, [](const auto& line) { return line.label; });
  columns.n.width =
      widest(tr("n"), [](const auto& line) { return QString::number(line.table.Total()); });
  columns.percent.width = metrics.horizontalAdvance(QStringLiteral("100.00 %"));
  // Why kappa is not defined may be written across both columns.
  const auto defined = [](const AgreementLine& line, auto textOf) {
    return Kappa(line.table) ? ToQt(textOf(line.table)) : QString();
  };
  columns.kappa.width =
      widest(tr("Kappa"), [&](const auto& line) { return defined(line, KappaText); });
  columns.interval.width =
      widest(tr("95 % interval"), [&](const auto& line) { return defined(line, IntervalText); });
  const double reasons = widest({}, [&](const auto& line) {
    return Kappa(line.table) ? QString() : ToQt(KappaText(line.table));
  });
  columns.interval.width = std::max(columns.interval.width, reasons - columns.kappa.width - kGap);
  columns.ac1.width = widest(tr("AC1"), [](const auto& line) { return ToQt(Ac1Text(line.table)); });
  columns.leftOut.width = widest(tr("Left out"), [](const auto&) { return QString(); });
  double texts = 0;
  for (const auto* column : {&columns.label, &columns.n, &columns.percent, &columns.kappa,
                             &columns.interval, &columns.ac1, &columns.leftOut}) {
    texts += column->width;
  }
  constexpr double kGaps = 8 * kGap;
  const double room = area.width() - texts - kGaps;
  if (room >= kLeastBar + kLeastScale) {
    columns.bar.width = room / 2;
    columns.scale.width = room - columns.bar.width;
  }
  double left = area.left();
  for (auto* column : {&columns.label, &columns.n, &columns.bar, &columns.percent, &columns.kappa,
                       &columns.interval, &columns.scale, &columns.ac1, &columns.leftOut}) {
    column->left = left;
    if (column->width > 0) left += column->width + kGap;
  }
  return columns;
}

void AgreementChart::Paint(QPainter& painter, const QRectF& area, const QPalette& palette) const {
  const Columns columns = Place(QFontMetricsF(painter.font()), area);
  painter.setPen(palette.color(QPalette::WindowText));
  double top = area.top();
  PaintHeading(painter, columns, top);
  for (const AgreementLine& line : lines_) {
    top += columns.line;
    PaintLine(painter, columns, top, line, palette);
  }
}

void AgreementChart::PaintHeading(QPainter& painter, const Columns& columns, double top) const {
  const auto write = [&](const Columns::Column& column, Qt::Alignment side, const QString& text) {
    painter.drawText(columns.At(column, top), static_cast<int>(side | Qt::AlignVCenter), text);
  };
  painter.save();
  QFont bold = painter.font();
  bold.setBold(true);
  painter.setFont(bold);
  write(columns.n, Qt::AlignRight, tr("n"));
  if (columns.HasBars()) {
    Columns::Column equal = columns.bar;
    equal.width = columns.percent.left + columns.percent.width - equal.left;
    write(equal, Qt::AlignLeft, tr("Equal codes"));
  } else {
    write(columns.percent, Qt::AlignRight, tr("Equal"));
  }
  write(columns.kappa, Qt::AlignLeft, tr("Kappa"));
  write(columns.interval, Qt::AlignLeft, tr("95 % interval"));
  write(columns.ac1, Qt::AlignLeft, tr("AC1"));
  write(columns.leftOut, Qt::AlignRight, tr("Left out"));
  painter.restore();
  if (!columns.HasBars()) return;
  // The scale of kappa says what its first, middle and last tick stand for.
  for (const double tick : {0.0, 0.4, 0.8}) {
    const double x =
        columns.scale.left + columns.scale.width * (tick - kLowest) / (kHighest - kLowest);
    painter.drawText(QRectF(x - 20, top, 40, columns.line), Qt::AlignHCenter | Qt::AlignVCenter,
                     QString::number(tick));
  }
}

void AgreementChart::PaintLine(QPainter& painter, const Columns& columns, double top,
                               const AgreementLine& line, const QPalette& palette) {
  const QColor ink = palette.color(QPalette::WindowText);
  const auto write = [&](const Columns::Column& column, Qt::Alignment side, const QString& text) {
    painter.setPen(ink);
    painter.drawText(columns.At(column, top), static_cast<int>(side | Qt::AlignVCenter), text);
  };
  write(columns.label, Qt::AlignLeft, line.label);
  write(columns.n, Qt::AlignRight, QString::number(line.table.Total()));
  if (columns.HasBars()) {
    PaintPercent(painter, columns.At(columns.bar, top).adjusted(0, kLeading / 2, 0, -kLeading / 2),
                 line.table, palette);
  }
  if (line.table.Total() > 0) {
    write(columns.percent, Qt::AlignRight, tr("%1 %").arg(ToQt(PercentText(line.table))));
  }
  if (Kappa(line.table)) {
    write(columns.kappa, Qt::AlignLeft, ToQt(KappaText(line.table)));
    write(columns.interval, Qt::AlignLeft, ToQt(IntervalText(line.table)));
  } else {
    Columns::Column both = columns.kappa;
    both.width = columns.interval.left + columns.interval.width - both.left;
    write(both, Qt::AlignLeft, ToQt(KappaText(line.table)));
  }
  if (columns.HasBars()) PaintKappa(painter, columns.At(columns.scale, top), line.table, ink);
  write(columns.ac1, Qt::AlignLeft, ToQt(Ac1Text(line.table)));
  if (line.leftOut) write(columns.leftOut, Qt::AlignRight, QString::number(*line.leftOut));
}

QString AgreementChart::Text() const {
  QString text;
  for (const AgreementLine& line : lines_) {
    text += tr("%1: n %2, %3, kappa %4, interval %5, AC1 %6")
                .arg(line.label, QString::number(line.table.Total()), ToQt(PercentText(line.table)),
                     ToQt(KappaText(line.table)), ToQt(IntervalText(line.table)),
                     ToQt(Ac1Text(line.table))) +
            QLatin1Char('\n');
  }
  return text;
}

}  // namespace orvex
