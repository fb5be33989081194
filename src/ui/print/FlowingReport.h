#pragma once

#include <utility>

#include "ui/print/PaperFlow.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

/// A report in landscape that flows over as many pages as it takes.
class FlowingReport : public PrintedReport {
 public:
  QString Subtitle() const override { return subtitle_; }
  QPageLayout::Orientation Orientation() const override { return QPageLayout::Landscape; }
  int Pages(const QSizeF& area) const override { return flow_.Pages(area); }
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override {
    flow_.PaintPage(painter, area, page);
  }

 protected:
  explicit FlowingReport(QString subtitle) : subtitle_(std::move(subtitle)) {}
  PaperFlow& Flow() { return flow_; }

 private:
  QString subtitle_;
  PaperFlow flow_;
};

}  // namespace orvex
