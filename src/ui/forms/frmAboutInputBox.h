#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmAboutInputBox;
}

namespace orvex {

class LiveObservation;

/// Takes what the running activity is about. Leaving it in any way keeps the text.
class frmAboutInputBox : public QDialog {
  Q_OBJECT

 public:
  explicit frmAboutInputBox(LiveObservation& live, QWidget* parent = nullptr);
  ~frmAboutInputBox() override;

  /// Copies what the observation says is shown into the controls.
  void Refresh();
  void setVisible(bool visible) override;

 private:
  LiveObservation& live_;
  std::unique_ptr<Ui::frmAboutInputBox> ui_;
};

}  // namespace orvex
