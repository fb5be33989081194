#pragma once

#include <QWidget>
#include <memory>

#include "reports/time_summary.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmTimeSummary;
}

namespace orvex {

/// How long a class spent on each activity.
class frmTimeSummary : public QWidget {
  Q_OBJECT

 public:
  frmTimeSummary(const TimeSummary& summary, const Printing& printing, QWidget* parent = nullptr);
  ~frmTimeSummary() override;

  /// Nothing to do: the form never changes.
  void Refresh() {}

 Q_SIGNALS:
  /// The user leaves the form, which should be closed.
  void Menu();
  /// All reports on the class are to go into one file.
  void PrintAll();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ArrangeTables();
  void Fill(const TimeSummary& summary);

  std::unique_ptr<Ui::frmTimeSummary> ui_;
};

}  // namespace orvex
