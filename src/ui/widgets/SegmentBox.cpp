#include "ui/widgets/SegmentBox.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace orvex {

SegmentBox::SegmentBox(QWidget* parent) : QAbstractSpinBox(parent) {
  lineEdit()->setObjectName(QStringLiteral("txtSegNum"));
  setFocusPolicy(Qt::StrongFocus);
}

void SegmentBox::EnableSteps(bool up, bool down) {
  const StepEnabled steps = (up ? StepUpEnabled : StepNone) | (down ? StepDownEnabled : StepNone);
  if (steps == steps_) return;
  steps_ = steps;
  update();
}

void SegmentBox::wheelEvent(QWheelEvent* event) {
  // The wheel scrolls the form. It must not change a number unless the box has the focus.
  if (hasFocus()) {
    QAbstractSpinBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace orvex
