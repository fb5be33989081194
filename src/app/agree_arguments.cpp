#include <optional>
#include <utility>

#include "app/command_arguments.h"
#include "app/command_parser.h"
#include "study/file_kind.h"

namespace orvex {
namespace {

/// A whole number within a range, as the value of an option; nothing for any other text.
std::optional<int> NumberWithin(const QString& text, int least, int most) {
  bool isNumber = false;
  const int number = text.toInt(&isNumber);
  if (!isNumber || number < least || number > most) return std::nullopt;
  return number;
}

}  // namespace

Request ReadAgree(const QStringList& arguments) {
  const QString command = QStringLiteral("agree");
  CommandParser parser(
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
  const QStringList sources = parser.Operands();
  AgreeCommand options;
  options.sources = PathsOf(sources);
  // A survey or a log would stand for its observation, but who names one means something else.
  for (const QString& source : sources) {
    const FileKind kind = KindOf(PathOf(source));
    if (kind != FileKind::episodes && kind != FileKind::other) {
      return mistake(QStringLiteral("'%1' is not an episode file (.eps).").arg(source));
    }
  }
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

}  // namespace orvex
