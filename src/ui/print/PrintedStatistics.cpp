#include "ui/print/PrintedStatistics.h"

#include <QApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/print/ReportPrinter.h"
#include "ui/text.h"
#include "ui/widgets/PaintBar.h"

namespace orvex {
namespace {

constexpr double kTextSize = 9;
constexpr double kRowHeight = 24;
constexpr double kBarHeight = 15;
constexpr double kCountWidth = 30;
constexpr double kColumnGap = 10;
constexpr double kCaptionRoom = 20;
constexpr double kSampleWidth = 30;

void SetFont(QPainter& painter, bool bold = false) {
  QFont font = PaperFont(QApplication::font(), kTextSize);
  font.setBold(bold);
  painter.setFont(font);
  painter.setPen(Qt::black);
}

void PaintText(QPainter& painter, const QRectF& area, Qt::Alignment alignment,
               const QString& text) {
  painter.drawText(area, static_cast<int>(alignment | Qt::AlignVCenter), text);
}

/// Writes a section's name with a line beneath it; gives where the section begins.
double PaintSection(QPainter& painter, double width, double y, const QString& name) {
  SetFont(painter, true);
  PaintText(painter, {0, y, width, kRowHeight}, Qt::AlignLeft, name);
  painter.setPen(QPen(Qt::gray, 0.5));
  painter.drawLine(QPointF(0, y + kRowHeight - 3), QPointF(width, y + kRowHeight - 3));
  SetFont(painter);
  return y + kRowHeight;
}

double PaintValue(QPainter& painter, double width, double y, const QString& name,
                  const std::string& value) {
  constexpr double kNameWidth = 110;
  SetFont(painter, true);
  PaintText(painter, {0, y, kNameWidth, kRowHeight}, Qt::AlignLeft, name);
  SetFont(painter);
  PaintText(painter, {kNameWidth, y, width - kNameWidth, kRowHeight}, Qt::AlignLeft, ToQt(value));
  return y + kRowHeight;
}

}  // namespace

PrintedStatistics::PrintedStatistics(QuestionStatistics statistics, EpisodeOrigin origin)
    : statistics_(std::move(statistics)), origin_(std::move(origin)) {}

QString PrintedStatistics::Title() const {
  return tr("Questions/Answer Statistics");
}

QString PrintedStatistics::Subtitle() const {
  return ToQt(statistics_.title + "\n" + origin_.Text());
}

QString PrintedStatistics::DocumentName() const {
  return tr("%1 Statistics").arg(ToQt(statistics_.title));
}

void PrintedStatistics::PaintPage(QPainter& painter, const QSizeF& area, int) const {
  const double width = area.width();
  double y = PaintSection(painter, width, 0, tr("QUESTIONS"));
  for (std::size_t i = 0; i < statistics_.rows.size(); ++i) {
    if (i == static_cast<std::size_t>(kFirstResponseLine)) {
      y = PaintSection(painter, width, y + kRowHeight / 2, tr("RESPONSE"));
    }
    PaintRow(painter, width, y, statistics_.rows[i]);
    y += kRowHeight;
  }
  y = PaintValue(painter, width, y + kRowHeight / 2, tr("PACE"), statistics_.pace);
  y = PaintValue(painter, width, y, tr("STUDENT OFFTASK"), statistics_.offtask);
  if (!statistics_.message.empty())
    y = PaintValue(painter, width, y, QString(), statistics_.message);
  PaintLegend(painter, width, y + kRowHeight / 2);
}

double PrintedStatistics::HeadingWidth() const {
  const QFontMetricsF metrics(PaperFont(QApplication::font(), kTextSize));
  double width = 0;
  for (const StatisticsRow& row : statistics_.rows) {
    width = std::max(width, metrics.horizontalAdvance(ToQt(row.heading)));
  }
  return width;
}

void PrintedStatistics::PaintRow(QPainter& painter, double width, double y,
                                 const StatisticsRow& row) const {
  const double headings = HeadingWidth();
  PaintText(painter, {0, y, headings, kRowHeight}, Qt::AlignLeft, ToQt(row.heading));
  PaintText(painter, {headings, y, kCountWidth, kRowHeight}, Qt::AlignRight, ToQt(row.count));
  if (row.bar.empty()) return;
  const double left = headings + kCountWidth + kColumnGap;
  const QRectF bar(left, y + (kRowHeight - kBarHeight) / 2, width - left - kCaptionRoom,
                   kBarHeight);
  PaintBar(painter, {bar, kCaptionRoom}, row, Qt::black);
  painter.setPen(Qt::black);
}

void PrintedStatistics::PaintLegend(QPainter& painter, double width, double y) const {
  y = PaintSection(painter, width, y, tr("LEGEND"));
  for (const auto& [meaning, text] : kStatisticsLegend) {
    PaintMeaning(painter, {0, y + (kRowHeight - kBarHeight) / 2, kSampleWidth, kBarHeight},
                 meaning);
    painter.setPen(Qt::black);
    PaintText(painter, {kSampleWidth + kColumnGap, y, width, kRowHeight}, Qt::AlignLeft,
              ToQt(text));
    y += kRowHeight;
  }
}

}  // namespace orvex
