#include "app/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "commands/named_file.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

const QString kProgram = QStringLiteral("orvex");
const QString kSources = QStringLiteral("SOURCE...");

/// The bytes of an argument as `ArgumentsOf` made it. Our own texts are ASCII and come out
/// unchanged.
std::string BytesOf(const QString& text) {
  return text.toLatin1().toStdString();
}

std::filesystem::path PathOf(const QString& argument) {
  return BytesOf(argument);
}

std::vector<std::filesystem::path> PathsOf(const QStringList& arguments) {
  std::vector<std::filesystem::path> paths;
  for (const QString& argument : arguments) paths.push_back(PathOf(argument));
  return paths;
}

/// A mistake in the arguments of `command`, which is empty for the window's own arguments.
Mistake MistakeIn(const QString& command, const QString& text) {
  const QString program = command.isEmpty() ? kProgram : kProgram + QLatin1Char(' ') + command;
  return {Printable(BytesOf(text)) + BytesOf(QStringLiteral("\nTry '%1 --help'.").arg(program))};
}

std::string VersionLine() {
  return BytesOf(kProgram + QLatin1Char(' ') + QCoreApplication::applicationVersion() +
                 QLatin1Char('\n'));
}

/// Parses the arguments of one command or of the window. Every parser knows "--help" and
/// "--version".
class Parser {
 public:
  Parser(const QString& command, const QString& operands, const QString& description)
      : command_(command), operands_(operands) {
    parser_.setApplicationDescription(description);
    parser_.addOptions({help_, version_});
    // Qt's options have one dash and several letters: "-platformtheme" is not a bundle of short
    // options.
    parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  }

  QCommandLineParser& Qt() { return parser_; }
  QStringList Rest() const { return parser_.positionalArguments(); }
  bool IsSet(const QCommandLineOption& option) const { return parser_.isSet(option); }
  QString Value(const QCommandLineOption& option) const { return parser_.value(option); }

  /// Handles what all commands have in common: requests for help or the version, and mistakes.
  /// Returns nothing when the arguments are fine and the command should run.
  std::optional<Request> Parse(const QStringList& arguments) {
    const bool understood = parser_.parse(arguments);
    if (parser_.isSet(help_)) return ShowText{Help()};
    if (parser_.isSet(version_)) return ShowText{VersionLine()};
    if (!understood) return MistakeIn(command_, parser_.errorText());
    return std::nullopt;
  }

 private:
  /// Qt's help text with a first line of our own: Qt would put the options before the command.
  std::string Help() const {
    QStringList usage = {QStringLiteral("Usage:"), kProgram, command_, QStringLiteral("[options]"),
                         operands_};
    usage.removeAll(QString());
    const QString text = parser_.helpText();
    return BytesOf(usage.join(QLatin1Char(' ')) + text.mid(text.indexOf(QLatin1Char('\n'))));
  }

  QString command_;
  QString operands_;
  QCommandLineParser parser_;
  const QCommandLineOption help_{{QStringLiteral("h"), QStringLiteral("help")},
                                 QStringLiteral("Displays this help.")};
  const QCommandLineOption version_{{QStringLiteral("v"), QStringLiteral("version")},
                                    QStringLiteral("Displays the program's version.")};
};

QCommandLineOption OutputOption() {
  return {
      QStringLiteral("output"),
      QStringLiteral("Writes into this folder, or with '-' to the standard output. Otherwise a "
                     "table goes into the folder that is the source, or that holds the list; from "
                     "several sources, files and '-' into the current one."),
      QStringLiteral("DIR")};
}

/// The mistake of an output without a name, as a script's empty variable makes it.
std::optional<Request> MistakeInOutput(const QString& command, const Parser& parser,
                                       const QCommandLineOption& output) {
  if (!parser.IsSet(output) || !parser.Value(output).isEmpty()) return std::nullopt;
  return MistakeIn(command, QStringLiteral("--output needs a folder, or '-'."));
}

/// Adds the operands that name observations. `files` says which files are taken: "Episode files".
void AddSources(QCommandLineParser& parser, const QString& files) {
  parser.addPositionalArgument(
      QStringLiteral("SOURCE"),
      files +
          QStringLiteral(
              "; folders, with all that are in them, in the order of the numbers; lists with an "
              "observation a line, like 5-12-3, whose files lie beside the list; '-' for a list "
              "from the standard input."));
}

/// Something and the name it has on the command line.
template <typename Thing>
using Named = std::pair<const char*, Thing>;

template <typename Thing, std::size_t count>
std::optional<Thing> ThingNamed(const QString& name, const std::array<Named<Thing>, count>& all) {
  for (const auto& [known, thing] : all) {
    if (name == QLatin1String(known)) return thing;
  }
  return std::nullopt;
}

