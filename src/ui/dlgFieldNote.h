#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

namespace Ui {
class dlgFieldNote;
}

namespace orvex {

/// Edits field notes. However it is closed, what was typed is kept; only "&Cancel" drops it.
class dlgFieldNote : public QDialog {
  Q_OBJECT

 public:
  /// `notes`: lines separated by CR LF.
  explicit dlgFieldNote(const std::string& notes, QWidget* parent = nullptr);
  ~dlgFieldNote() override;

  /// The notes as edited, or nothing when they were cancelled.
  std::optional<std::string> Notes() const;

  void setVisible(bool visible) override;
  /// The window's frame and Escape.
  void reject() override { accept(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::string before_;
  bool cancelled_ = false;
  std::unique_ptr<Ui::dlgFieldNote> ui_;
};

}  // namespace orvex
