#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstdio>
#include <filesystem>

#include "model/program.h"
#include "model/version.h"
#include "start/start_up.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "ui/Forms.h"
#include "ui/HeldKeys.h"
#include "ui/Logo.h"
#include "ui/QtClock.h"
#include "ui/QtPrompter.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr int kWrongUsage = 2;

void NameApplication() {
  QCoreApplication::setApplicationName(QStringLiteral("orvex"));
  QCoreApplication::setApplicationVersion(
      QStringLiteral("%1.%2.%3").arg(kVersionMajor).arg(kVersionMinor).arg(kVersionRevision));
}

void Print(std::FILE* stream, const QString& text) {
  std::fputs(FromQt(text).c_str(), stream);
}

/// What the command line asks for besides the window.
class CommandLine {
 public:
  explicit CommandLine(const QStringList& arguments) : version_(parser_.addVersionOption()) {
    parser_.setApplicationDescription(QStringLiteral("In-class analysis of classroom discourse."));
    parser_.addOption(help_);
    // "-platformtheme" is an option of Qt's, not a bundle of ours.
    parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    understood_ = parser_.parse(arguments);
  }

  bool AsksForText() const { return parser_.isSet(help_) || parser_.isSet(version_); }

  QString Text() const {
    if (parser_.isSet(help_)) return parser_.helpText();
    return QCoreApplication::applicationName() + QLatin1Char(' ') +
           QCoreApplication::applicationVersion() + QLatin1Char('\n');
  }

  QString Mistake() const {
    if (!understood_) return parser_.errorText();
    const QStringList rest = parser_.positionalArguments();
    return rest.isEmpty() ? QString() : QStringLiteral("Unexpected argument '%1'.").arg(rest[0]);
  }

 private:
  QCommandLineParser parser_;
  const QCommandLineOption help_{{QStringLiteral("h"), QStringLiteral("help")},
                                 QStringLiteral("Displays this help.")};
  const QCommandLineOption version_;
  bool understood_ = false;
};

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

int RunWindow() {
  Program program;
  Storage storage;
  const QtClock clock;
  SessionLog log(storage, clock);
  QtPrompter prompter;
  const std::filesystem::path programFolder = ProgramFolder(storage, ThisInstallation());
  Forms forms(program, log, storage, clock, prompter, programFolder);
  forms.Show(Screen::mainMenu);
  SettleDataPath(program, programFolder);
  return QApplication::exec();
}

int Main(int argc, char* argv[]) {
  NameApplication();
  {
    // Help and version need no display, which a QApplication would insist on.
    const QCoreApplication application(argc, argv);
    const CommandLine commandLine(QCoreApplication::arguments());
    if (commandLine.AsksForText()) {
      Print(stdout, commandLine.Text());
      return 0;
    }
  }
  const QApplication application(argc, argv);
  QApplication::setWindowIcon(Logo::Icon());
  HeldKeys heldKeys;
  qApp->installEventFilter(&heldKeys);
  // Qt has taken its own options off the arguments by now; what is left must be the program's.
  const CommandLine commandLine(QCoreApplication::arguments());
  if (const QString mistake = commandLine.Mistake(); !mistake.isEmpty()) {
    Print(stderr, mistake + QLatin1Char('\n'));
    return kWrongUsage;
  }
  return RunWindow();
}

}  // namespace
}  // namespace orvex

int main(int argc, char* argv[]) {
  return orvex::Main(argc, argv);
}