Request ReadExport(const QStringList& arguments) {
  constexpr std::array<Named<ExportKind>, 2> kTables = {
      {{"epsdata", ExportKind::epsData}, {"surdata", ExportKind::surData}}};
  const QString command = QStringLiteral("export");
  const QString kinds = QStringLiteral("epsdata|surdata");
  Parser parser(command, kinds + QLatin1Char(' ') + kSources,
                QStringLiteral("Joins the files of observations into EPSDATA.TXT or SURDATA.TXT.\n"
                               "Exit code: 0 done, 1 done without the files that were skipped,\n"
                               "2 not done, or ended by a bad file after the rows before it."));
  parser.Qt().addPositionalArgument(
      kinds, QStringLiteral("From episode files (.eps), or from survey files (.sur)."));
  AddSources(parser.Qt(), QStringLiteral("Such files"));
  const QCommandLineOption output = OutputOption();
  const QCommandLineOption keepGoing(
      QStringLiteral("keep-going"),
      QStringLiteral("Skips a missing or broken file, names it, and goes on."));
  parser.Qt().addOptions({output, keepGoing});
  if (auto request = parser.Parse(arguments)) return *request;
  if (auto mistake = MistakeInOutput(command, parser, output)) return *mistake;
  ExportCommand options;
  options.output = PathOf(parser.Value(output));
  options.keepGoing = parser.IsSet(keepGoing);
  const QStringList rest = parser.Rest().mid(1);
  if (rest.size() < 2) {
    return MistakeIn(command, QStringLiteral("A table and a source are needed."));
  }
  const auto kind = ThingNamed(rest[0], kTables);
  if (!kind) return MistakeIn(command, QStringLiteral("There is no table '%1'.").arg(rest[0]));
  options.kind = *kind;
  options.sources = PathsOf(rest.mid(1));
  return options;
}

std::optional<CodebookKind> KindNamed(const QString& name) {
  constexpr std::array<Named<CodebookKind>, 3> kKinds = {
      {{"csv", CodebookKind::csv}, {"r", CodebookKind::r}, {"spss", CodebookKind::spss}}};
  return ThingNamed(name, kKinds);
}

/// The tables that `name` stands for: one of them, or all. None for any other name.
std::vector<TidyTable> TablesNamed(const QString& name) {
  if (name == QLatin1String("all")) return {kTidyTables.begin(), kTidyTables.end()};
  for (const TidyTable table : kTidyTables) {
    if (name.toStdString() == NameOf(table)) return {table};
  }
  return {};
}

/// Gives each "--codebook" its kind where that is left out, as Qt's options always have a value.
/// The word after it is the kind unless it can be something else of `command`.
QStringList WithCodebookKinds(const QString& command, QStringList arguments) {
  const auto isElse = [&](const QString& word) {
    std::error_code unknown;
    return word.startsWith(QLatin1Char('-')) || word == command || !TablesNamed(word).empty() ||
           std::filesystem::exists(PathOf(word), unknown);
  };
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    if (arguments[i] != QLatin1String("--codebook")) continue;
    const bool named =
        i + 1 < arguments.size() && (KindNamed(arguments[i + 1]) || !isElse(arguments[i + 1]));
    arguments[i] += QLatin1Char('=') + (named ? arguments.takeAt(i + 1) : QStringLiteral("csv"));
  }
  return arguments;
}

Request ReadTable(const QStringList& arguments) {
  const QString command = QStringLiteral("table");
  const QString kinds = QStringLiteral("TABLE");
  Parser parser(command, kinds + QLatin1Char(' ') + kSources,
                QStringLiteral("Makes tables for statistics programs, questions.csv and so on,\n"
                               "with a row for each question, segment, episode, observation or\n"
                               "survey; 'all' makes all of them.\n"
                               "Exit code: 0 done, 2 not done, or without files that could not be\n"
                               "read."));
  parser.Qt().addPositionalArgument(kinds, QStringLiteral("What a row stands for: 'questions', "
                                                          "'segments', 'episodes', 'observations' "
                                                          "or 'survey'; 'all' makes all tables."));
  AddSources(parser.Qt(), QStringLiteral("Episode files (.eps), or survey files (.sur)"));
  const QCommandLineOption output = OutputOption();
  const QCommandLineOption codebook(
      QStringLiteral("codebook"),
      QStringLiteral("Also describes the variables and their values beside each table: as a table "
                     "(csv, which may be left out), or as a script that reads the table with types "
                     "and labels into R (r) or SPSS (spss). Can be given several times."),
      QStringLiteral("csv|r|spss"));
  const QCommandLineOption format(
      QStringLiteral("format"),
      QStringLiteral("With 'all': 'sqlite' makes one database, study.sqlite, of all tables and "
                     "their codebook. Otherwise files (csv)."),
      QStringLiteral("csv|sqlite"));
  parser.Qt().addOptions({output, codebook, format});
  if (auto request = parser.Parse(WithCodebookKinds(command, arguments))) return *request;
  if (auto mistake = MistakeInOutput(command, parser, output)) return *mistake;
  const auto mistake = [&](const QString& text) { return MistakeIn(command, text); };
  const QStringList rest = parser.Rest().mid(1);
  if (rest.size() < 2) return mistake(QStringLiteral("A table and a source are needed."));
  TableCommand options;
  options.tables = TablesNamed(rest[0]);
  if (options.tables.empty())
    return mistake(QStringLiteral("There is no table '%1'.").arg(rest[0]));
  options.sources = PathsOf(rest.mid(1));
  options.output = PathOf(parser.Value(output));
  for (const QString& name : parser.Qt().values(codebook)) {
    const auto kind = KindNamed(name);
    if (!kind) return mistake(QStringLiteral("There is no codebook '%1'.").arg(name));
    options.codebooks.insert(*kind);
  }
  if (parser.IsSet(format)) {
    const QString name = parser.Value(format);
    options.sqlite = name == QLatin1String("sqlite");
    if (!options.sqlite && name != QLatin1String("csv")) {
      return mistake(QStringLiteral("There is no format '%1'.").arg(name));
    }
  }
  if (options.sqlite && options.tables.size() == 1) {
    return mistake(
        QStringLiteral("A database holds all tables: say 'all' instead of '%1'.").arg(rest[0]));
  }
  if (options.sqlite && !options.codebooks.empty()) {
    return mistake(QStringLiteral("A database has its codebook in it: leave '--codebook' out."));
  }
  if (options.output == kStandardOutput &&
      (options.tables.size() > 1 || !options.codebooks.empty())) {
    return mistake(QStringLiteral("The standard output takes one table, without a codebook."));
  }
  return options;
}

Request ReadCheck(const QStringList& arguments) {
  const QString command = QStringLiteral("check");
  Parser parser(
      command, kSources,
      QStringLiteral("Names every question that is not fully coded, with its episode, its\n"
                     "number and the dimensions that are missing, and every statement of\n"
                     "a survey that has not been rated.\n"
                     "Exit code: 0 nothing is missing, 1 something is, 2 a file could not\n"
                     "be read."));
  AddSources(parser.Qt(), QStringLiteral("Episode (.eps) and survey (.sur) files"));
  if (auto request = parser.Parse(arguments)) return *request;
  const QStringList sources = parser.Rest().mid(1);
  if (sources.isEmpty()) return MistakeIn(command, QStringLiteral("A source is needed."));
  return CheckCommand{PathsOf(sources)};
}

Request ReadReport(const QStringList& arguments) {
  const QString command = QStringLiteral("report");
  Parser parser(command, kSources,
                QStringLiteral("Writes the time summary of each file, and the question statistics\n"
                               "and the question plot of each of its episodes.\n"
                               "Exit code: 0 done, 2 a file could not be read."));
  AddSources(parser.Qt(), QStringLiteral("Episode files (.eps)"));
  const QCommandLineOption json(
      QStringLiteral("json"),
      QStringLiteral("For programs: one JSON object a line for each file, with all that was read "
                     "and the survey file beside it."));
  parser.Qt().addOption(json);
  if (auto request = parser.Parse(arguments)) return *request;
  const QStringList sources = parser.Rest().mid(1);
  if (sources.isEmpty()) return MistakeIn(command, QStringLiteral("A source is needed."));
  return ReportCommand{PathsOf(sources), parser.IsSet(json)};
}

/// A whole number within a range, as the value of an option; nothing for any other text.
std::optional<int> NumberWithin(const QString& text, int least, int most) {
  bool isNumber = false;
  const int number = text.toInt(&isNumber);
  if (!isNumber || number < least || number > most) return std::nullopt;
  return number;
}

Request ReadAgree(const QStringList& arguments) {
  const QString command = QStringLiteral("agree");
  Parser parser(
      command, kSources,
      QStringLiteral("Tells how far two observers of a class agree: two episode files are\n"
                     "compared as they are. Of any other sources, every two observations\n"
                     "of the same school, class and date are compared, and pooled.\n"
                     "Exit code: 0 done, 2 not done, or without files that could not be\n"
                     "read."));
  AddSources(parser.Qt(), QStringLiteral("Episode files (.eps)"));
  const QCommandLineOption json(
      QStringLiteral("json"),
      QStringLiteral(
          "For programs: one JSON object a line for each pair, and at the end of a study "
          "one with what is pooled."));
  const QCommandLineOption tolerance(
      QStringLiteral("tolerance"),
      QStringLiteral("By how many seconds the observers may be apart (%1).").arg(kUsualTolerance),
      QStringLiteral("SECONDS"));
  const QCommandLineOption offset(
      QStringLiteral("offset"),
      QStringLiteral("Of two files: how many seconds the second observer began after the first. "
                     "Otherwise as the session logs say."),
      QStringLiteral("SECONDS"));
  const QCommandLineOption pairs(
      QStringLiteral("pairs"),
      QStringLiteral("Of two files: takes the pairs of questions from this table instead of making "
                     "them."),
      QStringLiteral("FILE"));
  const QCommandLineOption savePairs(
      QStringLiteral("save-pairs"),
      QStringLiteral("Of two files: writes the pairs of questions as such a table."),
      QStringLiteral("FILE"));
  const QCommandLineOption csv(
      QStringLiteral("csv"),
      QStringLiteral("Of a study: also writes its tables, agreement_pairs.csv and so on, into this "
                     "folder."),
      QStringLiteral("DIR"));
  const QCommandLineOption window(
      QStringLiteral("window"),
      QStringLiteral(
          "Of two files: shows the agreement in its window. Goes with no other option."));
  parser.Qt().addOptions({json, tolerance, offset, pairs, savePairs, csv, window});
  if (auto request = parser.Parse(arguments)) return *request;
  const auto mistake = [&](const QString& text) { return MistakeIn(command, text); };
  const QStringList sources = parser.Rest().mid(1);
  if (sources.isEmpty()) return mistake(QStringLiteral("A source is needed."));
  AgreeCommand options;
  options.sources = PathsOf(sources);
  options.json = parser.IsSet(json);
  if (parser.IsSet(window)) {
    if (!options.IsOfTwo() || parser.Qt().optionNames().size() > 1) {
      return mistake(
          QStringLiteral("--window goes with two episode files (.eps), and no other option."));
    }
    return OpenWindow{options.sources[0], options.sources[1]};
  }
  if (parser.IsSet(tolerance)) {
    const auto seconds = NumberWithin(parser.Value(tolerance), 0, kMostTolerance);
    if (!seconds) {
      return mistake(QStringLiteral("--tolerance needs a whole number of seconds from 0 to %1.")
                         .arg(kMostTolerance));
    }
    options.options.tolerance = *seconds;
  }
  if (parser.IsSet(offset)) {
    options.options.offset = NumberWithin(parser.Value(offset), -kMostOffset, kMostOffset);
    if (!options.options.offset) {
      return mistake(QStringLiteral("--offset needs a whole number of seconds from -%1 to %1.")
                         .arg(kMostOffset));
    }
  }
  for (const auto& [option, path] : {std::pair(&pairs, &options.pairs),
                                     {&savePairs, &options.savePairs},
                                     {&csv, &options.csv}}) {
    if (!parser.IsSet(*option)) continue;
    *path = PathOf(parser.Value(*option));
    if (path->empty()) {
      return mistake(QStringLiteral("--%1 needs a name.").arg(option->names().constFirst()));
    }
  }
  for (const QCommandLineOption* option : {&offset, &pairs, &savePairs}) {
    if (parser.IsSet(*option) && !options.IsOfTwo()) {
      return mistake(QStringLiteral("--%1 goes with two episode files (.eps).")
                         .arg(option->names().constFirst()));
    }
  }
  if (parser.IsSet(csv) && options.IsOfTwo()) {
    return mistake(QStringLiteral("--csv goes with a study, not with two episode files."));
  }
  return options;
}

struct CommandName {
  std::string_view name;
  Request (*read)(const QStringList& arguments);
};
constexpr std::array<CommandName, 5> kCommands = {{{"export", ReadExport},
                                                   {"check", ReadCheck},
                                                   {"report", ReadReport},
                                                   {"table", ReadTable},
                                                   {"agree", ReadAgree}}};

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
  Parser parser(
      QString(), QStringLiteral("[FILE]"),
      QStringLiteral(
          "In-class analysis of classroom discourse.\n\n"
          "Without a command the main menu opens, or the file that is named. Commands:\n"
          "  export epsdata|surdata SOURCE...              joins files into one table\n"
          "  table all|questions|segments|... SOURCE...    makes tables for statistics\n"
          "  check SOURCE...                               tells what is not fully coded\n"
          "  report SOURCE...                              time summary, statistics, plots\n"
          "  agree FILE FILE, or agree SOURCE...           tells how far observers agree\n"
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
