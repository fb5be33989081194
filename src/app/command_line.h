#pragma once

#include <QStringList>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "export/report_command.h"
#include "export/table_command.h"

namespace orvex {

/// What the command line asks for: the window, with a file in its form or without; a text, as for
/// "--help"; the correction of a mistake; or one of the commands.
struct OpenWindow {
  std::filesystem::path file;  ///< an .eps, .sur or .nte file; empty for the main menu
};
struct ShowText {
  std::string text;
};
struct Mistake {
  std::string text;
};
struct CheckCommand {
  std::vector<std::filesystem::path> files;
};
using Request = std::variant<OpenWindow, ShowText, Mistake, ExportCommand, TableCommand,
                             CheckCommand, ReportCommand>;

/// True when the arguments begin with a command, which needs no display.
bool IsCommand(const QStringList& arguments);

/// Reads the arguments; the first is the program's name. Options of Qt's own must have been taken
/// off, unless the arguments begin with a command.
Request ReadCommandLine(const QStringList& arguments);

/// True for "--help" and "--version", also beside options of Qt's own.
bool AsksForText(const QStringList& arguments);

}  // namespace orvex
