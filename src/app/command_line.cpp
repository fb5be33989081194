#include "app/command_line.h"

#include <QCommandLineParser>
#include <algorithm>
#include <array>
#include <string_view>

#include "app/command_arguments.h"
#include "app/command_parser.h"
#include "study/file_kind.h"

namespace orvex {
namespace {

struct CommandName {
  std::string_view name;
  Request (*read)(const QStringList& arguments);
};
constexpr std::array<CommandName, 6> kCommands = {{{"export", ReadExport},
                                                   {"check", ReadCheck},
                                                   {"report", ReadReport},
                                                   {"table", ReadTable},
                                                   {"agree", ReadAgree},
                                                   {"picture", ReadPicture}}};

/// Finds the command among the arguments; options may come before it. Null when there is none.
const CommandName* CommandOf(const QStringList& arguments) {
  for (const QString& argument : arguments.mid(1)) {
    if (argument.startsWith(QLatin1Char('-'))) continue;
    const auto command = std::ranges::find(kCommands, argument.toStdString(), &CommandName::name);
    return command == kCommands.end() ? nullptr : &*command;
  }
  return nullptr;
}

/// Options that Qt removes from the arguments itself when it opens a window.
QList<QCommandLineOption> QtOptions() {
  QList<QCommandLineOption> options;
  for (const char* name : {"platform", "platformpluginpath", "platformtheme", "plugin", "style",
                           "stylesheet", "display", "qwindowgeometry", "geometry", "qwindowtitle",
                           "title", "qwindowicon", "icon", "name", "session"}) {
    options.append({QLatin1String(name), QString(), QStringLiteral("VALUE")});
  }
  for (const char* name : {"reverse", "widgetcount", "nograb", "dograb"}) {
    options.append(QCommandLineOption(QLatin1String(name)));
  }
  for (QCommandLineOption& option : options) option.setFlags(QCommandLineOption::HiddenFromHelp);
  return options;
}

Request ReadWindow(const QStringList& arguments) {
  CommandParser parser(
      QString(), QStringLiteral("[FILE]"),
      QStringLiteral(
          "In-class analysis of classroom discourse.\n\n"
          "Without a command the main menu opens, or the file that is named. Commands:\n"
          "  export epsdata|surdata SOURCE...              joins files into one table\n"
          "  table all|questions|segments|... SOURCE...    makes tables for statistics\n"
          "  check SOURCE...                               tells what is not fully coded\n"
          "  report SOURCE...                              time summary, statistics, plots\n"
          "  agree FILE FILE, or agree SOURCE...           tells how far observers agree\n"
          "  picture SOURCE...                             shows each class on a page\n"
          "A source is a folder, a file, a list of observations, or '-'.\n"
          "'orvex COMMAND --help' tells more."));
  parser.Qt().addPositionalArgument(QStringLiteral("FILE"),
                                    QStringLiteral("An .eps, .sur or .nte file to be opened."));
  parser.Qt().addOptions(QtOptions());
  if (auto request = parser.Parse(arguments)) return *request;
  const QStringList files = parser.Rest();
  if (files.isEmpty()) return OpenWindow{};
  OpenWindow window{PathOf(files[0])};
  const FileKind kind = KindOf(window.file);
  if (kind == FileKind::other || kind == FileKind::sessionLog || kind == FileKind::keptClass) {
    return MistakeIn(
        QString(),
        QStringLiteral("'%1' is neither a command nor an .eps, .sur or .nte file.").arg(files[0]));
  }
  if (files.size() > 1) {
    return MistakeIn(QString(), QStringLiteral("Unexpected argument '%1'.").arg(files[1]));
  }
  return window;
}

}  // namespace

Request ReadCheck(const QStringList& arguments) {
  const QString command = QStringLiteral("check");
  CommandParser parser(
      command, kSources,
      QStringLiteral("Names every question that is not fully coded, with its episode, its\n"
                     "number and the dimensions that are missing, and every statement of\n"
                     "a survey that has not been rated.\n"
                     "Exit code: 0 nothing is missing, 1 something is, 2 a file could not\n"
                     "be read."));
  AddSources(parser.Qt(), QStringLiteral("Episode (.eps) and survey (.sur) files"));
  if (auto request = parser.Parse(arguments)) return *request;
  return CheckCommand{PathsOf(parser.Operands())};
}

QStringList ArgumentsOf(int argc, const char* const* argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLatin1(argv[i]));
  return arguments;
}

Request ReadCommandLine(const QStringList& arguments) {
  const CommandName* command = CommandOf(arguments);
  return command ? command->read(arguments) : ReadWindow(arguments);
}

}  // namespace orvex
