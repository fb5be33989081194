#pragma once

#include <QCoreApplication>
#include <cstddef>
#include <optional>

#include "ui/print/FlowingReport.h"

namespace orvex {

struct AgreementStudy;

/// The agreement of a study on paper: all pairs together, the observers, their courses, the figures
/// by class, and the pairs.
class PrintedAgreementStudy : public FlowingReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedAgreementStudy)

 public:
  /// `dimension` is what the plots are of: a position in ComparedDimensions(), or nothing for the
  /// activities.
  PrintedAgreementStudy(const AgreementStudy& study, std::optional<std::size_t> dimension);

  QString Title() const override;
  QString DocumentName() const override;

 private:
  void AddPooled(const AgreementStudy& study);
  void AddCourses(const AgreementStudy& study, std::optional<std::size_t> dimension);
};

}  // namespace orvex
