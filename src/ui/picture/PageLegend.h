#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QString>
#include <functional>
#include <vector>

#include "reports/class_picture.h"

class QPainter;

namespace orvex {

struct PageStyle;

/// Explains every mark of a class's page, in as many lines as the width takes. Marks of what the
/// class has not are left out.
class PageLegend {
  Q_DECLARE_TR_FUNCTIONS(PageLegend)

 public:
  PageLegend(const ClassPicture& picture, const PageStyle& style);

  double Height(double width) const;
  void Paint(QPainter& painter, const QRectF& area) const;

 private:
  struct Entry {
    QString text;
    /// Paints the mark into its place, with the colours of the style.
    std::function<void(QPainter& painter, const QRectF& place)> paint;
  };
  void AddQuestions();
  /// Calls `act` for every entry with its place in lines of `width`, from 0, 0.
  template <typename Act>
  double ForEach(double width, const Act& act) const;

  const PageStyle& style_;
  std::vector<Entry> entries_;
};

}  // namespace orvex
