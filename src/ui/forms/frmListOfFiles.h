#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "tables/export_form.h"

namespace Ui {
class frmListOfFiles;
}

namespace orvex {

/// Joins the files of a list into EPSDATA.TXT or, as `frmListOfFilesSUR`, into SURDATA.TXT, and
/// shows the progress.
class frmListOfFiles : public QWidget {
  Q_OBJECT

 public:
  frmListOfFiles(const Services& services, ExportKind kind, const std::filesystem::path& listFile,
                 QWidget* parent = nullptr);
  ~frmListOfFiles() override;

  void Refresh();

 Q_SIGNALS:
  /// The work is done and the user has been told; the form should be closed.
  void Finished();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Tick();

  std::unique_ptr<Ui::frmListOfFiles> ui_;
  ExportForm export_;
  QTimer work_;
};

}  // namespace orvex
