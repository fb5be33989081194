#pragma once

#include <QScrollArea>

#include "reports/question_plot.h"

class QVBoxLayout;

namespace orvex {

/// The question plot. Its rows scroll; the headings beside them stay, and where the rows do not all
/// fit, the ruler stays beneath them.
class PlotArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit PlotArea(QWidget* parent = nullptr);

  void Show(const QuestionPlot& plot);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void BuildHeadings(int rowHeight);
  void PlaceHeadings();

  QWidget* frame_;     ///< what is seen of the headings
  QWidget* headings_;  ///< moves with the rows
  QWidget* rulerFrame_;
  QWidget* ruler_ = nullptr;  ///< moves with the columns
};

}  // namespace orvex
