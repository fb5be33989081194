#include "ui/forms/dlgFieldNote.h"

#include <QKeyEvent>

#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_dlgFieldNote.h"

namespace orvex {

dlgFieldNote::dlgFieldNote(const NotesPrompt& prompt, Prompter& prompter, QWidget* parent)
    : QDialog(parent),
      prompt_(prompt),
      prompter_(prompter),
      ui_(std::make_unique<Ui::dlgFieldNote>()) {
  ui_->setupUi(this);
  ui_->Text1->SetNotes(ToQt(prompt_.draft.value_or(prompt_.notes)));
  ui_->Text1->document()->setModified(prompt_.draft.has_value());
  connect(ui_->Text1, &QPlainTextEdit::textChanged, this, [this] {
    if (prompt_.typed) prompt_.typed(Text());
  });
  connect(ui_->OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->Command1, &QPushButton::clicked, this, &dlgFieldNote::Cancel);
  new FormKeys(this);
}

dlgFieldNote::~dlgFieldNote() = default;

std::optional<std::string> dlgFieldNote::Notes() const {
  if (cancelled_ || result() != Accepted) return std::nullopt;
  return Text();
}

std::string dlgFieldNote::Text() const {
  // The box cannot show every text exactly; notes that nobody edited must stay as they were.
  return ui_->Text1->document()->isModified() ? FromQt(ui_->Text1->Notes()) : prompt_.notes;
}

void dlgFieldNote::Cancel() {
  cancelled_ = true;
  if (prompt_.typed) prompt_.typed(prompt_.notes);
  accept();
}

void dlgFieldNote::Escape() {
  if (Text() == prompt_.notes) return Cancel();
  const Answer save = prompter_.Ask({.text = FromQt(tr("Save changes?")),
                                     .buttons = Buttons::yesNo,
                                     .defaultAnswer = Answer::yes,
                                     .dismissed = Answer::cancel});
  if (save == Answer::yes) accept();
  if (save == Answer::no) Cancel();
}

void dlgFieldNote::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel)) return Escape();
  QDialog::keyPressEvent(event);
}

void dlgFieldNote::setVisible(bool visible) {
  QDialog::setVisible(visible);
  if (!visible) return;
  ui_->Text1->setFocus();
  ui_->Text1->moveCursor(QTextCursor::End);
}

}  // namespace orvex
