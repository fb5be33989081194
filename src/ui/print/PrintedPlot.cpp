#include "ui/print/PrintedPlot.h"

#include <QApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/print/ReportPrinter.h"
#include "ui/text.h"
#include "ui/widgets/PlotGrid.h"

namespace orvex {
namespace {

constexpr double kTextSize = 8;
constexpr double kHeadingWidth = 86;
constexpr double kLetterWidth = 16;
constexpr double kGap = 8;
constexpr double kSeparator = 2;
constexpr double kBandGap = 12;
constexpr int kTens = 10;

PlotGrid Grid() {
  return PlotGrid(PaperFont(PlotGrid::FixedFont(), kTextSize));
}

QFont TextFont() {
  return PaperFont(QApplication::font(), kTextSize);
}

/// The x position of the first column, to the right of the rows' headings and meanings.
double RowsAt() {
  const QFontMetricsF metrics(TextFont());
  double width = 0;
  for (const PlotRowMeaning& meaning : kPlotRowMeanings) {
    width = std::max(width, metrics.horizontalAdvance(ToQt(meaning.name)));
  }
  return kHeadingWidth + kLetterWidth + width + kGap;
}

/// A band consists of a line with the numbers of its questions, its rows, and the lines between
/// sections.
double BandHeight() {
  const auto separators = std::ranges::count_if(kPlotGroups, &PlotGroup::endsSection);
  return Grid().CellHeight() * (kPlotRows + 1) + kSeparator * static_cast<double>(separators) +
         kBandGap;
}

int BandsOfPage(const QSizeF& area) {
  return std::max(1, static_cast<int>((area.height() + kBandGap) / BandHeight()));
}

}  // namespace

PrintedPlot::PrintedPlot(QuestionPlot plot, EpisodeOrigin origin)
    : plot_(std::move(plot)), origin_(std::move(origin)) {}

QString PrintedPlot::Title() const {
  return tr("Question Plot");
}

QString PrintedPlot::Subtitle() const {
  return ToQt(plot_.title + "      " + plot_.totalText + "\n" + origin_.Text());
}

QString PrintedPlot::DocumentName() const {
  return tr("%1 Question Plot").arg(ToQt(plot_.title));
}

/// The number of columns in a band: a multiple of ten, so that the ruler of every band begins with
/// 1.
int PrintedPlot::ColumnsOfBand(const QSizeF& area) const {
  const auto fitting = static_cast<int>((area.width() - RowsAt()) / Grid().CellWidth());
  return std::max(kTens, fitting - fitting % kTens);
}

int PrintedPlot::Bands(const QSizeF& area) const {
  const int columns = ColumnsOfBand(area);
  return std::max(1, (plot_.columns + columns - 1) / columns);
}

int PrintedPlot::Pages(const QSizeF& area) const {
  const int perPage = BandsOfPage(area);
  return (Bands(area) + perPage - 1) / perPage;
}

void PrintedPlot::PaintPage(QPainter& painter, const QSizeF& area, int page) const {
  const int columns = ColumnsOfBand(area);
  const int first = page * BandsOfPage(area);
  const int end = std::min(first + BandsOfPage(area), Bands(area));
  double y = 0;
  for (int band = first; band < end; ++band) {
    PaintBand(painter, y, band * columns, std::min(columns, plot_.columns - band * columns));
    y += BandHeight();
  }
}

void PrintedPlot::PaintBand(QPainter& painter, double y, int first, int columns) const {
  const PlotGrid grid = Grid();
  const QFont font = TextFont();
  const double rowsAt = RowsAt();
  const double rowHeight = grid.CellHeight();
  const auto text = [&](double x, double width, const QString& what) {
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(x, y, width, rowHeight), Qt::AlignLeft | Qt::AlignVCenter, what);
  };
  const int last = std::min(first + columns, plot_.questions);
  if (first < last) {
    text(0, rowsAt,
         first + 1 == last ? tr("Question %1").arg(last)
                           : tr("Questions %1 to %2").arg(first + 1).arg(last));
  }
  grid.Paint(painter, {rowsAt, y}, ToQt(TensRow(last)).mid(first));
  y += rowHeight;
  for (const PlotGroup& group : kPlotGroups) {
    text(0, kHeadingWidth, ToQt(group.heading));
    for (std::size_t row = group.first; row < group.first + group.rows; ++row) {
      text(kHeadingWidth, kLetterWidth, ToQt(kPlotRowMeanings[row].letter));
      text(kHeadingWidth + kLetterWidth, rowsAt, ToQt(kPlotRowMeanings[row].name));
      grid.Paint(painter, {rowsAt, y}, ToQt(plot_.PlotRows[row]).mid(first, columns));
      painter.setPen(QPen(Qt::lightGray, 0.4));
      grid.PaintGuides(painter, {rowsAt, y}, columns);
      y += rowHeight;
    }
    if (!group.endsSection) continue;
    painter.setPen(QPen(Qt::gray, 0.4));
    const double lineY = y + kSeparator / 2;
    painter.drawLine(QPointF(0, lineY),
                     QPointF(rowsAt + std::max(columns, kTens) * grid.CellWidth(), lineY));
    y += kSeparator;
  }
}

}  // namespace orvex
