#include "ui/picture/PagePlaces.h"

#include <algorithm>
#include <cmath>

#include "ui/picture/ClassPage.h"
#include "ui/picture/PageFigures.h"
#include "ui/picture/PageLegend.h"
#include "ui/picture/PageStyle.h"
#include "ui/picture/QuestionTicks.h"

namespace orvex {
namespace {

// Lengths in heights of a line of text.
constexpr double kLeastWidth = 60;
constexpr double kMargin = 0.8;
constexpr double kGutter = 7.2;  // left of the chart, for the names of its parts
constexpr double kBeside = 1.6;  // right of the chart, for the half of the last time
constexpr double kHeading = 2.3;
constexpr double kEpisodes = 1.35;
constexpr double kSegments = 1.9;
constexpr double kSpells = 0.9;
constexpr double kEstimates = 4;
constexpr double kNote = 1.3;
constexpr double kAxis = 1.3;
constexpr double kGap = 0.7;
constexpr double kSmallGap = 0.25;

constexpr double kMostGrowth = 2.4;

}  // namespace

double PagePlaces::Arrange(const ClassPicture& picture, const PageStyle& style,
                           const PageView& view, double width, double growth) {
  const double margin = kMargin * style.line;
  const double inner = width - 2 * margin;
  time = {view.shown, margin + kGutter * style.line, width - margin - kBeside * style.line};
  double top = margin;
  const auto put = [&](QRectF& part, double height, double gap, bool isOfChart) {
    part = isOfChart ? QRectF(time.left, top, time.right - time.left, height)
                     : QRectF(margin, top, inner, height);
    if (height > 0) top += height + gap * style.line;
  };
  const double line = style.line;
  const bool hasEpisodes = view.episodes && !picture.episodes.empty();
  put(heading, kHeading * line, kGap, false);
  put(episodes, hasEpisodes ? kEpisodes * line : 0, kSmallGap, true);
  put(segments, kSegments * line * growth, kGap, true);
  put(spells, picture.spells.empty() ? 0 : kSpells * line, kSmallGap, true);
  put(questions, TickPlaces::LeastHeight(style) * growth, kGap, true);
  put(estimates, picture.estimates.empty() ? kNote * line : kEstimates * line * growth, 0, true);
  put(axis, kAxis * line, kGap, true);
  put(legend, PageLegend(picture, style).Height(inner), kGap, false);
  put(figures, FiguresHeight(picture, style), 0, false);
  return top + margin;
}

PagePlaces::PagePlaces(const ClassPicture& picture, const QRectF& area, const PageStyle& style,
                       const PageView& view) {
  scale = std::min(1.0, area.width() / (kLeastWidth * style.line));
  const double needed = Arrange(picture, style, view, area.width() / scale, 1);
  scale = std::min(scale, area.height() / needed);
  page = QRectF(0, 0, area.width() / scale, area.height() / scale);
  const double least = Arrange(picture, style, view, page.width(), 1);
  const double growing =
      segments.height() + questions.height() + (picture.estimates.empty() ? 0 : estimates.height());
  const double growth = 1 + std::max(0.0, page.height() - least) / growing;
  Arrange(picture, style, view, page.width(), std::min(growth, kMostGrowth));
}

}  // namespace orvex
