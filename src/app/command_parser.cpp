#include "app/command_parser.h"

#include <QCoreApplication>

#include "store/printable_text.h"

namespace orvex {
namespace {

const QString kProgram = QStringLiteral("orvex");

/// The bytes of an argument as `ArgumentsOf` made it. Our own texts are ASCII and come out
/// unchanged.
std::string BytesOf(const QString& text) {
  return text.toLatin1().toStdString();
}

std::string VersionLine() {
  return BytesOf(kProgram + QLatin1Char(' ') + QCoreApplication::applicationVersion() +
                 QLatin1Char('\n'));
}

}  // namespace

std::filesystem::path PathOf(const QString& argument) {
  return BytesOf(argument);
}

std::vector<std::filesystem::path> PathsOf(const QStringList& arguments) {
  std::vector<std::filesystem::path> paths;
  for (const QString& argument : arguments) paths.push_back(PathOf(argument));
  return paths;
}

Mistake MistakeIn(const QString& command, const QString& text) {
  const QString program = command.isEmpty() ? kProgram : kProgram + QLatin1Char(' ') + command;
  return {Printable(BytesOf(text)) + BytesOf(QStringLiteral("\nTry '%1 --help'.").arg(program))};
}

CommandParser::CommandParser(const QString& command, const QString& operands,
                             const QString& description)
    : command_(command), operands_(operands) {
  parser_.setApplicationDescription(description);
  parser_.addOptions({help_, version_});
  // Qt's options have one dash and several letters: "-platformtheme" is not a bundle of short
  // options.
  parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
}

std::optional<Request> CommandParser::Parse(const QStringList& arguments,
                                            const QStringList& repeatable) {
  const bool understood = parser_.parse(arguments);
  if (parser_.isSet(help_)) return ShowText{Help()};
  if (parser_.isSet(version_)) return ShowText{VersionLine()};
  if (!understood) return MistakeIn(command_, parser_.errorText());
  // The last value would hold, and nobody would learn that the others were not heeded. What is not
  // a command's is Qt's, which takes the last.
  const QStringList names = command_.isEmpty() ? QStringList() : parser_.optionNames();
  for (const QString& name : names) {
    if (parser_.values(name).size() > 1 && !repeatable.contains(name)) {
      return MistakeIn(command_, QStringLiteral("--%1 can be given once only.").arg(name));
    }
  }
  if (operands_ == kSources && Operands().isEmpty()) {
    return MistakeIn(command_, QStringLiteral("A source is needed."));
  }
  return std::nullopt;
}

/// Qt's help text with a first line of our own: Qt would put the options before the command.
std::string CommandParser::Help() const {
  QStringList usage = {QStringLiteral("Usage:"), kProgram, command_, QStringLiteral("[options]"),
                       operands_};
  usage.removeAll(QString());
  const QString text = parser_.helpText();
  return BytesOf(usage.join(QLatin1Char(' ')) + text.mid(text.indexOf(QLatin1Char('\n'))));
}

QCommandLineOption FolderOption(const QString& name) {
  return {name, QStringLiteral("Writes into this folder instead of the current one."),
          QStringLiteral("DIR")};
}

std::optional<Request> MistakeInFolder(const QString& command, const CommandParser& parser,
                                       const QCommandLineOption& folder) {
  if (!parser.IsSet(folder) || !parser.Value(folder).isEmpty()) return std::nullopt;
  return MistakeIn(command, QStringLiteral("--%1 needs a folder.").arg(folder.names().first()));
}

void AddSources(QCommandLineParser& parser, const QString& files) {
  parser.addPositionalArgument(
      QStringLiteral("SOURCE"),
      files +
          QStringLiteral(
              "; folders, with all that are in them, in the order of the numbers; lists with an "
              "observation a line, like 5-12-3, whose files lie beside the list; '-' for a list "
              "from the standard input."));
}

}  // namespace orvex
