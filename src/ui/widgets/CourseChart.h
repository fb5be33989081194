#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QString>
#include <chrono>
#include <utility>
#include <vector>

#include "agreement/observers.h"

class QFontMetricsF;
class QPainter;
class QPalette;

namespace orvex {

/// Kappa over the days of a study, a small plot for each observer, all of them on the same scales.
/// It can be painted on the screen and on paper.
class CourseChart {
  Q_DECLARE_TR_FUNCTIONS(CourseChart)

 public:
  CourseChart() = default;
  explicit CourseChart(std::vector<KappaCourse> courses);

  /// The plots stand in rows, as many beside each other as there is room for.
  int Rows(const QFontMetricsF& metrics, double width) const;
  static double HeightOfRow(const QFontMetricsF& metrics);
  void PaintRow(QPainter& painter, const QRectF& area, int row, const QPalette& palette) const;
  static double LeastWidth(const QFontMetricsF& metrics);
  /// What the plots show, a line for each observer.
  QString Text() const;

 private:
  using Day = std::chrono::sys_days;

  static QString CaptionOf(const KappaCourse& course);
  void PaintPlot(QPainter& painter, const QRectF& area, const KappaCourse& course,
                 const QPalette& palette) const;
  void PaintScales(QPainter& painter, const QRectF& plot, const QPalette& palette) const;
  QPointF PlaceOf(const QRectF& plot, const KappaOfDay& point) const;

  std::vector<KappaCourse> courses_;
  double lowest_ = 0;  ///< where the scale of kappa begins
  Day first_{};
  Day last_{};
};

}  // namespace orvex
