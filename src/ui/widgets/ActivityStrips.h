#pragma once

#include <QWidget>
#include <cstddef>
#include <optional>

#include "ui/widgets/ActivityChart.h"

namespace orvex {

/// The chart of both observers' activities in a form. Left and Right, Home and End go from one
/// stretch in which the two differ to another.
class ActivityStrips : public QWidget {
  Q_OBJECT

 public:
  explicit ActivityStrips(QWidget* parent = nullptr);

  void Show(ActivityChart chart);
  /// Marks the first stretch in which the observers saw these activities, if there is one.
  void GoTo(int first, int second);
  /// What the two saw in the stretch that is marked, or how many stretches there are.
  QString Text() const;

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// Another stretch is marked.
  void Moved();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QRectF Area() const;
  void Mark(std::optional<std::size_t> stretch);

  ActivityChart chart_;
  std::optional<std::size_t> marked_;  ///< a position in the differing stretches
};

}  // namespace orvex
