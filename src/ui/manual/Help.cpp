#include "ui/manual/Help.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <utility>

#include "start/about_program.h"
#include "ui/manual/ManualPlaces.h"
#include "ui/manual/dlgAbout.h"
#include "ui/manual/dlgKeys.h"
#include "ui/manual/dlgManual.h"

namespace orvex {
namespace {

/// `widget`'s form: a window of the program's own, over which a message or a file dialog may lie.
const QWidget* FormOf(const QWidget* widget) {
  const QWidget* window = widget ? widget->window() : nullptr;
  while (window && !ExplainedForms().contains(window->objectName()) && window->parentWidget()) {
    window = window->parentWidget()->window();
  }
  return window;
}

QString PageOfKeys(const std::filesystem::path& manualFolder) {
  QFile file(QFile::decodeName((manualFolder / "keys.md").c_str()));
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Shows `window`, and leads back to the form that was used when it is closed.
void ShowBeside(QDialog& window) {
  const QPointer<QWidget> used = QApplication::activeWindow();
  if (used != &window) {
    QObject::connect(&window, &QDialog::finished, &window, [used] {
      if (used) used->activateWindow();
    });
  }
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

Help::Help(const Services& services, std::filesystem::path manualFolder)
    : services_(services),
      printing_{services.prompter, services.storage},
      manualFolder_(std::move(manualFolder)) {
  qApp->installEventFilter(this);
}

Help::~Help() {
  delete keys_;
  delete manual_;
}

bool Help::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.modifiers() != Qt::NoModifier) return false;
  const auto* widget = static_cast<const QWidget*>(watched);
  if (key.key() == Qt::Key_F1) {
    ShowManual(FormOf(widget));
    return true;
  }
  if (key.key() != Qt::Key_F2 || widget->window() == keys_) return false;
  if (const QWidget* form = FormOf(widget)) ShowKeys(*form);
  return true;
}

void Help::ShowManual(const QWidget* form) {
  // While a dialog waits for an answer, only its own windows take keys.
  QWidget* modal = QApplication::activeModalWidget();
  if (manual_ && manual_ != modal && manual_->parentWidget() != modal) delete manual_;
  if (!manual_) {
    manual_ = new dlgManual(manualFolder_, printing_, modal);
    QObject::connect(manual_, &dlgManual::AboutWanted, this, &Help::ShowAbout);
  }
  ShowBeside(*manual_);
  // Only a window that is shown knows how far it can scroll.
  manual_->Open(ManualPlaceOf(form ? form->objectName() : QString()).chapter);
}

void Help::ShowKeys(const QWidget& form) {
  delete keys_;
  const QString page = SectionOf(PageOfKeys(manualFolder_), ManualPlaceOf(form.objectName()).keys);
  keys_ = new dlgKeys(form, page, QApplication::activeModalWidget());
  keys_->setAttribute(Qt::WA_DeleteOnClose);
  ShowBeside(*keys_);
}

void Help::ShowAbout() {
  dlgAbout(AboutProgram(services_, manualFolder_), QApplication::activeWindow()).exec();
}

}  // namespace orvex
