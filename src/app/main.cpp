#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <variant>

#include "app/command_line.h"
#include "app/run_command.h"
#include "commands/named_file.h"
#include "model/program.h"
#include "model/version.h"
#include "recovery/recovery_file.h"
#include "start/start_up.h"
#include "store/durable_file.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "study/problem.h"
#include "ui/EndOfSession.h"
#include "ui/Forms.h"
#include "ui/OnceInUse.h"
#include "ui/QtClock.h"
#include "ui/QtPrompter.h"
#include "ui/keys/HeldKeys.h"
#include "ui/widgets/Logo.h"
#include "ui/widgets/ReadablePalette.h"

namespace orvex {
namespace {

void NameApplication() {
  QCoreApplication::setApplicationName(QStringLiteral("orvex"));
  QCoreApplication::setApplicationVersion(QString::fromStdString(FullVersionText()));
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

bool HasForm(FileKind kind) {
  return kind == FileKind::episodes || kind == FileKind::survey;
}

/// Opens the file of `window` in its form, or its agreement with the second one. False when one
/// cannot be read.
bool ShowInForm(Program& program, Screens& screens, const OpenWindow& window) {
  const std::filesystem::path path = std::filesystem::absolute(window.file);
  if (!window.second.empty()) {
    return screens.ShowAgreement(path, std::filesystem::absolute(window.second), std::nullopt);
  }
  if (window.picture) return screens.ShowReport(path, Screen::classPicture);
  const FileKind kind = KindOf(window.file);
  program.DataPath = path.parent_path();  // so that it is saved back to its own folder
  if (kind == FileKind::survey) return screens.ShowSurveyFile(path, Kept::areOffered);
  return screens.ShowEpisodeEditor(path, Kept::areOffered);
}

/// Runs the program in its window until it ends and returns the exit code. Starts with the form of
/// the window's file, or with the main menu when that has no form or cannot be read.
int RunWindow(const OpenWindow& window) {
  Program program;
  Storage storage;
  const QtClock clock;
  SessionLog log(storage, clock);
  QtPrompter prompter;
  const std::filesystem::path programFolder = ProgramFolder(storage, ThisInstallation());
  RecoveryFile recovery(storage);
  Forms forms(program, log, recovery, storage, clock, prompter, programFolder);
  const Services services = {program, log,      recovery, storage,
                             clock,   prompter, forms,    programFolder};
  const EndOfSession endOfSession([&forms] { forms.KeepAll(); }, [&forms] { forms.EndProgram(); });
  const FileKind kind = KindOf(window.file);
  // The agreement and the picture lead to the main menu.
  if (!window.second.empty() || window.picture) SettleDataPath(program, programFolder);
  const bool shown = HasForm(kind) && ShowInForm(program, forms, window);
  if (!shown) {
    forms.Show(Screen::mainMenu);
    SettleDataPath(program, programFolder);
    // The offer must wait for the notes dialog; otherwise it would receive the keys meant for the
    // notes.
    if (kind == FileKind::fieldNotes)
      forms.ShowFieldNotes(std::filesystem::absolute(window.file), Kept::areOffered);
    OnceInUse(*qApp, [services] { OfferAllUnfinished(services); });
  }
  // A question asked above runs an event loop of its own, in which the program may already have
  // ended.
  const int code = forms.IsEnding() ? EXIT_SUCCESS : QApplication::exec();
  return HasForm(kind) && !shown ? kFailed : code;
}

/// Reads the arguments. A file that cannot be read counts as a mistake in them.
Request ReadRequest(int argc, char* argv[]) {
  const QStringList arguments = ArgumentsOf(argc, argv);
  const QCoreApplication application(argc, argv);
  const Request request = ReadCommandLine(arguments);
  const auto* window = std::get_if<OpenWindow>(&request);
  if (!window || window->file.empty()) return request;
  const auto problem = ProblemOf(window->file, [&] {
    ReadFileStart(window->file, 1);
    if (!window->second.empty()) ReadFileStart(window->second, 1);
  });
  return problem ? Mistake{problem->Text()} : request;
}

/// A message handler that exits with an explanation; without a display Qt would abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::fputs(
      "No display could be opened for the window.\n"
      "'orvex --help' names the commands that need none.\n",
      stderr);
  std::_Exit(kFailed);
}

int Main(int argc, char* argv[]) {
  NameApplication();
  // Only the window needs a display. Creating a QApplication would require one in every case.
  const Request request = ReadRequest(argc, argv);
  const auto* window = std::get_if<OpenWindow>(&request);
  if (!window) return RunCommand(request);
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QGuiApplication::setDesktopFileName(QStringLiteral("orvex"));  // whose icon the desktop shows
  QApplication::setPalette(ReadablePalette(QApplication::palette()));
  QApplication::setWindowIcon(Logo::Icon());
  HeldKeys heldKeys;
  qApp->installEventFilter(&heldKeys);
  return RunWindow(*window);
}

}  // namespace
}  // namespace orvex

int main(int argc, char* argv[]) {
  return orvex::Main(argc, argv);
}
