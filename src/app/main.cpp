#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>
#include <filesystem>
#include <variant>

#include "app/command_line.h"
#include "app/run_command.h"
#include "export/named_file.h"
#include "model/program.h"
#include "model/version.h"
#include "observe/unended_class.h"
#include "start/field_notes_file.h"
#include "start/start_up.h"
#include "store/recovery_file.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "ui/Forms.h"
#include "ui/HeldKeys.h"
#include "ui/Logo.h"
#include "ui/QtClock.h"
#include "ui/QtPrompter.h"

namespace orvex {
namespace {

void NameApplication() {
  QCoreApplication::setApplicationName(QStringLiteral("orvex"));
  QCoreApplication::setApplicationVersion(
      QStringLiteral("%1.%2.%3").arg(kVersionMajor).arg(kVersionMinor).arg(kVersionRevision));
}

Installation ThisInstallation() {
  const QString executableFolder = QCoreApplication::applicationDirPath();
  const QString userFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  const auto path = [](const QString& name) {
    return std::filesystem::path(QFile::encodeName(name).toStdString());
  };
  return {.executableFolder = path(executableFolder),
          .executableFolderWritable = QFileInfo(executableFolder).isWritable(),
          .userFolder = path(userFolder) / "Orvex"};
}

/// Shows the form of `file`. False when it has none here, or could not be read.
bool ShowInForm(Program& program, Screens& screens, const std::filesystem::path& file) {
  const std::filesystem::path path = std::filesystem::absolute(file);
  const FileKind kind = KindOf(file);
  program.DataPath = path.parent_path();  // where it is saved again
  if (kind == FileKind::survey) return screens.ShowSurveyFile(path);
  return kind == FileKind::episodes && screens.ShowEpisodeEditor(path);
}

/// With `file` the program begins with its form.
int RunWindow(const std::filesystem::path& file) {
  Program program;
  Storage storage;
  const QtClock clock;
  SessionLog log(storage, clock);
  QtPrompter prompter;
  const std::filesystem::path programFolder = ProgramFolder(storage, ThisInstallation());
  RecoveryFile recovery(storage);
  Forms forms(program, log, recovery, storage, clock, prompter, programFolder);
  const Services services = {program, log, recovery, storage, clock, prompter, forms};
  const auto showMenu = [&] {
    forms.Show(Screen::mainMenu);
    SettleDataPath(program, programFolder);
    QTimer::singleShot(0, qApp, [services] { OfferUnendedClasses(services); });
  };
  if (file.empty() || !ShowInForm(program, forms, file)) showMenu();
  if (KindOf(file) == FileKind::fieldNotes) {
    EditFieldNotes(services, file);
  }
  return QApplication::exec();
}

int Main(int argc, char* argv[]) {
  NameApplication();
  {
    // Commands, help and version need no display, which a QApplication would insist on.
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (IsCommand(arguments) || AsksForText(arguments)) {
      return RunCommand(ReadCommandLine(arguments));
    }
  }
  const QApplication application(argc, argv);
  QApplication::setWindowIcon(Logo::Icon());
  HeldKeys heldKeys;
  qApp->installEventFilter(&heldKeys);
  // Qt has taken its own options off the arguments by now; what is left must be the program's.
  const Request request = ReadCommandLine(QCoreApplication::arguments());
  const auto* window = std::get_if<OpenWindow>(&request);
  return window ? RunWindow(window->file) : RunCommand(request);
}

}  // namespace
}  // namespace orvex

int main(int argc, char* argv[]) {
  return orvex::Main(argc, argv);
}
