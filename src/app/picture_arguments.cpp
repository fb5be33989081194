#include <QStringList>
#include <string>
#include <string_view>

#include "app/command_arguments.h"
#include "app/command_parser.h"
#include "study/file_kind.h"

namespace orvex {
namespace {

/// The ids of schemes: "svg|pdf|png".
template <typename Schemes>
QString IdsOf(const Schemes& schemes, const QString& between) {
  QStringList ids;
  for (const auto& scheme : schemes) {
    ids.append(QString::fromUtf8(scheme.id.data(), static_cast<qsizetype>(scheme.id.size())));
  }
  return ids.join(between);
}

}  // namespace

Request ReadPicture(const QStringList& arguments) {
  const QString command = QStringLiteral("picture");
  CommandParser parser(
      command, kSources,
      QStringLiteral("Makes a page of each class, 5-12-3.svg and so on, with its activities,\n"
                     "questions and estimates in time; or with --study one of all classes.\n"
                     "A picture that is there already is replaced.\n"
                     "Exit code: 0 done, 2 not done, or without files that could not be\n"
                     "read."));
  AddSources(parser.Qt(), QStringLiteral("Episode files (.eps)"));
  const QCommandLineOption output = FolderOption(QStringLiteral("output"));
  const QCommandLineOption format(
      QStringLiteral("format"),
      QStringLiteral(
          "For the web and for editing (svg, which may be left out), for paper (pdf), or "
          "of pixels (png)."),
      IdsOf(kPictureFormats, QStringLiteral("|")));
  const QCommandLineOption study(
      QStringLiteral("study"),
      QStringLiteral("Puts all classes beneath each other on one axis, study.svg. Where they need "
                     "several pages, study-1.svg and so on; a PDF file holds them all."));
  const QCommandLineOption sort(
      QStringLiteral("sort"),
      QStringLiteral("Of a study: by what the classes are sorted, which is %1. Otherwise by name.")
          .arg(IdsOf(kRowOrders, QStringLiteral(", "))),
      QStringLiteral("KEY"));
  const QCommandLineOption window(
      QStringLiteral("window"),
      QStringLiteral("Of one file: shows its page in a window. Goes with no other option."));
  parser.Qt().addOptions({output, format, study, sort, window});
  if (auto request = parser.Parse(arguments)) return *request;
  if (auto wrong = MistakeInFolder(command, parser, output)) return *wrong;
  const auto mistake = [&](const QString& text) { return MistakeIn(command, text); };
  if (parser.IsSet(window)) {
    const QString file = parser.Operands().first();
    const bool isOne = parser.Operands().size() == 1 && parser.Qt().optionNames().size() == 1;
    if (!isOne || KindOf(PathOf(file)) != FileKind::episodes) {
      return mistake(
          QStringLiteral("--window goes with one episode file (.eps) and nothing else."));
    }
    return OpenWindow{.file = PathOf(file), .picture = true};
  }
  PictureCommand options;
  options.sources = PathsOf(parser.Operands());
  options.output = PathOf(parser.Value(output));
  options.study = parser.IsSet(study);
  if (parser.IsSet(format)) {
    const auto named = PictureFormatNamed(parser.Value(format).toStdString());
    if (!named) {
      return mistake(QStringLiteral("There is no format '%1'.").arg(parser.Value(format)));
    }
    options.format = *named;
  }
  if (parser.IsSet(sort)) {
    const auto named = RowOrderNamed(parser.Value(sort).toStdString());
    if (!options.study) return mistake(QStringLiteral("--sort goes with --study."));
    if (!named) {
      return mistake(QStringLiteral("Classes cannot be sorted by '%1'.").arg(parser.Value(sort)));
    }
    options.order = *named;
  }
  return options;
}

}  // namespace orvex
