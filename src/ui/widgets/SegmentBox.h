#pragma once

#include <QAbstractSpinBox>

namespace orvex {

/// A box for a segment number with a spin control. It accepts any text; the logic decides what a
/// text or a step means.
class SegmentBox : public QAbstractSpinBox {
  Q_OBJECT

 public:
  explicit SegmentBox(QWidget* parent = nullptr);

  QLineEdit* Box() const { return lineEdit(); }
  void EnableSteps(bool up, bool down);
  void stepBy(int steps) override { Q_EMIT Stepped(steps); }

 Q_SIGNALS:
  void Stepped(int steps);

 protected:
  StepEnabled stepEnabled() const override { return steps_; }

 private:
  StepEnabled steps_ = StepNone;
};

}  // namespace orvex
