#include "ui/picture/PageStyle.h"

#include <QFontInfo>
#include <QPalette>
#include <QString>
#include <cmath>

#include "ui/print/ReportPrinter.h"

namespace orvex {
namespace {

constexpr double kSmall = 0.87;
constexpr double kTitle = 1.7;

QColor Mixed(const QColor& one, const QColor& other, double share) {
  const auto part = [share](float a, float b) {
    return static_cast<float>(a * (1 - share) + b * share);
  };
  return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                          part(one.blueF(), other.blueF()));
}

}  // namespace

PageStyle::PageStyle(const QFont& font, const QPalette& palette)
    : paper(palette.color(QPalette::Base)),
      ink(palette.color(QPalette::Text)),
      quiet(Mixed(ink, paper, 0.35)),
      thin(Mixed(ink, paper, 0.82)),
      tint(Mixed(ink, paper, 0.92)),
      highlight(palette.color(QPalette::Highlight)) {
  const double size = QFontInfo(font).pixelSize();
  text = PaperFont(font, size);
  small = PaperFont(font, std::round(kSmall * size));
  smallBold = small;
  smallBold.setBold(true);
  bold = text;
  bold.setBold(true);
  title = PaperFont(font, std::round(kTitle * size));
  title.setBold(true);
  line = QFontMetricsF(text).height();
  smallLine = QFontMetricsF(small).height();
}

QPen PageStyle::Pen(const QColor& colour, double width) const {
  constexpr double kThin = 1.0 / 15;  // of the height of a line of text
  return {colour, width * kThin * line};
}

QString Fitting(const QString& text, const QFontMetricsF& metrics, double width) {
  if (metrics.horizontalAdvance(text) <= width) return text;
  constexpr int kLeast = 3;  // letters, with the sign that more follow
  const QString elided = metrics.elidedText(text, Qt::ElideRight, width);
  return elided.size() > kLeast ? elided : QString();
}

}  // namespace orvex
