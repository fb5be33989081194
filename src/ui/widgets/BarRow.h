#pragma once

#include <QWidget>
#include <vector>

#include "reports/question_statistics.h"

class QLabel;

namespace orvex {

/// A bar of the question statistics. It grows with its form and keeps its proportions. Each segment
/// is also a label named after the bar ("Uptake1_2"), so that it can be found as a control; the bar
/// itself paints them all, just as on paper.
class BarRow : public QWidget {
  Q_OBJECT

 public:
  explicit BarRow(QWidget* parent = nullptr);

  void Show(const StatisticsRow& row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QRectF Bar() const;
  void PlaceSegments();

  StatisticsRow row_;
  std::vector<QLabel*> segments_;
};

/// A sample of one of the legend's colours.
class CodingSample : public QWidget {
  Q_OBJECT

 public:
  explicit CodingSample(QWidget* parent = nullptr);
  void Show(BarMeaning meaning);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  BarMeaning meaning_ = BarMeaning::none;
};

}  // namespace orvex
