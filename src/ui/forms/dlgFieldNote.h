#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

#include "desk/prompter.h"

namespace Ui {
class dlgFieldNote;
}

namespace orvex {

/// Edits field notes. The window's frame keeps what was typed as "&Save" does; "&Cancel" drops it,
/// and Escape asks which.
class dlgFieldNote : public QDialog {
  Q_OBJECT

 public:
  dlgFieldNote(const NotesPrompt& prompt, Prompter& prompter, QWidget* parent = nullptr);
  ~dlgFieldNote() override;

  /// The notes as edited, or nothing when they were cancelled or the dialog was not closed.
  std::optional<std::string> Notes() const;

  void setVisible(bool visible) override;
  /// The window's frame.
  void reject() override { accept(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::string Text() const;
  void Cancel();
  void Escape();

  const NotesPrompt prompt_;
  Prompter& prompter_;
  bool cancelled_ = false;
  std::unique_ptr<Ui::dlgFieldNote> ui_;
};

}  // namespace orvex
