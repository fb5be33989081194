#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "app/command_arguments.h"
#include "app/command_parser.h"

namespace orvex {
namespace {

QCommandLineOption OutputOption() {
  return {
      QStringLiteral("output"),
      QStringLiteral("Writes into this folder, or with '-' to the standard output. Otherwise a "
                     "table goes into the folder that is the source, or that holds the list; from "
                     "several sources, files and '-' into the current one."),
      QStringLiteral("DIR")};
}

/// The mistake of an output without a name, as a script's empty variable makes it.
std::optional<Request> MistakeInOutput(const QString& command, const CommandParser& parser,
                                       const QCommandLineOption& output) {
  if (!parser.IsSet(output) || !parser.Value(output).isEmpty()) return std::nullopt;
  return MistakeIn(command, QStringLiteral("--output needs a folder, or '-'."));
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

}  // namespace

Request ReadExport(const QStringList& arguments) {
  constexpr std::array<Named<ExportKind>, 2> kTables = {
      {{"epsdata", ExportKind::epsData}, {"surdata", ExportKind::surData}}};
  const QString command = QStringLiteral("export");
  const QString kinds = QStringLiteral("epsdata|surdata");
  CommandParser parser(
      command, kinds + QLatin1Char(' ') + kSources,
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
  const QStringList rest = parser.Operands();
  if (rest.size() < 2) {
    return MistakeIn(command, QStringLiteral("A table and a source are needed."));
  }
  const auto kind = ThingNamed(rest[0], kTables);
  if (!kind) return MistakeIn(command, QStringLiteral("There is no table '%1'.").arg(rest[0]));
  options.kind = *kind;
  options.sources = PathsOf(rest.mid(1));
  return options;
}

Request ReadTable(const QStringList& arguments) {
  const QString command = QStringLiteral("table");
  const QString kinds = QStringLiteral("TABLE");
  CommandParser parser(
      command, kinds + QLatin1Char(' ') + kSources,
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
  if (auto request = parser.Parse(WithCodebookKinds(command, arguments), codebook.names()))
    return *request;
  if (auto mistake = MistakeInOutput(command, parser, output)) return *mistake;
  const auto mistake = [&](const QString& text) { return MistakeIn(command, text); };
  const QStringList rest = parser.Operands();
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

}  // namespace orvex
