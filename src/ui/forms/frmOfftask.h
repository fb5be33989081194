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

/// Takes an off-task estimate.
class frmOfftask : public QDialog {
  Q_OBJECT

 public:
  /// Works on the texts of `prompt`.
  explicit frmOfftask(OfftaskPrompt& prompt, QWidget* parent = nullptr);
  ~frmOfftask() override;

  /// Copies what the dialog's logic says is shown into the controls.
  void Refresh();
  void setVisible(bool visible) override;
  /// OK; only with two numbers.
  void accept() override;
  /// Skip, also by the window's frame.
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
  std::unique_ptr<BoxFocus> boxFocus_;  // last: it must not see the dialog go down
};

}  // namespace orvex
