#pragma once

class QFont;
class QPrinter;
class QWidget;

namespace orvex {

class PrintedReport;

/// Prints the pages that `printer` asks for, each with the report's title, what it is about, and
/// its number. False when the printer, or the file, cannot be written to.
bool PrintReport(const PrintedReport& report, QPrinter& printer);

/// Shows the report as it will look on paper; from there it goes to a printer or into a PDF file.
void PreviewReport(const PrintedReport& report, QWidget* form);

/// A font of so many points for painting on paper, where lengths are points: its characters keep
/// their proportions at every resolution.
QFont PaperFont(const QFont& like, double points);

}  // namespace orvex
