#include "app/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <array>
#include <optional>
#include <utility>

#include "export/named_file.h"

namespace orvex {
namespace {

std::filesystem::path PathOf(const QString& argument) {
  return QFile::encodeName(argument).toStdString();
}

std::vector<std::filesystem::path> PathsOf(const QStringList& arguments) {
  std::vector<std::filesystem::path> paths;
  for (const QString& argument : arguments) paths.push_back(PathOf(argument));
  return paths;
}

/// A parser that knows "--help".
class Parser {
 public:
  explicit Parser(const QString& description) {
    parser_.setApplicationDescription(description);
    parser_.addOption(help_);
    // "-platformtheme" is an option of Qt's, not a bundle of ours.
    parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  }

  QCommandLineParser& Qt() { return parser_; }
  QStringList Rest() const { return parser_.positionalArguments(); }
  bool IsSet(const QCommandLineOption& option) const { return parser_.isSet(option); }
  bool HelpIsSet() const { return parser_.isSet(help_); }
  std::string Help() const { return parser_.helpText().toStdString(); }

  /// What the arguments ask for whatever the command: its help, or a correction. Nothing when they
  /// are to be carried out.
  std::optional<Request> Parse(const QStringList& arguments) {
    const bool understood = parser_.parse(arguments);
    if (HelpIsSet()) return ShowText{Help()};
    if (!understood) return Mistake{parser_.errorText().toStdString()};
    return std::nullopt;
  }

 private:
  QCommandLineParser parser_;
  const QCommandLineOption help_{{QStringLiteral("h"), QStringLiteral("help")},
                                 QStringLiteral("Displays this help.")};
};

/// What a mistake is followed by.
Mistake MistakeIn(const QString& command, const QString& text) {
  return {(text + QStringLiteral("\nTry 'orvex %1 --help'.").arg(command)).toStdString()};
}

QCommandLineOption OutputOption() {
  return {QStringLiteral("output"), QStringLiteral("Writes into this folder, not the list's."),
          QStringLiteral("DIR")};
}

void AddListArguments(QCommandLineParser& parser, const QString& command, const QString& kinds,
                      const QString& what) {
  parser.addPositionalArgument(QStringLiteral("TABLE"), what, command + QLatin1Char(' ') + kinds);
  parser.addPositionalArgument(
      QStringLiteral("LIST.TXT"),
      QStringLiteral("Names an observation a line, like 5-12-3. The files lie beside it."),
      QStringLiteral("LIST.TXT"));
}

/// The table that is named by an argument.
template <typename Table>
using Named = std::pair<const char*, Table>;

template <typename Table, std::size_t count>
std::optional<Table> TableNamed(const QString& name, const std::array<Named<Table>, count>& all) {
  for (const auto& [known, table] : all) {
    if (name == QLatin1String(known)) return table;
  }
  return std::nullopt;
}

/// The rest of a command that is given a table and a list.
template <typename Command, typename Table, std::size_t count>
Request WithTableAndList(const QString& command, Parser& parser, Command options,
                         Table Command::*table, const std::array<Named<Table>, count>& all) {
  const QStringList rest = parser.Rest().mid(1);
  if (rest.size() != 2) return MistakeIn(command, QStringLiteral("A table and a list are needed."));
  const auto named = TableNamed(rest[0], all);
  if (!named) {
    return MistakeIn(command, QStringLiteral("There is no table '%1'.").arg(rest[0]));
  }
  options.*table = *named;
  options.list = PathOf(rest[1]);
  return options;
}

Request ReadExport(const QStringList& arguments) {
  constexpr std::array<Named<ExportKind>, 2> kTables = {
      {{"epsdata", ExportKind::epsData}, {"surdata", ExportKind::surData}}};
  const QString command = QStringLiteral("export");
  Parser parser(
      QStringLiteral("Joins the files of a list into EPSDATA.TXT or SURDATA.TXT.\n"
                     "Exit code: 0 done, 1 done without the files that were skipped,\n"
                     "2 not done, or ended by a bad file after the rows before it."));
  AddListArguments(parser.Qt(), command, QStringLiteral("epsdata|surdata"),
                   QStringLiteral("From episode files (.eps), or from survey files (.sur)."));
  const QCommandLineOption output = OutputOption();
  const QCommandLineOption keepGoing(
      QStringLiteral("keep-going"),
      QStringLiteral("Skips a missing or broken file, names it, and goes on."));
  parser.Qt().addOptions({output, keepGoing});
  if (auto request = parser.Parse(arguments)) return *request;
  ExportCommand options;
  options.output = PathOf(parser.Qt().value(output));
  options.keepGoing = parser.IsSet(keepGoing);
  return WithTableAndList(command, parser, options, &ExportCommand::kind, kTables);
}

Request ReadTable(const QStringList& arguments) {
  constexpr std::array<Named<TidyTable>, 3> kTables = {{{"questions", TidyTable::questions},
                                                        {"segments", TidyTable::segments},
                                                        {"episodes", TidyTable::episodes}}};
  const QString command = QStringLiteral("table");
  Parser parser(
      QStringLiteral("Makes a table for statistics programs from the episode files of a\n"
                     "list: questions.csv, segments.csv or episodes.csv, a row each.\n"
                     "Exit code: 0 done, 2 not done, or without files that could not be\n"
                     "read."));
  AddListArguments(parser.Qt(), command, QStringLiteral("questions|segments|episodes"),
                   QStringLiteral("What a row stands for."));
  const QCommandLineOption output = OutputOption();
  const QCommandLineOption codebook(
      QStringLiteral("codebook"),
      QStringLiteral("Also writes the table of the variables and their values beside it."));
  parser.Qt().addOptions({output, codebook});
  if (auto request = parser.Parse(arguments)) return *request;
  TableCommand options;
  options.output = PathOf(parser.Qt().value(output));
  options.codebook = parser.IsSet(codebook);
  return WithTableAndList(command, parser, options, &TableCommand::table, kTables);
}

void AddFilesArgument(QCommandLineParser& parser, const QString& command, const QString& what) {
  parser.addPositionalArgument(QStringLiteral("FILE"), what, command + QStringLiteral(" FILE..."));
}

Request ReadCheck(const QStringList& arguments) {
  const QString command = QStringLiteral("check");
  Parser parser(
      QStringLiteral("Names every question that is not fully coded, with its episode, its\n"
                     "number and the dimensions that are missing, and every statement of\n"
                     "a survey that has not been rated.\n"
                     "Exit code: 0 nothing is missing, 1 something is, 2 a file could not\n"
                     "be read."));
  AddFilesArgument(parser.Qt(), command, QStringLiteral("Episode (.eps) and survey (.sur) files."));
  if (auto request = parser.Parse(arguments)) return *request;
  const QStringList files = parser.Rest().mid(1);
  if (files.isEmpty()) return MistakeIn(command, QStringLiteral("A file is needed."));
  return CheckCommand{PathsOf(files)};
}

Request ReadReport(const QStringList& arguments) {
  const QString command = QStringLiteral("report");
  Parser parser(
      QStringLiteral("Writes the time summary of each file, and the question statistics\n"
                     "and the question plot of each of its episodes.\n"
                     "Exit code: 0 done, 2 a file could not be read."));
  AddFilesArgument(parser.Qt(), command, QStringLiteral("Episode files (.eps)."));
  const QCommandLineOption json(
      QStringLiteral("json"),
      QStringLiteral("For programs: one JSON object a line for each file, with all that was read\n"
                     "and the survey file beside it."));
  parser.Qt().addOption(json);
  if (auto request = parser.Parse(arguments)) return *request;
  const QStringList files = parser.Rest().mid(1);
  if (files.isEmpty()) return MistakeIn(command, QStringLiteral("A file is needed."));
  return ReportCommand{PathsOf(files), parser.IsSet(json)};
}

struct CommandName {
  const char* name;
  Request (*read)(const QStringList& arguments);
};
constexpr std::array<CommandName, 4> kCommands = {
    {{"export", ReadExport}, {"check", ReadCheck}, {"report", ReadReport}, {"table", ReadTable}}};

const CommandName* CommandOf(const QStringList& arguments) {
  for (const CommandName& command : kCommands) {
    if (arguments.size() > 1 && arguments[1] == QLatin1String(command.name)) return &command;
  }
  return nullptr;
}

/// The command line of the window.
class WindowParser : public Parser {
 public:
  WindowParser()
      : Parser(QStringLiteral(
            "In-class analysis of classroom discourse.\n\n"
            "Without a command the main menu opens, or the file that is named. Commands:\n"
            "  export epsdata|surdata LIST.TXT              joins files into one table\n"
            "  table questions|segments|episodes LIST.TXT   makes a table for statistics\n"
            "  check FILE...                                tells what is not fully coded\n"
            "  report FILE...                               time summary, statistics, plots\n"
            "'orvex COMMAND --help' tells more.")),
        version_(Qt().addVersionOption()) {
    Qt().addPositionalArgument(QStringLiteral("FILE"),
                               QStringLiteral("An .eps, .sur or .nte file to be opened."),
                               QStringLiteral("[FILE]"));
  }
  bool VersionIsSet() const { return IsSet(version_); }

