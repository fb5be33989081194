#include "ui/print/PrintedTimeSummary.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/print/ReportPrinter.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kTextSize = 9;
constexpr double kRowHeight = 16;
constexpr double kNameWidth = 230;
constexpr double kValueWidth = 90;
constexpr double kTableWidth = kNameWidth + 2 * kValueWidth;

struct Line {
  std::string_view name;
  std::string_view time;
  std::string_view offtask;
};

/// Paints a line of a table, at most `width` wide. Returns where the next line begins.
double PaintLine(QPainter& painter, double width, double y, const Line& line, bool bold = false) {
  QFont font = PaperFont(QApplication::font(), kTextSize);
  font.setBold(bold);
  painter.setFont(font);
  painter.setPen(Qt::black);
  const double scale = std::min(1.0, width / kTableWidth);
  double x = 0;
  const auto field = [&](double fieldWidth, Qt::Alignment alignment, std::string_view text) {
    painter.drawText(QRectF(x, y, fieldWidth * scale, kRowHeight),
                     static_cast<int>(alignment | Qt::AlignVCenter), ToQt(text));
    x += fieldWidth * scale;
  };
  field(kNameWidth, Qt::AlignLeft, line.name);
  field(kValueWidth, Qt::AlignRight, line.time);
  field(kValueWidth, Qt::AlignRight, line.offtask);
  return y + kRowHeight;
}

void PaintRule(QPainter& painter, double width, double y) {
  painter.setPen(QPen(Qt::gray, 0.5));
  painter.drawLine(QPointF(0, y), QPointF(std::min(width, kTableWidth), y));
}

}  // namespace

PrintedTimeSummary::PrintedTimeSummary(TimeSummary summary) : summary_(std::move(summary)) {}

QString PrintedTimeSummary::Title() const {
  return ToQt(summary_.title);
}

QString PrintedTimeSummary::Subtitle() const {
  return ToQt(summary_.date + "      " + summary_.observer);
}

QString PrintedTimeSummary::DocumentName() const {
  return tr("%1 Time Summary").arg(ToQt(summary_.classId));
}

void PrintedTimeSummary::PaintPage(QPainter& painter, const QSizeF& area, int) const {
  const double width = area.width();
  double y = 0;
  for (const TimeSummaryBlock& block : summary_.blocks) {
    y = PaintLine(painter, width, y, {block.heading, kTimeColumn, kOfftaskColumn}, true);
    PaintRule(painter, width, y);
    for (const TimeSummaryRow& row : block.rows) {
      y = PaintLine(painter, width, y, {row.name, row.time, row.offtask});
    }
    y += kRowHeight;
  }
  PaintRule(painter, width, y);
  y = PaintLine(painter, width, y, {kNonInstructionalCaption, summary_.nonInstructional, ""});
  y = PaintLine(painter, width, y, {kInstructionalCaption, summary_.instructional, ""});
  PaintLine(painter, width, y, {kTotalCaption, summary_.total, ""}, true);
}

}  // namespace orvex
