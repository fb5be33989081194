#pragma once

#include <QLabel>

namespace orvex {

/// A label for one line. A line too long for its place loses its middle; the tooltip shows all of
/// it.
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
