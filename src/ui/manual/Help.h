#pragma once

#include <QObject>
#include <QPointer>
#include <filesystem>

#include "desk/services.h"
#include "ui/print/ReportPrinter.h"

namespace orvex {

class dlgKeys;
class dlgManual;

/// What the program explains of itself: the manual (F1, at the chapter of the form that has the
/// focus), the keys of that form (F2), and what it is. Its windows may stay open while a form is
/// used; they never keep the program from ending.
class Help : public QObject {
 public:
  /// `manualFolder` holds the chapters. Watches the keys of the whole application.
  Help(const Services& services, std::filesystem::path manualFolder);
  ~Help() override;
  Help(const Help&) = delete;
  Help& operator=(const Help&) = delete;

  /// Shows the manual at the chapter about `form`, and returns at once.
  void ShowManual(const QWidget* form);
  void ShowKeys(const QWidget& form);
  /// Says which program this is and where its things are. Returns when the user closes it.
  void ShowAbout();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Services services_;
  Printing printing_;
  std::filesystem::path manualFolder_;
  QPointer<dlgManual> manual_;
  QPointer<dlgKeys> keys_;
};

}  // namespace orvex
