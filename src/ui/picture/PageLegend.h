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

/// Explains the marks of a page, in as many lines as the width takes.
class PageLegend {
  Q_DECLARE_TR_FUNCTIONS(PageLegend)

 public:
  /// Paints a mark into its place.
  using PaintSample = std::function<void(QPainter& painter, const QRectF& place)>;

  /// The groups of activities.
  explicit PageLegend(const PageStyle& style);
  /// Every mark of a class's page. Marks of what the class has not are left out.
  PageLegend(const ClassPicture& picture, const PageStyle& style);
  void Add(const QString& text, PaintSample paint);

  double Height(double width) const;
  void Paint(QPainter& painter, const QRectF& area) const;

 private:
  struct Entry {
    QString text;
    PaintSample paint;
  };
  void AddQuestions();
  /// Calls `act` for every entry with its place in lines of `width`, from 0, 0.
  template <typename Act>
  double ForEach(double width, const Act& act) const;

  const PageStyle& style_;
  std::vector<Entry> entries_;
};

}  // namespace orvex
