#pragma once

#include <QTreeWidget>

#include "reports/time_summary.h"

namespace orvex {

/// A block of the time summary. It is exactly as high as its lines and as wide as its texts.
class ReportTable : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ReportTable(QWidget* parent = nullptr);

  void Show(const TimeSummaryBlock& block);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace orvex
