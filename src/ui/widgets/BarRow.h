#pragma once

#include <QWidget>
#include <vector>

#include "reports/question_statistics.h"

class QLabel;

namespace orvex {

/// A bar of the question statistics. It grows with its form and keeps its proportions. Its segments
/// are labels of their own, named after it ("Uptake1_2"), for whoever reads the form by its
/// controls; the bar draws them all, as on paper.
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

/// A sample of a colour of the legend.
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
