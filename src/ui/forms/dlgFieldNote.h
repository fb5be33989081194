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

/// Edits field notes. Closing the window keeps the typed text, like "&Save"; "&Cancel" discards it;
/// Escape asks.
class dlgFieldNote : public QDialog {
  Q_OBJECT

 public:
  dlgFieldNote(const NotesPrompt& prompt, Prompter& prompter, QWidget* parent = nullptr);
  ~dlgFieldNote() override;

  /// The edited notes; nothing when they were cancelled or the dialog is still open.
  std::optional<std::string> Notes() const;

  void setVisible(bool visible) override;
  /// Closing the window saves.
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
