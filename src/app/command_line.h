#pragma once

#include <QStringList>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "app/picture_command.h"
#include "app/report_pdf_command.h"
#include "commands/agree_command.h"
#include "commands/report_command.h"
#include "commands/table_command.h"

namespace orvex {

/// What the command line can ask for: a window, a text such as that of "--help", the correction
/// of a mistake, or one of the commands.
struct OpenWindow {
  std::filesystem::path file;         ///< an .eps, .sur or .nte file; empty to open the main menu
  std::filesystem::path second = {};  ///< an .eps file to compare it with; empty for none
  bool picture = false;               ///< shows the .eps file on a page instead of in its editor
};
struct ShowText {
  std::string text;
};
struct Mistake {
  std::string text;
};
struct CheckCommand {
  std::vector<std::filesystem::path> sources;
};
using Request =
    std::variant<OpenWindow, ShowText, Mistake, ExportCommand, TableCommand, CheckCommand,
                 ReportCommand, ReportPdfCommand, AgreeCommand, PictureCommand>;

/// The program's arguments, each byte becoming the character with that number. File names
/// survive this in any encoding.
QStringList ArgumentsOf(int argc, const char* const* argv);

/// Interprets arguments as `ArgumentsOf` returns them; the first one is the program's name.
/// Skips Qt's own options, which Qt handles when it opens a window.
Request ReadCommandLine(const QStringList& arguments);

}  // namespace orvex
