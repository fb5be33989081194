#include "ui/picture/ClassPage.h"

#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <array>
#include <utility>

#include "model/activities.h"
#include "model/wording.h"
#include "ui/picture/OfftaskChart.h"
#include "ui/picture/PageFigures.h"
#include "ui/picture/PageLegend.h"
#include "ui/picture/PagePlaces.h"
#include "ui/picture/PageStyle.h"
#include "ui/picture/QuestionTicks.h"
#include "ui/picture/TimeChart.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kReach = 7;  // of a pointer, in pixels

/// Names the lanes of the ticks, on both sides of the line.
void PaintLaneNames(QPainter& painter, const QRectF& area, const TickPlaces& ticks,
                    const PageStyle& style) {
  using Asker = ClassPicture::Asker;
  const std::array names = {ClassPage::tr("authentic"), ClassPage::tr("uptake"),
                            ClassPage::tr("higher level")};
  const double right = area.left() - style.line / 2;
  painter.setFont(style.small);
  painter.setPen(style.quiet);
  for (const Asker asker : {Asker::teacher, Asker::student}) {
    for (int mark = 0; mark < kQuestionMarks; ++mark) {
      const double y = ticks.Lane(asker, static_cast<QuestionMark>(mark));
      painter.drawText(QRectF(0, y - style.smallLine / 2, right, style.smallLine),
                       Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                       names.at(static_cast<std::size_t>(mark)));
    }
  }
  const double left = area.left();
  PaintName(painter, QRectF(left, ticks.middle - ticks.stem, 0, ticks.stem),
            ClassPage::tr("Teacher asks"), style);
  PaintName(painter, QRectF(left, ticks.middle, 0, ticks.stem), ClassPage::tr("Students ask"),
            style);
}

TickPlaces TicksOf(const PagePlaces& places, const PageStyle& style) {
  return {places.questions, RadiusOf(style)};
}

}  // namespace

ClassPage::ClassPage(ClassPicture picture) : picture_(std::move(picture)) {}

PageView ClassPage::Whole() const {
  return {.shown = picture_.Whole()};
}

void ClassPage::Paint(QPainter& painter, const QRectF& area, const QFont& font,
                      const QPalette& palette, const PageView& view) const {
  const PageStyle style(font, palette);
  const PagePlaces places(picture_, area, style, view);
  const TickPlaces ticks = TicksOf(places, style);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(area, style.paper);
  painter.translate(area.topLeft());
  painter.scale(places.scale, places.scale);
  PaintHeading(painter, places.heading, picture_, style);
  PaintAxis(painter, places, picture_, style);
  if (places.episodes.height() > 0) {
    PaintEpisodes(painter, places.episodes, places.time, picture_, style);
  }
  PaintName(painter, places.segments, tr("Activities"), style);
  PaintSegments(painter, places.segments, places.time, picture_, style);
  if (!picture_.spells.empty()) {
    PaintSpells(painter, places.spells, places.time, picture_, style);
  }
  PaintLaneNames(painter, places.questions, ticks, style);
  painter.setPen(style.Pen(style.quiet));
  painter.drawLine(QPointF(places.time.left, ticks.middle),
                   QPointF(places.time.right, ticks.middle));
  PaintTicks(painter, picture_.questions, ticks, places.time, style);
  if (view.marked && *view.marked < picture_.questions.size()) {
    PaintMarkedTick(painter, picture_.questions[*view.marked], ticks, places.time, style);
  }
  PaintEstimates(painter, places.estimates, places.time, picture_, style);
  PageLegend(picture_, style).Paint(painter, places.legend);
  PaintFigures(painter, places.figures, picture_, style);
  painter.restore();
}

double ClassPage::SecondAt(const QRectF& area, const QFont& font, const PageView& view,
                           double x) const {
  const PagePlaces places(picture_, area, PageStyle(font, QPalette()), view);
  return places.time.SecondAt((x - area.left()) / places.scale);
}

std::optional<std::size_t> ClassPage::QuestionAt(const QRectF& area, const QFont& font,
                                                 const PageView& view, const QPointF& point) const {
  const PageStyle style(font, QPalette());
  const PagePlaces places(picture_, area, style, view);
  const QPointF onPage = (point - area.topLeft()) / places.scale;
  if (onPage.y() < places.questions.top() || onPage.y() > places.questions.bottom()) return {};
  return TickAt(picture_.questions, TicksOf(places, style), places.time, onPage,
                kReach / places.scale);
}

QString ClassPage::TextAt(const QRectF& area, const QFont& font, const PageView& view,
                          const QPointF& point) const {
  const PagePlaces places(picture_, area, PageStyle(font, QPalette()), view);
  const QPointF onPage = (point - area.topLeft()) / places.scale;
  const double second = places.time.SecondAt(onPage.x());
  const auto isThere = [second](const auto& shown) {
    return shown.time.begin <= second && second < shown.time.end;
  };
  if (places.episodes.contains(onPage)) {
    const auto episode = std::ranges::find_if(picture_.episodes, isThere);
    if (episode == picture_.episodes.end()) return {};
    return tr("%1  %2").arg(episode->number).arg(ToQt(episode->description));
  }
  if (places.segments.contains(onPage)) {
    const auto segment = std::ranges::find_if(picture_.segments, isThere);
    if (segment == picture_.segments.end()) return {};
    return tr("%1, %2").arg(ToQt(ActivityName(segment->activity)),
                            ToQt(FormatMinSec(segment->time.Length())));
  }
  const auto question = QuestionAt(area, font, view, point);
  return question ? ToQt(picture_.questions[*question].text) : QString();
}

}  // namespace orvex
