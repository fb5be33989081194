#include "ui/QtPrompter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>

#include "ui/AccessKeys.h"
#include "ui/forms/dlgDivideTime.h"
#include "ui/forms/dlgFieldNote.h"
#include "ui/forms/dlgUnfinished.h"
#include "ui/forms/frmAdjust.h"
#include "ui/forms/frmChooseQAs.h"
#include "ui/forms/frmOfftask.h"
#include "ui/text.h"
#include "ui/widgets/FitToScreen.h"

namespace orvex {
namespace {

constexpr int kInputWidth = 480;  // wide enough for a path

/// The window to ask in front of: the active one or, while the user works in another program, any
/// visible one.
QWidget* ParentWindow() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() == Qt::Window) return window;
  }
  return nullptr;
}

/// Runs `dialog`. Closing it never counts as closing the last form, even when no form is shown.
int Run(QDialog& dialog) {
  dialog.setAttribute(Qt::WA_QuitOnClose, false);
  FitToScreen(dialog);
  return dialog.exec();
}

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok:
      break;
    case Buttons::okCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::yesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::okYesNoCancel:
      return QMessageBox::Ok | QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
  switch (answer) {
    case Answer::ok:
      break;
    case Answer::cancel:
      return QMessageBox::Cancel;
    case Answer::yes:
      return QMessageBox::Yes;
    case Answer::no:
      return QMessageBox::No;
  }
  return QMessageBox::Ok;
}

/// The answer given by closing the box without pressing a button.
Answer Refusal(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok:
      break;
    case Buttons::yesNo:
      return Answer::no;
    case Buttons::okCancel:
    case Buttons::yesNoCancel:
    case Buttons::okYesNoCancel:
      return Answer::cancel;
  }
  return Answer::ok;
}

QMessageBox::Icon IconOf(const Message& message) {
  if (!message.details.empty()) return QMessageBox::Warning;
  return message.buttons == Buttons::ok ? QMessageBox::Information : QMessageBox::Question;
}

/// Stops plain letters from pressing the buttons of a box, as Qt would let them. Boxes with
/// captions of their own either discard something or appear unasked while the user is typing;
/// there, a button needs Alt.
class PlainLettersPressNothing : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool plain = !(key->modifiers() & (Qt::AltModifier | Qt::ControlModifier));
    return plain && key->text().size() == 1 && key->text().at(0).isLetterOrNumber();
  }
};

/// Lets the user choose a file in `dialog`.
ChosenFile Choose(QFileDialog& dialog, const FilePrompt& prompt) {
  // Use Qt's own dialog: a native one does not tell which folder the user ended in.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setNameFilter(NameFilter(ToQt(prompt.filter)));
  const QString folder = ToQt(prompt.folder.string());
  if (QDir(folder).exists()) dialog.setDirectory(folder);
  if (!prompt.defaultName.empty()) dialog.selectFile(ToQt(prompt.defaultName));
  const bool chosen = Run(dialog) == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  if (!chosen) return {.path = {}, .folder = FromQt(dialog.directory().absolutePath())};
  const std::filesystem::path path = FromQt(dialog.selectedFiles().first());
  return {.path = path, .folder = path.parent_path()};
}

/// Adds a button that lets the user pick a folder as the text of `dialog`, which stays open.
void AddBrowseButton(QInputDialog& dialog) {
  auto* buttons = dialog.findChild<QDialogButtonBox*>();
  QPushButton* browse =
      buttons->addButton(QInputDialog::tr("&Browse..."), QDialogButtonBox::ActionRole);
  browse->setObjectName(QStringLiteral("cmdBrowse"));
  browse->setAutoDefault(false);
  QObject::connect(browse, &QPushButton::clicked, &dialog, [&dialog] {
    const std::filesystem::path folder = QtPrompter().AskFolder(FromQt(dialog.textValue()));
    if (!folder.empty()) dialog.setTextValue(ToQt(folder.string()));
  });
}

}  // namespace

