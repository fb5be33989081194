#pragma once

#include <QPageLayout>
#include <QSizeF>
#include <QString>

class QPainter;

namespace orvex {

/// A report as printed on paper, without the page header. Lengths are in points.
class PrintedReport {
 public:
  virtual ~PrintedReport() = default;

  virtual QString Title() const = 0;
  /// Says what the report is about, beneath the title. May have several lines.
  virtual QString Subtitle() const = 0;
  /// The default name of its file.
  virtual QString DocumentName() const = 0;
  virtual QPageLayout::Orientation Orientation() const { return QPageLayout::Portrait; }
  /// The height that a page needs; on a lower area it is scaled down.
  virtual double LeastHeight() const { return 1; }
  virtual int Pages(const QSizeF&) const { return 1; }
  /// Paints page `page`, counted from 0, on an area that begins at the painter's origin.
  virtual void PaintPage(QPainter& painter, const QSizeF& area, int page) const = 0;
};

}  // namespace orvex
