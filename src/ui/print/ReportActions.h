#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <utility>

#include "ui/print/ReportPrinter.h"

class QKeyEvent;
class QScrollArea;
class QWidget;

namespace orvex {

class PrintedReport;

/// The keys of every report: Ctrl+P prints it, Ctrl+C copies it as text, Escape closes its form,
/// and the scroll keys work wherever the focus is. Where there are several of its kind, the Page
/// keys turn from one to the next.
class ReportActions : public QObject {
  Q_OBJECT

 public:
  /// Works for `form`, which owns this object. `area` is what scrolls, by most keys in direction
  /// `wide`.
  ReportActions(QWidget* form, const Printing& printing, QScrollArea* area, Qt::Orientation wide);
  ~ReportActions() override;

  /// What is printed, and what is copied.
  void Show(QString text, std::unique_ptr<PrintedReport> report);
  /// What the Page keys do instead of scrolling: `turn` gets -1 or 1.
  void TurnBy(std::function<void(int step)> turn) { turn_ = std::move(turn); }

  void Print();
  void Copy() const;

 private:
  bool Scroll(const QKeyEvent& key) const;

  QWidget* form_;
  std::function<void(int step)> turn_;
  QString text_;
  std::unique_ptr<PrintedReport> report_;
  Printing printing_;
  QScrollArea* area_;
  Qt::Orientation wide_;
};

}  // namespace orvex
