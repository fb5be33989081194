#pragma once

#include <QLabel>

namespace orvex {

/// A label for one line that may be too long for its place: its middle is left out then, and the
/// tool tip has all of it.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvex
