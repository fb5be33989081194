#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>
#include <vector>

#include "study/study_picture.h"
#include "ui/picture/PictureFormat.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmStudyPicture;
}

namespace orvex {

/// Many classes beneath each other, sorted by what one likes. The Page keys turn the pages.
class frmStudyPicture : public QWidget {
  Q_OBJECT

 public:
  /// Pictures are first offered to be saved in `folder`.
  frmStudyPicture(std::vector<PictureRow> rows, std::filesystem::path folder,
                  const Printing& printing, QWidget* parent = nullptr);
  ~frmStudyPicture() override;

  void Refresh();

 Q_SIGNALS:
  /// The form is left, by its button or otherwise, and is to be closed.
  void Back();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Sort();
  void Turn(int step);
  void Print();
  void Copy() const;
  void SaveAs();
  /// All pages as PDF, the one that is shown in another format.
  QByteArray File(PictureFormat format) const;

  std::unique_ptr<Ui::frmStudyPicture> ui_;
  std::vector<PictureRow> rows_;
  std::filesystem::path folder_;
  Printing printing_;
};

}  // namespace orvex