Answer QtPrompter::Ask(const Message& message) {
  QMessageBox box(IconOf(message), ToQt(message.title), ToQt(message.text),
                  ButtonsOf(message.buttons), ParentWindow());
  box.setInformativeText(ToQt(message.details));
  // Show file names literally, even if they look like markup.
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  for (const auto& [answer, caption] : message.captions) {
    if (QAbstractButton* button = box.button(ButtonOf(answer)))
      button->setText(WithAccessKey(caption));
  }
  if (!message.captions.empty()) box.installEventFilter(new PlainLettersPressNothing(&box));
  box.setDefaultButton(ButtonOf(message.defaultAnswer));
  const Answer dismissed = message.dismissed.value_or(Refusal(message.buttons));
  if (!box.standardButtons().testFlag(ButtonOf(dismissed))) {
    box.addButton(ButtonOf(dismissed))->hide();  // stands for Escape and closing the window
  }
  box.setEscapeButton(ButtonOf(dismissed));
  const int pressed = Run(box);
  for (const Answer answer : {Answer::ok, Answer::cancel, Answer::yes, Answer::no}) {
    if (pressed == ButtonOf(answer)) return answer;
  }
  return dismissed;
}

std::optional<std::string> QtPrompter::AskText(const TextPrompt& prompt) {
  QInputDialog dialog(ParentWindow());
  dialog.setInputMode(QInputDialog::TextInput);
  dialog.setWindowTitle(ToQt(prompt.title));
  dialog.setLabelText(ToQt(prompt.text));
  dialog.setTextValue(ToQt(prompt.defaultText));
  dialog.resize(kInputWidth, dialog.sizeHint().height());  // also creates the dialog's controls
  if (prompt.isFolder) AddBrowseButton(dialog);
  if (Run(dialog) != QDialog::Accepted) return std::nullopt;
  return FromQt(dialog.textValue());
}

QString NameFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i < parts.size(); i += 2) {
    const QString label = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    QStringList patterns;
    for (const QString& pattern : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
      patterns << pattern.trimmed().toUpper() << pattern.trimmed().toLower();
    }
    filters << label + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
  return filters.join(QLatin1String(";;"));
}

bool QtPrompter::AskOfftask(OfftaskPrompt& prompt) {
  frmOfftask dialog(prompt, ParentWindow());
  return Run(dialog) == QDialog::Accepted;
}

std::optional<int> QtPrompter::AskSeconds(const SecondsPrompt& prompt) {
  frmAdjust dialog(prompt, ParentWindow());
  if (Run(dialog) != QDialog::Accepted) return std::nullopt;
  return dialog.Seconds();
}

std::optional<std::string> QtPrompter::AskNotes(const NotesPrompt& prompt) {
  dlgFieldNote dialog(prompt, *this, ParentWindow());
  Run(dialog);
  return dialog.Notes();
}

std::optional<int> QtPrompter::AskDivision(int totalSeconds) {
  dlgDivideTime dialog(totalSeconds, ParentWindow());
  if (Run(dialog) != QDialog::Accepted) return std::nullopt;
  return dialog.SecondSeconds();
}

std::optional<std::vector<int>> QtPrompter::AskQuestions(const Episode& episode) {
  frmChooseQAs dialog(episode, ParentWindow());
  if (Run(dialog) != QDialog::Accepted) return std::nullopt;
  return dialog.SecondNumbers();
}

ChosenFile QtPrompter::AskFile(const FilePrompt& prompt) {
  QFileDialog dialog(ParentWindow());
  dialog.setFileMode(QFileDialog::ExistingFile);
  return Choose(dialog, prompt);
}

std::filesystem::path QtPrompter::AskFolder(const std::filesystem::path& start) {
  QFileDialog dialog(ParentWindow());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  const QString folder = ToQt(start.string());
  if (QDir(folder).exists()) dialog.setDirectory(folder);
  if (Run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return FromQt(dialog.selectedFiles().first());
}

std::optional<UnfinishedChoice> QtPrompter::AskUnfinished(
    const std::vector<UnfinishedItem>& items) {
  dlgUnfinished dialog(items, ParentWindow());
  if (Run(dialog) != QDialog::Accepted) return std::nullopt;
  return dialog.Choice();
}

ChosenFile QtPrompter::AskSaveFile(const FilePrompt& prompt) {
  QFileDialog dialog(ParentWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  // Adds the extension before the dialog checks whether the file exists: the last one in
  // "EPS files (*.EPS *.eps)".
  const auto endWith = [&dialog](const QString& filter) {
    dialog.setDefaultSuffix(filter.section(QLatin1Char('.'), -1).chopped(1));
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, endWith);
  endWith(NameFilter(ToQt(prompt.filter)).section(QLatin1String(";;"), 0, 0));
  return Choose(dialog, prompt);
}

}  // namespace orvex
