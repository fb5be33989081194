#include "ui/widgets/ScrollingContent.h"

#include <QEvent>
#include <QVBoxLayout>

#include "ui/widgets/FitToScreen.h"
#include "ui/widgets/OfftaskButton.h"

namespace orvex {
namespace {

/// The sizes in the forms were chosen for a text of the usual size; a larger one needs more.
void LeaveRoomForText(const QWidget& window) {
  const QList<QWidget*> children = window.findChildren<QWidget*>();
  // What is inside first: it tells what is around it how much it needs.
  for (auto at = children.rbegin(); at != children.rend(); ++at) {
    QWidget* child = *at;
    const bool scrolls = qobject_cast<QAbstractScrollArea*>(child) != nullptr;
    if (scrolls || child->minimumSize().isNull()) continue;
    child->ensurePolished();
    const QSize least = child->minimumSize().expandedTo(child->minimumSizeHint());
    child->setMaximumSize(child->maximumSize().expandedTo(least));
    child->setMinimumSize(least);
  }
}

}  // namespace

ScrollingContent& ScrollingContent::Of(QWidget& window) {
  auto* own = window.findChild<ScrollingContent*>(QString(), Qt::FindDirectChildrenOnly);
  return own ? *own : *new ScrollingContent(window);
}

ScrollingContent::ScrollingContent(QWidget& window)
    : QScrollArea(&window), prompt_(window.findChild<OfftaskButton*>()) {
  LeaveRoomForText(window);
  QWidget* focused = window.focusWidget();
  // The content must never be a window of its own: the order of Tab would be lost.
  auto* content = new QWidget(viewport());
  setWidget(content);
  content->setLayout(window.layout());
  auto* outer = new QVBoxLayout(&window);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  outer->addWidget(this);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  if (focused) focused->setFocus();  // moving it has taken its focus
  // A scroll area would paint its content in the colours of a list.
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  content->installEventFilter(this);
  outer->activate();
  if (!prompt_) return;
  standIn_ = new OfftaskButton;
  standIn_->setFocusPolicy(Qt::NoFocus);
  standIn_->hide();
  outer->addWidget(standIn_, 0, Qt::AlignRight);
  standIn_->setObjectName(QStringLiteral("cmdOfftaskInSight"));
  connect(standIn_, &QPushButton::clicked, prompt_, &QPushButton::click);
  connect(prompt_, &OfftaskButton::Shown, this, &ScrollingContent::KeepPromptInSight);
}

QSize ScrollingContent::LeastSize() const {
  return widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
}

bool ScrollingContent::eventFilter(QObject* watched, QEvent* event) {
  const bool done = QScrollArea::eventFilter(watched, event);
  if (event->type() == QEvent::LayoutRequest && watched == widget()) Grow();
  return done;
}

void ScrollingContent::Grow() {
  QWidget& form = *window();
  if (!form.isVisible() || form.isMaximized() || form.isFullScreen()) return;
  const QSize wanted = form.size().expandedTo(LeastSize()).boundedTo(RoomFor(form));
  if (wanted.width() > form.width() || wanted.height() > form.height())
    form.resize(wanted.expandedTo(form.size()));
}

void ScrollingContent::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  // The layout that is being done would forget a change of its own.
  QMetaObject::invokeMethod(this, &ScrollingContent::KeepPromptInSight, Qt::QueuedConnection);
}

void ScrollingContent::scrollContentsBy(int dx, int dy) {
  QScrollArea::scrollContentsBy(dx, dy);
  KeepPromptInSight();
}

void ScrollingContent::KeepPromptInSight() {
  if (!prompt_) return;
  const QRect place(prompt_->mapTo(viewport(), QPoint()), prompt_->size());
  standIn_->ShowAs(*prompt_);
  standIn_->setVisible(prompt_->isVisible() && !viewport()->rect().contains(place));
}

}  // namespace orvex
