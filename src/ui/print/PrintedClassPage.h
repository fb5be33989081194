#pragma once

#include <QCoreApplication>

#include "ui/picture/ClassPage.h"
#include "ui/print/PrintedReport.h"

namespace orvex {

/// The page of a class on paper. It has a heading of its own.
class PrintedClassPage : public PrintedReport {
  Q_DECLARE_TR_FUNCTIONS(PrintedClassPage)

 public:
  /// Shows what `view` shows.
  PrintedClassPage(ClassPage page, PageView view);

  QString Title() const override { return {}; }
  QString Subtitle() const override { return {}; }
  QString DocumentName() const override;
  QPageLayout::Orientation Orientation() const override { return QPageLayout::Landscape; }
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override;

 private:
  ClassPage page_;
  PageView view_;
};

}  // namespace orvex
