#pragma once

#include <QRectF>

#include "ui/picture/TimeScale.h"

namespace orvex {

struct PageStyle;
struct PageView;

/// Where the parts of a class's page stand. The page is laid out at the size of its font, and
/// painted smaller where the area has less room.
struct PagePlaces {
  PagePlaces(const ClassPicture& picture, const QRectF& area, const PageStyle& style,
             const PageView& view);

  double scale = 1;  ///< from the lengths of the page to those of the area
  QRectF page;       ///< the whole page, from 0, 0
  TimeScale time;
  // Parts that the class has not, or that are not wanted, are without height.
  QRectF heading;
  QRectF episodes;
  QRectF segments;
  QRectF spells;
  QRectF questions;
  QRectF estimates;
  QRectF axis;
  QRectF legend;
  QRectF figures;

 private:
  /// Puts the parts beneath each other and returns the height they take, with what can grow
  /// `growth` times as high as it has to be.
  double Arrange(const ClassPicture& picture, const PageStyle& style, const PageView& view,
                 double width, double growth);
};

}  // namespace orvex
