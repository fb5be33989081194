#include "ui/forms/dlgLog.h"

#include <QFontDatabase>
#include <QShortcut>
#include <QTextCursor>
#include <QTextDocument>

#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/FitToScreen.h"
#include "ui_dlgLog.h"

namespace orvex {

dlgLog::dlgLog(const std::string& name, const std::string& text, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::dlgLog>()) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(tr("Session Log %1").arg(ToQt(name)));
  ui_->txtLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  ui_->txtLog->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  ui_->txtLog->SetNotes(ToQt(text));
  ui_->txtLog->moveCursor(QTextCursor::Start);
  connect(ui_->txtFind, &QLineEdit::textEdited, this, [this] { Find(From::here); });
  connect(ui_->cmdNext, &QPushButton::clicked, this, [this] { Find(From::behind); });
  connect(ui_->cmdPrevious, &QPushButton::clicked, this, [this] { Find(From::before); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  ConnectKeys();
  ui_->txtLog->setFocus();
  FitToScreen(*this);
}

dlgLog::~dlgLog() = default;

void dlgLog::ConnectKeys() {
  const auto key = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence(Qt::Key_F3), [this] { Find(From::behind); });
  key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { Find(From::before); });
  key(QKeySequence::Find, [this] {
    FocusVisibly(ui_->txtFind);
    ui_->txtFind->selectAll();
  });
  new FormKeys(this, {.own = [this](const QWidget* control, const QKeyEvent& pressed) {
                 if (control != ui_->txtFind || !IsEnter(pressed)) return false;
                 Find(pressed.modifiers() & Qt::ShiftModifier ? From::before : From::behind);
                 return true;
               }});
}

/// Selects the nearest place with the text in the box: the one selected now if it has it
/// (`From::here`), or else one behind or before it. Goes on at the other end of the log.
void dlgLog::Find(From from) {
  const QString text = ui_->txtFind->text();
  QTextCursor at = ui_->txtLog->textCursor();
  if (from == From::here) at.setPosition(at.selectionStart());
  const QTextDocument& log = *ui_->txtLog->document();
  const auto way = from == From::before ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  QTextCursor found = text.isEmpty() ? QTextCursor() : log.find(text, at, way);
  QString outcome;
  if (found.isNull() && !text.isEmpty()) {
    at.movePosition(from == From::before ? QTextCursor::End : QTextCursor::Start);
    found = log.find(text, at, way);
    outcome = found.isNull()         ? tr("Not found")
              : from == From::before ? tr("Again from the end")
                                     : tr("Again from the start");
  }
  ShowText(ui_->lblFound, outcome);
  at.clearSelection();
  ui_->txtLog->setTextCursor(found.isNull() ? at : found);
}

}  // namespace orvex
