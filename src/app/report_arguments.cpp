#include "app/command_arguments.h"
#include "app/command_parser.h"

namespace orvex {

Request ReadReport(const QStringList& arguments) {
  const QString command = QStringLiteral("report");
  CommandParser parser(
      command, kSources,
      QStringLiteral("Writes the time summary of each file, and the question statistics\n"
                     "and the question plot of each of its episodes.\n"
                     "Exit code: 0 done, 2 a file could not be read, or a PDF file not\n"
                     "be made."));
  AddSources(parser.Qt(), QStringLiteral("Episode files (.eps)"));
  const QCommandLineOption json(
      QStringLiteral("json"),
      QStringLiteral("For programs: one JSON object a line for each file, with all that was read "
                     "and the survey file beside it."));
  const QCommandLineOption pdf(
      QStringLiteral("pdf"),
      QStringLiteral("Instead makes a PDF file of each class, 5-12-3.pdf and so on, with its page, "
                     "all these reports, and its questions as a table. One that is there already "
                     "is replaced."));
  const QCommandLineOption output = FolderOption(QStringLiteral("output"));
  parser.Qt().addOptions({json, pdf, output});
  if (auto request = parser.Parse(arguments)) return *request;
  if (auto mistake = MistakeInFolder(command, parser, output)) return *mistake;
  const auto sources = PathsOf(parser.Operands());
  if (!parser.IsSet(pdf)) {
    if (parser.IsSet(output))
      return MistakeIn(command, QStringLiteral("--output goes with --pdf."));
    return ReportCommand{sources, parser.IsSet(json)};
  }
  if (parser.IsSet(json)) {
    return MistakeIn(command, QStringLiteral("Either --json or --pdf can be given."));
  }
  return ReportPdfCommand{sources, PathOf(parser.Value(output))};
}

}  // namespace orvex
