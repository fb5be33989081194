#pragma once

#include <QCoreApplication>

#include "ui/print/FlowingReport.h"

namespace orvex {

class Comparison;

/// The agreement of two observers on paper: the overview, the disagreements, and the tables.
class PrintedAgreement : public FlowingReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedAgreement)

 public:
  explicit PrintedAgreement(const Comparison& comparison);

  QString Title() const override;
  QString DocumentName() const override;

 private:
  void AddCharts(const Comparison& comparison);
  void AddTables(const Comparison& comparison);
};

}  // namespace orvex
