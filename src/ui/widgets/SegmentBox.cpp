#include "ui/widgets/SegmentBox.h"

#include <QLineEdit>

namespace orvex {

SegmentBox::SegmentBox(QWidget* parent) : QAbstractSpinBox(parent) {
  lineEdit()->setObjectName(QStringLiteral("txtSegNum"));
}

void SegmentBox::EnableSteps(bool up, bool down) {
  const StepEnabled steps = (up ? StepUpEnabled : StepNone) | (down ? StepDownEnabled : StepNone);
  if (steps == steps_) return;
  steps_ = steps;
  update();
}

}  // namespace orvex
