#pragma once

#include <QCoreApplication>

#include "ui/print/PaperFlow.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

class Comparison;

/// The agreement of two observers on paper: the overview, the disagreements, and the tables.
class PrintedAgreement : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedAgreement)

 public:
  explicit PrintedAgreement(const Comparison& comparison);

  QString Title() const override;
  QString Subtitle() const override { return subtitle_; }
  QString DocumentName() const override;
  QPageLayout::Orientation Orientation() const override { return QPageLayout::Landscape; }
  int Pages(const QSizeF& area) const override { return flow_.Pages(area); }
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override {
    flow_.PaintPage(painter, area, page);
  }

 private:
  void AddCharts(const Comparison& comparison);
  void AddTables(const Comparison& comparison);

  PaperFlow flow_;
  QString subtitle_;
};

}  // namespace orvex