 private:
  const QCommandLineOption version_;
};

std::string VersionLine() {
  return (QCoreApplication::applicationName() + QLatin1Char(' ') +
          QCoreApplication::applicationVersion() + QLatin1Char('\n'))
      .toStdString();
}

Request ReadWindow(const QStringList& arguments) {
  WindowParser parser;
  auto request = parser.Parse(arguments);
  if (parser.VersionIsSet()) return ShowText{VersionLine()};
  if (request) return *request;
  const QStringList files = parser.Rest();
  if (files.isEmpty()) return OpenWindow{};
  if (files.size() > 1) {
    return Mistake{QStringLiteral("Unexpected argument '%1'.").arg(files[1]).toStdString()};
  }
  OpenWindow window{PathOf(files[0])};
  if (KindOf(window.file) == FileKind::other) {
    return Mistake{QStringLiteral("'%1' is neither a command nor an .eps, .sur or .nte file.")
                       .arg(files[0])
                       .toStdString()};
  }
  return window;
}

}  // namespace

bool IsCommand(const QStringList& arguments) {
  return CommandOf(arguments) != nullptr;
}

bool AsksForText(const QStringList& arguments) {
  WindowParser parser;
  parser.Parse(arguments);
  return parser.HelpIsSet() || parser.VersionIsSet();
}

Request ReadCommandLine(const QStringList& arguments) {
  const CommandName* command = CommandOf(arguments);
  return command ? command->read(arguments) : ReadWindow(arguments);
}

}  // namespace orvex
