#pragma once

#include "ui/widgets/CommandButton.h"

namespace orvex {

/// The button that asks for an off-task estimate. It has to be noticed by an observer who is
/// watching the class: it is large, has colours that no theme uses, and inverts them as its caption
/// blinks. It always shows how many estimates are pending.
class OfftaskButton : public CommandButton {
  Q_OBJECT

 public:
  explicit OfftaskButton(QWidget* parent = nullptr);

  void ShowPending(int count);
  /// Shows the caption and the number of `other`.
  void ShowAs(const OfftaskButton& other);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  /// What it shows has been brought up to date.
  void Shown();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int pending_ = 0;
};

}  // namespace orvex
