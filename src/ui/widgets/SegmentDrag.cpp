#include "ui/widgets/SegmentDrag.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "ui/widgets/RowList.h"

namespace orvex {
namespace {

constexpr int kScrollInterval = 80;
constexpr int kScrollEdge = 14;
constexpr QPoint kImageOffset(14, 10);

}  // namespace

SegmentDrag::SegmentDrag(RowList* source, std::vector<RowList*> targets)
    : QObject(source), source_(source), targets_(std::move(targets)) {
  source_->installEventFilter(this);
  source_->viewport()->installEventFilter(this);
  scrolling_.setInterval(kScrollInterval);
  connect(&scrolling_, &QTimer::timeout, this, &SegmentDrag::Scroll);
}

SegmentDrag::~SegmentDrag() {
  if (IsDragging()) QGuiApplication::restoreOverrideCursor();
}

bool SegmentDrag::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return Press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      return Move(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      return Release(*static_cast<QMouseEvent*>(event));
    case QEvent::ShortcutOverride:
      // No key may change the lists during a drag.
      if (IsDragging()) event->accept();
      return IsDragging();
    case QEvent::KeyPress:
      if (!IsDragging()) return false;
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) End();
      return true;
    case QEvent::FocusOut:
    case QEvent::Hide:
      End();
      return false;
    default:
      return false;
  }
}

bool SegmentDrag::Press(const QMouseEvent& mouse) {
  if (IsDragging()) return true;
  if (mouse.button() != Qt::LeftButton) return false;
  pressedAt_.reset();
  const QPoint position = mouse.globalPosition().toPoint();
  if (source_->RowAt(position) > 0) pressedAt_ = position;
  return false;
}

bool SegmentDrag::Move(const QMouseEvent& mouse) {
  if (!mouse.buttons().testFlag(Qt::LeftButton)) return false;
  pointer_ = mouse.globalPosition().toPoint();
  const bool begins =
      pressedAt_ && (pointer_ - *pressedAt_).manhattanLength() >= QApplication::startDragDistance();
  if (begins && !IsDragging()) Begin();
  if (IsDragging()) Follow();
  // Moving with the button held down is a drag, so it must not select rows on its way.
  return true;
}

bool SegmentDrag::Release(const QMouseEvent& mouse) {
  if (mouse.button() != Qt::LeftButton) return IsDragging();
  pressedAt_.reset();
  if (!IsDragging()) return false;
  pointer_ = mouse.globalPosition().toPoint();
  End();
  for (RowList* target : targets_) {
    if (const int row = target->RowAt(pointer_); row > 0) {
      Q_EMIT Dropped(target, row);
      break;
    }
  }
  return true;
}

void SegmentDrag::Begin() {
  const std::vector<int> rows = source_->SelectedRows();
  if (rows.empty()) return;
  const QString text = rows.size() == 1
                           ? source_->model()->index(rows.front() - 1, 0).data().toString()
                           : tr("%1 segments").arg(static_cast<qulonglong>(rows.size()));
  auto* image = new QLabel(text, source_->window());
  image->setTextFormat(Qt::PlainText);
  image->setFrameShape(QFrame::Box);
  image->setMargin(3);
  image->setAutoFillBackground(true);
  image->setBackgroundRole(QPalette::ToolTipBase);
  image->setForegroundRole(QPalette::ToolTipText);
  image->setAttribute(Qt::WA_TransparentForMouseEvents);
  image->adjustSize();
  image->show();
  image_ = image;
  QGuiApplication::setOverrideCursor(Qt::DragMoveCursor);
  scrolling_.start();
}

void SegmentDrag::Follow() {
  bool onRow = false;
  for (RowList* target : targets_) {
    const int row = target->RowAt(pointer_);
    target->ShowDropTarget(row);
    onRow = onRow || row > 0;
  }
  QGuiApplication::changeOverrideCursor(onRow ? Qt::DragMoveCursor : Qt::ForbiddenCursor);
  const QWidget* window = source_->window();
  QLabel* image = image_;
  if (!image) return;
  const QPoint wanted = window->mapFromGlobal(pointer_) + kImageOffset;
  image->move(std::min(wanted.x(), window->width() - image->width()),
              std::min(wanted.y(), window->height() - image->height()));
}

void SegmentDrag::Scroll() {
  for (RowList* target : targets_) {
    const QPoint position = target->viewport()->mapFromGlobal(pointer_);
    const QRect rows = target->viewport()->rect();
    if (!rows.contains(position)) continue;
    QScrollBar* bar = target->verticalScrollBar();
    if (position.y() < kScrollEdge) bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    if (position.y() > rows.height() - kScrollEdge) {
      bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    }
  }
  Follow();
}

/// Ends the drag, if any, and removes its traces.
void SegmentDrag::End() {
  pressedAt_.reset();
  if (!IsDragging()) return;
  scrolling_.stop();
  delete image_;
  QGuiApplication::restoreOverrideCursor();
  for (RowList* target : targets_) target->ShowDropTarget(0);
}

}  // namespace orvex
