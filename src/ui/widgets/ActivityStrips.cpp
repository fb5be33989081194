#include "ui/widgets/ActivityStrips.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

namespace orvex {
namespace {

constexpr int kMargin = 4;  // for the frame that shows the focus
constexpr int kLeastWidth = 420;

}  // namespace

ActivityStrips::ActivityStrips(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setFocusPolicy(Qt::StrongFocus);
}

void ActivityStrips::Show(ActivityChart chart) {
  chart_ = std::move(chart);
  Mark(std::nullopt);
  updateGeometry();
}

void ActivityStrips::GoTo(int first, int second) {
  const auto& differing = chart_.Differing();
  const auto found = std::ranges::find_if(differing, [&](const SharedStretch& stretch) {
    return stretch.first == first && stretch.second == second;
  });
  if (found != differing.end()) Mark(static_cast<std::size_t>(found - differing.begin()));
}

QString ActivityStrips::Text() const {
  const auto count = static_cast<int>(chart_.Differing().size());
  if (!marked_) {
    return count == 0 ? tr("The two differ nowhere.")
                      : tr("Stretches in which the two differ: %1").arg(count);
  }
  return tr("Stretch %1 of %2, %3")
      .arg(*marked_ + 1)
      .arg(count)
      .arg(chart_.TextOf(chart_.Differing()[*marked_]));
}

QSize ActivityStrips::minimumSizeHint() const {
  return {kLeastWidth,
          static_cast<int>(std::ceil(chart_.Height(QFontMetricsF(font())))) + 2 * kMargin};
}

QRectF ActivityStrips::Area() const {
  return QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

void ActivityStrips::Mark(std::optional<std::size_t> stretch) {
  marked_ = stretch;
  chart_.Mark(stretch ? std::optional(chart_.Differing()[*stretch]) : std::nullopt);
  setAccessibleDescription(Text());
  update();
  Q_EMIT Moved();
}

bool ActivityStrips::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QString text = chart_.TextAt(QFontMetricsF(font()), Area(), help.x());
  QToolTip::showText(help.globalPos(), text.isEmpty() ? toolTip() : text, this);
  return true;
}

void ActivityStrips::keyPressEvent(QKeyEvent* event) {
  const std::size_t count = chart_.Differing().size();
  const std::size_t last = count > 0 ? count - 1 : 0;
  std::size_t next = 0;
  switch (event->key()) {
    case Qt::Key_Right:
      next = marked_ ? std::min(*marked_ + 1, last) : 0;
      break;
    case Qt::Key_Left:
      next = marked_ && *marked_ > 0 ? *marked_ - 1 : 0;
      break;
    case Qt::Key_Home:
      break;
    case Qt::Key_End:
      next = last;
      break;
    default:
      return QWidget::keyPressEvent(event);
  }
  if (count > 0) Mark(next);
}

void ActivityStrips::mousePressEvent(QMouseEvent* event) {
  const QFontMetricsF metrics(font());
  const double x = event->position().x();
  const auto& differing = chart_.Differing();
  const auto hit = std::ranges::find_if(differing, [&](const SharedStretch& stretch) {
    const auto [left, right] = chart_.PlaceOf(metrics, Area(), stretch);
    return x >= left - kMargin / 2 && x <= right + kMargin / 2;
  });
  if (hit != differing.end()) Mark(static_cast<std::size_t>(hit - differing.begin()));
}

void ActivityStrips::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ActivityStrips::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void ActivityStrips::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  chart_.Paint(painter, Area(), palette());
  if (!hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

}  // namespace orvex
