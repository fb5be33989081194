#pragma once

#include <QCoreApplication>
#include <cstddef>
#include <optional>

#include "ui/print/PaperFlow.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

struct AgreementStudy;

/// The agreement of a study on paper: all pairs together, the observers, their courses, the figures
/// by class, and the pairs.
class PrintedAgreementStudy : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedAgreementStudy)

 public:
  /// `dimension` is what the plots are of: a position in ComparedDimensions(), or nothing for the
  /// activities.
  PrintedAgreementStudy(const AgreementStudy& study, std::optional<std::size_t> dimension);

  QString Title() const override;
  QString Subtitle() const override { return subtitle_; }
  QString DocumentName() const override;
  QPageLayout::Orientation Orientation() const override { return QPageLayout::Landscape; }
  int Pages(const QSizeF& area) const override { return flow_.Pages(area); }
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override {
    flow_.PaintPage(painter, area, page);
  }

 private:
  void AddPooled(const AgreementStudy& study);
  void AddCourses(const AgreementStudy& study, std::optional<std::size_t> dimension);

  PaperFlow flow_;
  QString subtitle_;
};

}  // namespace orvex
