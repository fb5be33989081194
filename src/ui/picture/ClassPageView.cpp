#include "ui/picture/ClassPageView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kStep = 1.5;          // of a key that zooms
constexpr double kPanStep = 0.1;       // of what is shown
constexpr double kLeastSeconds = 120;  // that are shown; the axis has marks on whole minutes
constexpr QSize kUsualSize = {1000, 560};
constexpr QSize kLeastSize = {480, 200};

}  // namespace

ClassPageView::ClassPageView(QWidget* parent) : QWidget(parent), page_({}) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ClassPageView::Show(ClassPage page) {
  page_ = std::move(page);
  view_ = page_.Whole();
  update();
  Q_EMIT Moved();
}

void ClassPageView::ShowEpisodes(bool shown) {
  view_.episodes = shown;
  update();
}

const ClassPicture::QuestionTick* ClassPageView::Marked() const {
  return view_.marked ? &page_.Picture().questions[*view_.marked] : nullptr;
}

QSize ClassPageView::sizeHint() const {
  return kUsualSize;
}

QSize ClassPageView::minimumSizeHint() const {
  return kLeastSize;
}

QRectF ClassPageView::Area() const {
  return rect();
}

void ClassPageView::ShowTime(double begin, double seconds) {
  const double all = page_.Picture().seconds;
  const double length = std::clamp(seconds, std::min(kLeastSeconds, all), all);
  const double from = std::clamp(begin, 0.0, all - length);
  view_.shown = {from, from + length};
  update();
}

void ClassPageView::Zoom(double factor, double second) {
  const double before = view_.shown.Length();
  const double all = page_.Picture().seconds;
  const double after = std::clamp(before / factor, std::min(kLeastSeconds, all), all);
  if (before <= 0 || after == before) return;
  ShowTime(second - (second - view_.shown.begin) * after / before, after);
}

void ClassPageView::Pan(double share) {
  ShowTime(view_.shown.begin + share * view_.shown.Length(), view_.shown.Length());
}

void ClassPageView::ShowEpisode(int step) {
  const auto& episodes = page_.Picture().episodes;
  if (episodes.empty()) return;
  const int last = static_cast<int>(episodes.size()) - 1;
  int next = step > 0 ? 0 : last;
  if (view_.shown.Length() < page_.Picture().seconds) {
    const double middle = (view_.shown.begin + view_.shown.end) / 2;
    const auto shown = std::ranges::find_if(
        episodes, [middle](const auto& episode) { return middle < episode.time.end; });
    next = std::clamp(static_cast<int>(shown - episodes.begin()) + step, 0, last);
  }
  const Stretch& time = episodes[static_cast<std::size_t>(next)].time;
  ShowTime(time.begin, time.Length());
}

void ClassPageView::Mark(std::optional<std::size_t> question) {
  view_.marked = question;
  if (const auto* tick = Marked()) {
    // A little away from the edge, so that its neighbours can be seen.
    const double length = view_.shown.Length();
    const double margin = kPanStep * length;
    if (tick->second < view_.shown.begin) ShowTime(tick->second - margin, length);
    if (tick->second > view_.shown.end) ShowTime(tick->second + margin - length, length);
    setAccessibleDescription(ToQt(tick->text));
  }
  update();
  Q_EMIT Moved();
}

void ClassPageView::MarkNext(int step) {
  const auto count = static_cast<int>(page_.Picture().questions.size());
  if (count == 0) return;
  const int first = step > 0 ? 0 : count - 1;
  const int next = view_.marked ? static_cast<int>(*view_.marked) + step : first;
  Mark(static_cast<std::size_t>(std::clamp(next, 0, count - 1)));
}

double ClassPageView::Centre() const {
  const auto* const tick = Marked();
  const Stretch& shown = view_.shown;
  const bool isSeen = tick && tick->second >= shown.begin && tick->second <= shown.end;
  return isSeen ? tick->second : (shown.begin + shown.end) / 2;
}

bool ClassPageView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QString text = page_.TextAt(Area(), font(), view_, help.pos());
  QToolTip::showText(help.globalPos(), text.toHtmlEscaped(), this);
  return true;
}

void ClassPageView::keyPressEvent(QKeyEvent* event) {
  const double length = view_.shown.Length();
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(kStep, Centre());
    case Qt::Key_Minus:
      return Zoom(1 / kStep, Centre());
    case Qt::Key_0:
      return ShowTime(0, page_.Picture().seconds);
    case Qt::Key_Left:
      return Pan(-kPanStep);
    case Qt::Key_Right:
      return Pan(kPanStep);
    case Qt::Key_PageUp:
      return ShowEpisode(-1);
    case Qt::Key_PageDown:
      return ShowEpisode(1);
    case Qt::Key_Home:
      return ShowTime(0, length);
    case Qt::Key_End:
      return ShowTime(page_.Picture().seconds, length);
    case Qt::Key_Up:
      return MarkNext(-1);
    case Qt::Key_Down:
      return MarkNext(1);
    default:
      QWidget::keyPressEvent(event);
  }
}

void ClassPageView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  dragged_ = event->position();
  hasMoved_ = false;
}

void ClassPageView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragged_) return;
  const QPointF to = event->position();
  if (!hasMoved_ && std::abs(to.x() - dragged_->x()) < QApplication::startDragDistance()) return;
  hasMoved_ = true;
  const double by = page_.SecondAt(Area(), font(), view_, dragged_->x()) -
                    page_.SecondAt(Area(), font(), view_, to.x());
  dragged_ = to;
  ShowTime(view_.shown.begin + by, view_.shown.Length());
}

void ClassPageView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mouseReleaseEvent(event);
  if (dragged_ && !hasMoved_) Mark(page_.QuestionAt(Area(), font(), view_, event->position()));
  dragged_.reset();
}

void ClassPageView::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto question = page_.QuestionAt(Area(), font(), view_, event->position());
  if (!question) return;
  Mark(question);
  Q_EMIT Opened();
}

void ClassPageView::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120;  // as a wheel reports it
  const QPoint turned = event->angleDelta();
  const bool pans =
      event->modifiers() == Qt::ShiftModifier || std::abs(turned.x()) > std::abs(turned.y());
  if (pans) {
    const int by = std::abs(turned.x()) > std::abs(turned.y()) ? turned.x() : turned.y();
    Pan(-kPanStep * by / kNotch);
  } else {
    const double second = page_.SecondAt(Area(), font(), view_, event->position().x());
    Zoom(std::pow(kStep, turned.y() / kNotch),
         std::clamp(second, view_.shown.begin, view_.shown.end));
  }
  event->accept();
}

void ClassPageView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ClassPageView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void ClassPageView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  page_.Paint(painter, Area(), font(), palette(), view_);
  if (!hasFocus()) return;
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace orvex
