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

/// What every report offers: Ctrl+P prints it, Ctrl+C copies it as text, Escape closes its form,
/// and the keys that move through a text scroll it wherever the focus is.
class ReportActions : public QObject {
  Q_OBJECT

 public:
  /// For `form`, which owns it. `text` is what is copied; `area` what is scrolled: from page to
  /// page in the direction it is `wide` in.
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
