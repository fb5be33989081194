#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPen>

class QPalette;

namespace orvex {

/// The fonts and colours of a page, all derived from the one font and palette it is painted with.
struct PageStyle {
  PageStyle(const QFont& font, const QPalette& palette);

  QFont text;
  QFont small;
  QFont smallBold;
  QFont bold;
  QFont title;
  double line = 0;       ///< the height of a line of `text`
  double smallLine = 0;  ///< of `small`
  QColor paper;
  QColor ink;
  QColor quiet;      ///< of captions
  QColor thin;       ///< of the lines of a grid
  QColor tint;       ///< behind the names of episodes
  QColor highlight;  ///< of what is marked

  /// A pen whose width follows the font. A line of 1 is thin.
  QPen Pen(const QColor& colour, double width = 1) const;
};

/// `text`, cut so that it fits `width`; nothing where hardly anything of it would be left.
QString Fitting(const QString& text, const QFontMetricsF& metrics, double width);

}  // namespace orvex
