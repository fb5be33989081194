#pragma once

#include <QCoreApplication>
#include <QString>

#include "study/study_picture.h"

class QFont;
class QPainter;
class QPalette;
class QRectF;

namespace orvex {

struct PageStyle;
struct StudyPlaces;

/// Many classes beneath each other on landscape pages, a row each on the same axis. All sizes
/// follow the font; where the area is small for it, everything is painted smaller.
class StudyPage {
  Q_DECLARE_TR_FUNCTIONS(StudyPage)

 public:
  /// `title` says of what the classes are, and may be empty.
  explicit StudyPage(StudyPicture picture, QString title = {});

  const StudyPicture& Picture() const { return picture_; }
  /// The number of pages that an area of this size makes of the classes, which fill them evenly. At
  /// least one: a study without classes has a page that says so.
  int Pages(const QRectF& area, const QFont& font) const;
  /// Paints a page, counted from 0.
  void Paint(QPainter& painter, const QRectF& area, const QFont& font, const QPalette& palette,
             int page) const;

 private:
  void PaintHeading(QPainter& painter, const StudyPlaces& places, const PageStyle& style,
                    int page) const;
  /// Paints a ground behind every other row, along which the eye finds its figures.
  void PaintBands(QPainter& painter, const StudyPlaces& places, const PageStyle& style,
                  int page) const;
  void PaintAxis(QPainter& painter, const StudyPlaces& places, const PageStyle& style) const;
  void PaintColumns(QPainter& painter, const StudyPlaces& places, const PageStyle& style,
                    int page) const;

  StudyPicture picture_;
  QString title_;
};

}  // namespace orvex
