#pragma once

#include <QWidget>

#include "ui/widgets/CourseChart.h"

namespace orvex {

/// The chart of courses in a form: as wide as its place, and as high as its rows of plots.
class CourseArea : public QWidget {
  Q_OBJECT

 public:
  explicit CourseArea(QWidget* parent = nullptr);

  void Show(CourseChart chart);
  const CourseChart& Chart() const { return chart_; }

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  CourseChart chart_;
};

}  // namespace orvex
