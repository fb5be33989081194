#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "ui/print/ReportPrinter.h"

class QKeyEvent;
class QScrollArea;
class QWidget;

namespace orvex {

class PrintedReport;

/// The keys of every report: Ctrl+P prints it, Ctrl+C copies it as text, Escape closes its form,
/// and the scroll keys work wherever the focus is.
class ReportActions : public QObject {
  Q_OBJECT

 public:
  /// Works for `form`, which owns this object. `text` is what gets copied; `area` is what scrolls.
  /// Page keys scroll it in direction `wide`.
  ReportActions(QWidget* form, QString text, std::unique_ptr<PrintedReport> report,
                const Printing& printing, QScrollArea* area, Qt::Orientation wide);
  ~ReportActions() override;

  void Print();
  void Copy() const;

 private:
  bool Scroll(const QKeyEvent& key) const;

  QWidget* form_;
  QString text_;
  std::unique_ptr<PrintedReport> report_;
  Printing printing_;
  QScrollArea* area_;
  Qt::Orientation wide_;
};

}  // namespace orvex
