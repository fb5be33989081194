#pragma once

#include <QCoreApplication>

#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

/// The question plot on paper. It is cut into bands, one beneath the other, and continues on as
/// many pages as it needs.
class PrintedPlot : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedPlot)

 public:
  PrintedPlot(QuestionPlot plot, EpisodeOrigin origin);

  QString Title() const override;
  QString Subtitle() const override;
  QString DocumentName() const override;
  QPageLayout::Orientation Orientation() const override { return QPageLayout::Landscape; }
  int Pages(const QSizeF& area) const override;
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override;

 private:
  int ColumnsOfBand(const QSizeF& area) const;
  int Bands(const QSizeF& area) const;
  void PaintBand(QPainter& painter, double y, int first, int columns) const;

  QuestionPlot plot_;
  EpisodeOrigin origin_;
};

}  // namespace orvex
