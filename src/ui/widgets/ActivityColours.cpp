#include "ui/widgets/ActivityColours.h"

#include <cmath>

namespace orvex {
namespace {

/// How bright `colour` seems, from 0 to 1.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

}  // namespace

QColor ColourOf(ActivityGroup group) {
  switch (group) {
    case ActivityGroup::management:
      return {96, 32, 84};
    case ActivityGroup::directInstruction:
      return {110, 186, 236};
    case ActivityGroup::seatwork:
      return {12, 122, 96};
    case ActivityGroup::tests:
      return {248, 230, 104};
  }
  return {};
}

std::optional<QColor> ColourOf(int activity) {
  if (!IsActivity(activity)) return std::nullopt;
  return ColourOf(ActivityOf(activity).group);
}

QColor InkOn(const QColor& ground) {
  // The brightness that is as far from black as from white.
  constexpr double kMiddle = 0.179;
  return Luminance(ground) > kMiddle ? Qt::black : Qt::white;
}

}  // namespace orvex
