#pragma once

#include <QCoreApplication>

#include "ui/picture/StudyPage.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

/// The classes of a study beneath each other on paper. The pages have a heading of their own.
class PrintedStudyPicture : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedStudyPicture)

 public:
  explicit PrintedStudyPicture(StudyPage study);

  QString Title() const override { return {}; }
  QString Subtitle() const override { return {}; }
  QString DocumentName() const override { return tr("Study Picture"); }
  QPageLayout::Orientation Orientation() const override { return QPageLayout::Landscape; }
  int Pages(const QSizeF& area) const override;
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override;

 private:
  StudyPage study_;
};

}  // namespace orvex
