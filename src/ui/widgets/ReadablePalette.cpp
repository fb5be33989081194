#include "ui/widgets/ReadablePalette.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvex {
namespace {

constexpr double kLeast = 4.5;
constexpr double kLeastDisabled = 3;
constexpr int kSteps = 40;

double LinearOf(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor& colour) {
  return 0.2126 * LinearOf(colour.redF()) + 0.7152 * LinearOf(colour.greenF()) +
         0.0722 * LinearOf(colour.blueF());
}

QColor Mixed(const QColor& from, const QColor& to, double share) {
  const auto channel = [share](double a, double b) {
    return static_cast<float>(a + (b - a) * share);
  };
  return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                          channel(from.blueF(), to.blueF()));
}

/// `colour`, moved away from `other` until the two can be told apart.
QColor Stronger(const QColor& colour, const QColor& other, double least) {
  // What shines through is what is seen.
  const QColor seen = Mixed(other, colour, colour.alphaF());
  if (ContrastOf(seen, other) >= least) return colour;
  const bool toBlack = ContrastOf(Qt::black, other) > ContrastOf(Qt::white, other);
  const QColor end = toBlack ? QColor(Qt::black) : QColor(Qt::white);
  for (int step = 1; step < kSteps; ++step) {
    const QColor tried = Mixed(seen, end, static_cast<double>(step) / kSteps);
    // As the colour is stored, in whole steps of each channel.
    if (ContrastOf(QColor(tried.rgb()), other) >= least) return QColor(tried.rgb());
  }
  return end;
}

}  // namespace

double ContrastOf(const QColor& ink, const QColor& ground) {
  const double one = LuminanceOf(ink);
  const double other = LuminanceOf(ground);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QPalette ReadablePalette(QPalette palette) {
  using Role = QPalette::ColorRole;
  constexpr std::pair<Role, Role> kInks[] = {
      {QPalette::WindowText, QPalette::Window},       {QPalette::Text, QPalette::Base},
      {QPalette::Text, QPalette::AlternateBase},      {QPalette::ButtonText, QPalette::Button},
      {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::Link, QPalette::Base},
      {QPalette::LinkVisited, QPalette::Base},        {QPalette::PlaceholderText, QPalette::Base}};
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const double least = group == QPalette::Disabled ? kLeastDisabled : kLeast;
    const auto strengthen = [&](Role changed, Role other) {
      const QColor is = palette.color(group, changed);
      const QColor wanted = Stronger(is, palette.color(group, other), least);
      if (wanted != is) palette.setColor(group, changed, wanted);
    };
    for (const auto& [ink, ground] : kInks) strengthen(ink, ground);
    // A selection keeps the colour of its text, which the style may take for white.
    strengthen(QPalette::Highlight, QPalette::HighlightedText);
  }
  return palette;
}

}  // namespace orvex
