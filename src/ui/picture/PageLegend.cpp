#include "ui/picture/PageLegend.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "model/activities.h"
#include "ui/picture/OfftaskChart.h"
#include "ui/picture/PageStyle.h"
#include "ui/picture/QuestionTicks.h"
#include "ui/picture/TimeChart.h"
#include "ui/text.h"
#include "ui/widgets/ActivityColours.h"

namespace orvex {
namespace {

// Lengths in heights of a small line.
constexpr double kMark = 1.1;
constexpr double kBesideMark = 0.35;
constexpr double kBetween = 1.3;
constexpr double kLine = 1.3;

}  // namespace

PageLegend::PageLegend(const PageStyle& style) : style_(style) {
  for (std::size_t i = 0; i < kActivityGroupCount; ++i) {
    Add(ToQt(kActivityGroups[i].label), [&style, i](QPainter& painter, const QRectF& place) {
      const double inset = 0.15 * place.height();
      PaintBlock(painter, place.adjusted(0, inset, 0, -inset),
                 ColourOf(static_cast<ActivityGroup>(i)), style);
    });
  }
}

PageLegend::PageLegend(const ClassPicture& picture, const PageStyle& style) : PageLegend(style) {
  AddQuestions();
  if (!picture.spells.empty()) {
    entries_.push_back({tr("Dialogic spell"), [this](QPainter& painter, const QRectF& place) {
                          PaintBracket(painter, place, style_);
                        }});
  }
  if (picture.estimates.empty()) return;
  entries_.push_back({tr("Students off task"), [this](QPainter& painter, const QRectF& place) {
                        PaintEstimate(painter, place.center(), style_);
                      }});
  const bool hasMissed =
      std::ranges::any_of(picture.estimates, [](const auto& estimate) { return !estimate.share; });
  if (!hasMissed) return;
  entries_.push_back({tr("Estimate missed"), [this](QPainter& painter, const QRectF& place) {
                        PaintMissed(painter, place.center(), style_);
                      }});
}

void PageLegend::AddQuestions() {
  entries_.push_back({tr("Question"), [this](QPainter& painter, const QRectF& place) {
                        const double inset = 0.1 * place.height();
                        painter.setPen(style_.Pen(style_.ink));
                        painter.drawLine(QPointF(place.center().x(), place.top() + inset),
                                         QPointF(place.center().x(), place.bottom() - inset));
                      }});
  for (const auto& [mark, text] :
       {std::pair(QuestionMark::authentic, tr("Authentic: no answer is set beforehand")),
        std::pair(QuestionMark::uptake, tr("Uptake: takes up what a student said")),
        std::pair(QuestionMark::higherLevel, tr("Higher level: analysis, generalization"))}) {
    entries_.push_back({text, [this, mark = mark](QPainter& painter, const QRectF& place) {
                          painter.setPen(style_.Pen(style_.ink));
                          painter.setBrush(style_.ink);
                          PaintMark(painter, mark, place.center(), RadiusOf(style_));
                        }});
  }
  entries_.push_back({tr("No response: hollow"), [this](QPainter& painter, const QRectF& place) {
                        painter.setPen(style_.Pen(style_.ink));
                        painter.setBrush(style_.paper);
                        PaintRing(painter, place.center(), RadiusOf(style_));
                      }});
}

void PageLegend::Add(const QString& text, PaintSample paint) {
  entries_.push_back({text, std::move(paint)});
}

template <typename Act>
double PageLegend::ForEach(double width, const Act& act) const {
  const QFontMetricsF metrics(style_.small);
  const double unit = style_.smallLine;
  double left = 0;
  double top = 0;
  for (const Entry& entry : entries_) {
    const double needed = (kMark + kBesideMark) * unit + metrics.horizontalAdvance(entry.text) + 1;
    if (left > 0 && left + needed > width) {
      left = 0;
      top += kLine * unit;
    }
    act(entry, QRectF(left, top, needed, unit));
    left += needed + kBetween * unit;
  }
  return top + unit;
}

double PageLegend::Height(double width) const {
  return ForEach(width, [](const Entry&, const QRectF&) {});
}

void PageLegend::Paint(QPainter& painter, const QRectF& area) const {
  ForEach(area.width(), [&](const Entry& entry, const QRectF& place) {
    const QRectF at = place.translated(area.topLeft());
    const double mark = kMark * style_.smallLine;
    entry.paint(painter, QRectF(at.left(), at.top(), mark, at.height()));
    painter.setPen(style_.ink);
    painter.setFont(style_.small);
    painter.drawText(at.adjusted(mark + kBesideMark * style_.smallLine, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, entry.text);
  });
}

}  // namespace orvex
