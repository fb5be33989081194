#pragma once

#include <QDialog>
#include <memory>

#include "observe/offtask_dialog.h"

class QLineEdit;
namespace Ui {
class frmOfftask;
}

namespace orvex {

class BoxFocus;

/// The dialog for an off-task estimate.
class frmOfftask : public QDialog {
  Q_OBJECT

 public:
  /// Edits the texts of `prompt`.
  explicit frmOfftask(OfftaskPrompt& prompt, QWidget* parent = nullptr);
  ~frmOfftask() override;

  /// Updates the controls from the dialog's logic.
  void Refresh();
  void setVisible(bool visible) override;
  /// OK; needs two valid numbers.
  void accept() override;
  /// Skip, or closing the window.
  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ConnectBox(QLineEdit* box, OfftaskDialog::Control control);
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  OfftaskDialog::Control ControlOf(const QObject* box) const;
  void Focus(const OfftaskDialog::Focus::Target& wish);

  OfftaskDialog dialog_;
  bool opened_ = false;
  std::unique_ptr<Ui::frmOfftask> ui_;
  std::unique_ptr<BoxFocus> boxFocus_;  // last, so it is destroyed first
};

}  // namespace orvex
