#pragma once

#include <QCoreApplication>

#include "reports/time_summary.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

/// The time summary on paper.
class PrintedTimeSummary : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedTimeSummary)

 public:
  explicit PrintedTimeSummary(TimeSummary summary);

  QString Title() const override;
  QString Subtitle() const override;
  QString DocumentName() const override;
  double LeastHeight() const override { return 455; }
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override;

 private:
  TimeSummary summary_;
};

}  // namespace orvex
