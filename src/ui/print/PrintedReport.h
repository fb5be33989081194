#pragma once

#include <QPageLayout>
#include <QSizeF>
#include <QString>

class QPainter;

namespace orvex {

/// A report as it goes to paper, without the head of the page. Lengths are in points.
class PrintedReport {
 public:
  virtual ~PrintedReport() = default;

  virtual QString Title() const = 0;
  /// What it is about, beneath the title, in one line or several.
  virtual QString Subtitle() const = 0;
  /// What its file is called if nobody calls it otherwise.
  virtual QString DocumentName() const = 0;
  virtual QPageLayout::Orientation Orientation() const { return QPageLayout::Portrait; }
  /// What a page of it takes; on a lower area it is painted smaller.
  virtual double LeastHeight() const { return 1; }
  virtual int Pages(const QSizeF&) const { return 1; }
  /// Paints the page, which counts from 0, on an area that begins at the painter's origin.
  virtual void PaintPage(QPainter& painter, const QSizeF& area, int page) const = 0;
};

}  // namespace orvex
