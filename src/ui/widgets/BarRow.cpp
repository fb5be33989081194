#include "ui/widgets/BarRow.h"

#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/text.h"
#include "ui/widgets/PaintBar.h"

namespace orvex {
namespace {

constexpr int kLeastHeight = 22;
constexpr int kAroundText = 8;
constexpr int kCaptionRoom = 26;
constexpr int kPixelsPerInch = 96;
constexpr int kTwipsPerInch = 1440;

/// High enough for the captions in the bar.
int BarHeight(const QWidget& row) {
  return std::max(kLeastHeight, row.fontMetrics().height() + kAroundText);
}

/// An invisible segment: the bar paints it.
class SegmentLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent*) override {}
};

}  // namespace

BarRow::BarRow(QWidget* parent) : QWidget(parent) {
  setMinimumWidth(static_cast<int>(kBarLength * kPixelsPerInch / kTwipsPerInch) + kCaptionRoom);
  setFixedHeight(BarHeight(*this));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BarRow::Show(const StatisticsRow& row) {
  row_ = row;
  QStringList shares;
  for (std::size_t i = 0; i < row_.bar.size(); ++i) {
    const BarSegment& segment = row_.bar[i];
    if (i == segments_.size()) {
      auto* label = new SegmentLabel(this);
      label->setObjectName(QStringLiteral("%1_%2").arg(objectName()).arg(i));
      label->lower();
      segments_.push_back(label);
    }
    segments_[i]->setText(ToQt(segment.caption));
    shares << tr("%1 of %2").arg(segment.count).arg(segment.reference);
  }
  setAccessibleName(ToQt(row_.heading));
  setAccessibleDescription(shares.join(QStringLiteral(", ")));
  setToolTip(shares.join(QStringLiteral(", ")));
  PlaceSegments();
  update();
}

QRectF BarRow::Bar() const {
  return QRectF(rect()).adjusted(0, 0, -kCaptionRoom, 0);
}

void BarRow::PlaceSegments() {
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    const QRectF area = AreaOf(row_.bar[i], Bar());
    // Round the edges, not the widths, so that adjacent segments leave no gap.
    const int left = static_cast<int>(std::lround(area.left()));
    const int right = static_cast<int>(std::lround(area.right()));
    segments_[i]->setGeometry(left, 0, right - left, height());
  }
}

void BarRow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceSegments();
}

void BarRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintBar(painter, {Bar(), kCaptionRoom}, row_, palette().color(QPalette::WindowText));
}

CodingSample::CodingSample(QWidget* parent) : QWidget(parent) {
  setFixedSize(BarHeight(*this) * 2, BarHeight(*this) - 4);
}

void CodingSample::Show(BarMeaning meaning) {
  meaning_ = meaning;
  update();
}

void CodingSample::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintMeaning(painter, rect(), meaning_);
}

}  // namespace orvex
