#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>
#include <string>

#include "reports/class_picture.h"
#include "ui/picture/PictureFormat.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmClassPicture;
}

namespace orvex {

struct LoggedClass;

/// A class on one page. The question that is marked stands beneath it.
class frmClassPicture : public QWidget {
  Q_OBJECT

 public:
  /// `file` is the class's; pictures are first offered to be saved beside it.
  frmClassPicture(LoggedClass shown, std::filesystem::path file, const Printing& printing,
                  QWidget* parent = nullptr);
  ~frmClassPicture() override;

  void Refresh();
  /// Whether questions can be opened; they can unless this says otherwise.
  void AllowOpening(bool allowed);

 Q_SIGNALS:
  /// The form is left, by its button or otherwise, and is to be closed.
  void Back();
  /// A question is to be opened, number `question` of `episode`, both counted from 1, which reads
  /// `text`.
  void OpenQuestion(int episode, int question, const std::string& text);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QString TextOf(const ClassPicture::QuestionTick& tick) const;
  void Open();
  void Print();
  void PrintAll();
  void Copy() const;
  void SaveAs();
  /// What is shown of the class, as a file.
  QByteArray File(PictureFormat format) const;

  std::unique_ptr<Ui::frmClassPicture> ui_;
  std::unique_ptr<LoggedClass> shown_;
  std::filesystem::path file_;
  Printing printing_;
};

}  // namespace orvex
