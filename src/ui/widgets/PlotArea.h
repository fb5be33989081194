#pragma once

#include <QScrollArea>

#include "reports/question_plot.h"

class QVBoxLayout;

namespace orvex {

/// Shows the question plot. The rows scroll; the headings stay beside them, and the ruler stays
/// beneath them when not all rows fit.
class PlotArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit PlotArea(QWidget* parent = nullptr);

  /// Shows this plot in the place of another one.
  void Show(const QuestionPlot& plot);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void BuildHeadings(int rowHeight);
  void PlaceHeadings();

  QWidget* frame_;     ///< the visible part of the headings
  QWidget* headings_;  ///< moves with the rows
  QWidget* rulerFrame_;
  QWidget* ruler_ = nullptr;  ///< moves with the columns
};

}  // namespace orvex
