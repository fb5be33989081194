#pragma once

#include "ui/widgets/CommandButton.h"

namespace orvex {

/// The button that asks for an off-task estimate, for an observer who looks at the class: large, in
/// colours that no theme has, and changing places as its caption blinks. It says how many estimates
/// are pending all the while.
class OfftaskButton : public CommandButton {
  Q_OBJECT

 public:
  explicit OfftaskButton(QWidget* parent = nullptr);

  void ShowPending(int count);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int pending_ = 0;
};

}  // namespace orvex
