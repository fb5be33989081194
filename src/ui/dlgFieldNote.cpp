#include "ui/dlgFieldNote.h"

#include "ui/show.h"
#include "ui/text.h"
#include "ui_dlgFieldNote.h"

namespace orvex {

dlgFieldNote::dlgFieldNote(const std::string& notes, QWidget* parent)
    : QDialog(parent), before_(notes), ui_(std::make_unique<Ui::dlgFieldNote>()) {
  ui_->setupUi(this);
  ui_->Text1->setPlainText(ToQt(notes).replace(QLatin1String("\r\n"), QLatin1String("\n")));
  ui_->Text1->document()->setModified(false);
  ui_->Text1->installEventFilter(this);
  connect(ui_->OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->Command1, &QPushButton::clicked, this, [this] {
    cancelled_ = true;
    accept();
  });
}

dlgFieldNote::~dlgFieldNote() = default;

std::optional<std::string> dlgFieldNote::Notes() const {
  if (cancelled_) return std::nullopt;
  // What the box cannot show as it is stays as it is while nobody edits it.
  if (!ui_->Text1->document()->isModified()) return before_;
  // The raw text: the plain one has blanks for no-break spaces.
  return FromQt(ui_->Text1->document()->toRawText().replace(QChar::ParagraphSeparator,
                                                            QLatin1String("\r\n")));
}

bool dlgFieldNote::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && IsSpareMnemonic(*static_cast<QKeyEvent*>(event))) {
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void dlgFieldNote::setVisible(bool visible) {
  QDialog::setVisible(visible);
  if (!visible) return;
  ui_->Text1->setFocus();
  ui_->Text1->moveCursor(QTextCursor::End);
}

}  // namespace orvex
