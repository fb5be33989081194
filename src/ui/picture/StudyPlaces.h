#pragma once

#include <QRectF>
#include <cstddef>
#include <vector>

#include "study/study_picture.h"
#include "ui/picture/TimeScale.h"

namespace orvex {

struct PageStyle;

/// Where the parts of a study's pages stand. A page is laid out at the size of its font, and
/// painted smaller where the area has not the room.
struct StudyPlaces {
  StudyPlaces(const StudyPicture& picture, const QRectF& area, const PageStyle& style);

  /// A column of texts beside the strips.
  struct Column {
    RowOrder shows;
    double left = 0;
    double width = 0;
    bool isFigure = false;  ///< set flush right
  };

  double scale = 1;  ///< from the lengths of the page to those of the area
  QRectF page;       ///< the whole page, from 0, 0
  int pages = 1;
  QRectF heading;
  QRectF headings;  ///< of the columns; the upper axis stands between them
  QRectF rows;      ///< of the fullest page
  QRectF axis;      ///< the lower one
  QRectF legend;
  std::vector<Column> columns;
  TimeScale time;

  /// The classes of a page: from the first of it up to the first of the next.
  std::size_t FirstOf(int ofPage) const;
  /// Where a class of a page stands, by its position in the study.
  QRectF Row(int ofPage, std::size_t position) const;

 private:
  /// Puts the parts beneath each other on a page of this width, and returns the height that they
  /// take.
  double Arrange(const StudyPicture& picture, const PageStyle& style, double width,
                 double rowsHeight);
  void PlaceColumns(const StudyPicture& picture, const PageStyle& style);

  std::size_t classes_ = 0;
  double rowHeight_ = 0;
};

}  // namespace orvex
