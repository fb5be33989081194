#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

#include "agreement/activity_agreement.h"

class QFontMetricsF;
class QPainter;
class QPalette;

namespace orvex {

class Comparison;

/// What two observers saw a class do over its time, one above the other; between them the stretches
/// in which they differ, and outside them their questions as ticks. It can be painted on the screen
/// and on paper. Times are in seconds from the begin of the first observer's class.
class ActivityChart {
  Q_DECLARE_TR_FUNCTIONS(ActivityChart)

 public:
  ActivityChart() = default;
  explicit ActivityChart(const Comparison& comparison);

  double Height(const QFontMetricsF& metrics) const;
  void Paint(QPainter& painter, const QRectF& area, const QPalette& palette) const;

  /// The stretches in which the two differ.
  const std::vector<SharedStretch>& Differing() const { return differing_; }
  /// Says when a stretch is, and what each observer saw.
  QString TextOf(const SharedStretch& stretch) const;
  /// Says what both saw at a place of `area`; "" outside the strips.
  QString TextAt(const QFontMetricsF& metrics, const QRectF& area, double x) const;
  /// Marks a stretch when painting; nothing for none.
  void Mark(std::optional<SharedStretch> stretch) { marked_ = stretch; }
  /// Where `stretch` is in `area`, from left to right.
  std::pair<double, double> PlaceOf(const QFontMetricsF& metrics, const QRectF& area,
                                    const SharedStretch& stretch) const;

 private:
  struct Tick {
    double second = 0;
    bool isPaired = false;
  };
  struct Observer {
    QString name;
    std::vector<ActivityStretch> stretches;
    std::vector<Tick> questions;
  };
  struct Places;

  Places Place(const QFontMetricsF& metrics, const QRectF& area) const;
  void PaintStrip(QPainter& painter, const Places& places, double top, const Observer& observer,
                  const QPalette& palette) const;
  void PaintTicks(QPainter& painter, const Places& places, double middle, const Observer& observer,
                  const QColor& ink) const;
  void PaintDiffering(QPainter& painter, const Places& places, const QColor& ink) const;
  void PaintAxis(QPainter& painter, const Places& places, const QColor& ink) const;
  void PaintLegend(QPainter& painter, const Places& places, const QPalette& palette) const;

  Observer first_;
  Observer second_;
  std::vector<SharedStretch> differing_;
  std::optional<SharedStretch> marked_;
  double begin_ = 0;
  double end_ = 0;
};

}  // namespace orvex
