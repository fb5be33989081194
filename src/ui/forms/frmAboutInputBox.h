#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmAboutInputBox;
}

namespace orvex {

class LiveObservation;

/// Asks what the running activity is about. The text is kept however the user leaves.
class frmAboutInputBox : public QDialog {
  Q_OBJECT

 public:
  explicit frmAboutInputBox(LiveObservation& live, QWidget* parent = nullptr);
  ~frmAboutInputBox() override;

  /// Updates the controls from the observation.
  void Refresh();
  void setVisible(bool visible) override;

 private:
  LiveObservation& live_;
  std::unique_ptr<Ui::frmAboutInputBox> ui_;
};

}  // namespace orvex
