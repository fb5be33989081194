#pragma once

#include <QCoreApplication>

#include "reports/episode_origin.h"
#include "reports/question_statistics.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

/// The question statistics on paper.
class PrintedStatistics : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedStatistics)

 public:
  PrintedStatistics(QuestionStatistics statistics, EpisodeOrigin origin);

  QString Title() const override;
  QString Subtitle() const override;
  QString DocumentName() const override;
  double LeastHeight() const override { return 545; }
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override;

 private:
  double HeadingWidth() const;
  void PaintRow(QPainter& painter, double width, double y, const StatisticsRow& row) const;
  void PaintLegend(QPainter& painter, double width, double y) const;

  QuestionStatistics statistics_;
  EpisodeOrigin origin_;
};

}  // namespace orvex
