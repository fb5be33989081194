#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QString>
#include <cstddef>
#include <optional>

#include "reports/class_picture.h"

class QFont;
class QPainter;
class QPalette;
class QPointF;

namespace orvex {

/// What is shown of a class's page, and how.
struct PageView {
  Stretch shown;                           ///< the part of the class's time that fills the width
  bool episodes = true;                    ///< with the bands of the episodes
  std::optional<std::size_t> marked = {};  ///< a question, by its position in the picture
};

/// A class on one landscape page: on the screen, on paper and in pictures. All sizes follow the
/// font, which is chosen so that the page fits its area.
class ClassPage {
  Q_DECLARE_TR_FUNCTIONS(ClassPage)

 public:
  explicit ClassPage(ClassPicture picture);

  const ClassPicture& Picture() const { return picture_; }
  /// Shows all of the class.
  PageView Whole() const;

  void Paint(QPainter& painter, const QRectF& area, const QFont& font, const QPalette& palette,
             const PageView& view) const;

  /// The second of the class at a place of the area; may lie outside what is shown.
  double SecondAt(const QRectF& area, const QFont& font, const PageView& view, double x) const;
  /// The question whose tick is nearest to a point, within reach of a pointer.
  std::optional<std::size_t> QuestionAt(const QRectF& area, const QFont& font, const PageView& view,
                                        const QPointF& point) const;
  /// Says what is under a pointer, in full: an episode, a segment or a question; "" for nothing.
  QString TextAt(const QRectF& area, const QFont& font, const PageView& view,
                 const QPointF& point) const;

 private:
  ClassPicture picture_;
};

}  // namespace orvex
