#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>

namespace orvex {

struct LoggedClass;
struct Printing;

/// All reports on a class as one PDF file: its page, the time summary, the statistics and the plot
/// of each episode with questions, the statistics of the whole class, and all questions.
QByteArray ClassPdf(const LoggedClass& printed);

/// Lets the user choose where to store it, at first beside `file`, the class's. The user is told
/// when that fails, and can have it tried again or choose another place.
void SaveClassPdf(const LoggedClass& printed, const std::filesystem::path& file,
                  const Printing& printing);

}  // namespace orvex
