#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/command_line.h"

namespace orvex {

/// The operands of a command that takes sources and nothing else; one at least is needed.
inline const QString kSources = QStringLiteral("SOURCE...");

/// The path that an argument names, as `ArgumentsOf` made it.
std::filesystem::path PathOf(const QString& argument);
std::vector<std::filesystem::path> PathsOf(const QStringList& arguments);

/// A mistake in the arguments of `command`, which is empty for the window's own arguments.
Mistake MistakeIn(const QString& command, const QString& text);

/// Parses the arguments of one command or of the window. Every parser knows "--help" and
/// "--version".
class CommandParser {
 public:
  CommandParser(const QString& command, const QString& operands, const QString& description);

  QCommandLineParser& Qt() { return parser_; }
  QStringList Rest() const { return parser_.positionalArguments(); }
  /// What follows the name of the command.
  QStringList Operands() const { return Rest().mid(1); }
  bool IsSet(const QCommandLineOption& option) const { return parser_.isSet(option); }
  QString Value(const QCommandLineOption& option) const { return parser_.value(option); }

  /// Handles what all commands have in common: requests for help or the version, and mistakes, of
  /// which one is an option that is given two values though it is not among `repeatable`. Returns
  /// nothing when the arguments are fine and the command should run.
  std::optional<Request> Parse(const QStringList& arguments, const QStringList& repeatable = {});

 private:
  std::string Help() const;

  QString command_;
  QString operands_;
  QCommandLineParser parser_;
  const QCommandLineOption help_{{QStringLiteral("h"), QStringLiteral("help")},
                                 QStringLiteral("Displays this help.")};
  const QCommandLineOption version_{{QStringLiteral("v"), QStringLiteral("version")},
                                    QStringLiteral("Displays the program's version.")};
};

/// An option for the folder to write into, and the mistake in its value: a name that is empty, as a
/// script's empty variable makes it.
QCommandLineOption FolderOption(const QString& name);
std::optional<Request> MistakeInFolder(const QString& command, const CommandParser& parser,
                                       const QCommandLineOption& folder);

/// Adds the operands that name observations. `files` says which files are taken: "Episode files".
void AddSources(QCommandLineParser& parser, const QString& files);

}  // namespace orvex
