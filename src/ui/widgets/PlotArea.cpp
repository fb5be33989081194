#include "ui/widgets/PlotArea.h"

#include <QFrame>
#include <QGridLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/text.h"
#include "ui/widgets/PlotGrid.h"

namespace orvex {
namespace {

constexpr int kGap = 8;
constexpr int kSeparator = 7;
constexpr float kGuideStrength = 0.18F;

QFrame* SeparatorLine() {
  auto* line = new QFrame;
  line->setFrameStyle(QFrame::HLine | QFrame::Plain);
  line->setForegroundRole(QPalette::Mid);
  line->setFixedHeight(kSeparator);
  return line;
}

/// A label that paints one row of the plot.
class PlotRow : public QLabel {
 public:
  PlotRow(PlotGrid grid, const QString& row, int columns)
      : QLabel(row), grid_(std::move(grid)), columns_(columns) {
    setTextFormat(Qt::PlainText);
    // As high as the heading beside it.
    setFixedHeight(
        std::max(static_cast<int>(std::ceil(grid_.CellHeight())), fontMetrics().height()));
    setMinimumWidth(Width());
  }

  int Width() const { return static_cast<int>(std::ceil(columns_ * grid_.CellWidth())) + 1; }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    QColor guide = palette().color(QPalette::WindowText);
    painter.setPen(guide);
    const auto first = static_cast<int>(event->rect().left() / grid_.CellWidth());
    const auto last = static_cast<int>(event->rect().right() / grid_.CellWidth());
    const QString row = text();
    grid_.Paint(painter, QPointF(first * grid_.CellWidth(), 0),
                QStringView(row).mid(first, last - first + 1));
    guide.setAlphaF(kGuideStrength);
    painter.setPen(guide);
    grid_.PaintGuides(painter, QPointF(0, 0), columns_);
  }

  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const auto column = static_cast<int>(help.x() / grid_.CellWidth());
    const QString tip = column < columns_ ? PlotArea::tr("Question %1").arg(column + 1) : QString();
    QToolTip::showText(help.globalPos(), tip, this);
    return true;
  }

 private:
  PlotGrid grid_;
  int columns_;
};

/// The row of tens beneath the ruler.
PlotRow* TensOf(const QuestionPlot& plot, const PlotGrid& grid) {
  auto* row = new PlotRow(grid, ToQt(TensRow(plot.questions)), plot.columns);
  row->setAccessibleName(PlotArea::tr("the number of every tenth question"));
  row->setFixedWidth(row->Width());
  return row;
}

}  // namespace

PlotArea::PlotArea(QWidget* parent)
    : QScrollArea(parent),
      frame_(new QWidget(this)),
      headings_(new QWidget(frame_)),
      rulerFrame_(new QWidget(this)) {
  setWidgetResizable(true);
  setFocusPolicy(Qt::StrongFocus);
  rulerFrame_->setAutoFillBackground(true);
}

void PlotArea::Show(const QuestionPlot& plot) {
  const PlotGrid grid(PlotGrid::FixedFont());
  auto* rows = new QWidget;
  auto* layout = new QVBoxLayout(rows);
  layout->setContentsMargins(kGap, kGap, kGap, kGap);
  layout->setSpacing(0);
  int rowHeight = 0;
  for (const PlotGroup& group : kPlotGroups) {
    for (std::size_t i = group.first; i < group.first + group.rows; ++i) {
      auto* row = new PlotRow(grid, ToQt(plot.PlotRows[i]), plot.columns);
      row->setObjectName(QStringLiteral("Label2_%1").arg(i));
      row->setAccessibleName(ToQt(kPlotRowMeanings[i].name));
      rowHeight = row->height();
      if (i == kRulerRow) row->setFixedWidth(row->Width());
      layout->addWidget(row);
    }
    if (group.endsSection) layout->addWidget(SeparatorLine());
  }
  layout->addWidget(TensOf(plot, grid));
  layout->addStretch(1);
  horizontalScrollBar()->setSingleStep(static_cast<int>(std::ceil(grid.CellWidth())));
  verticalScrollBar()->setSingleStep(rowHeight);
  delete ruler_;
  ruler_ = new QWidget(rulerFrame_);
  auto* ruler = new QVBoxLayout(ruler_);
  ruler->setContentsMargins(0, 0, 0, 0);
  ruler->setSpacing(0);
  auto* digits = new PlotRow(grid, ToQt(plot.PlotRows[kRulerRow]), plot.columns);
  digits->setFixedWidth(digits->Width());
  ruler->addWidget(digits);
  ruler->addWidget(TensOf(plot, grid));
  ruler_->adjustSize();
  ruler_->show();
  setWidget(rows);
  if (!headings_->layout()) BuildHeadings(rowHeight);
  PlaceHeadings();
}

void PlotArea::BuildHeadings(int rowHeight) {
  auto* layout = new QGridLayout(headings_);
  layout->setContentsMargins(kGap, kGap, kGap, kGap);
  layout->setHorizontalSpacing(kGap);
  layout->setVerticalSpacing(0);
  int line = 0;
  for (std::size_t i = 0; i < kPlotGroups.size(); ++i) {
    const PlotGroup& group = kPlotGroups[i];
    auto* heading = new QLabel(ToQt(group.heading));
    heading->setObjectName(QStringLiteral("Label3_%1").arg(i));
    heading->setFixedHeight(rowHeight);
    layout->addWidget(heading, line, 0);
    for (std::size_t row = group.first; row < group.first + group.rows; ++row) {
      auto* letter = new QLabel(ToQt(kPlotRowMeanings[row].letter));
      letter->setFixedHeight(rowHeight);
      letter->setToolTip(ToQt(kPlotRowMeanings[row].name));
      layout->addWidget(letter, line, 1);
      ++line;
    }
    if (group.endsSection) layout->addWidget(SeparatorLine(), line++, 0, 1, 2);
  }
  layout->setRowStretch(line, 1);
  setViewportMargins(headings_->sizeHint().width(), 0, 0, 0);
}

void PlotArea::PlaceHeadings() {
  const QRect seen = viewport()->geometry();
  frame_->setGeometry(frameWidth(), seen.top(), seen.left() - frameWidth(), seen.height());
  const int height = widget() ? std::max(widget()->height(), seen.height()) : seen.height();
  headings_->setGeometry(0, -verticalScrollBar()->value(), frame_->width(), height);
  const bool cut = verticalScrollBar()->maximum() > 0;
  rulerFrame_->setVisible(cut && ruler_);
  if (!cut || !ruler_) return;
  rulerFrame_->setGeometry(seen.left(), seen.bottom() + 1 - ruler_->height(), seen.width(),
                           ruler_->height());
  ruler_->move(kGap - horizontalScrollBar()->value(), 0);
}

void PlotArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  PlaceHeadings();
}

void PlotArea::scrollContentsBy(int dx, int dy) {
  QScrollArea::scrollContentsBy(dx, dy);
  PlaceHeadings();
}

}  // namespace orvex
