#pragma once

#include <QStringList>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "commands/report_command.h"
#include "commands/table_command.h"

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

/// The program's arguments with each byte as the character of its number: names of files come
/// through in whatever encoding they are.
QStringList ArgumentsOf(int argc, const char* const* argv);

/// Reads such arguments; the first is the program's name. Options of Qt's own, which it takes when
/// a window is opened, are passed over.
Request ReadCommandLine(const QStringList& arguments);

}  // namespace orvex
