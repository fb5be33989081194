#pragma once

#include <memory>
#include <vector>

class QByteArray;
class QFont;
class QPrinter;
class QString;
class QWidget;

namespace orvex {

class PrintedReport;
class Prompter;
class Storage;

/// What printing works with: whom it tells what went wrong, and where PDF files are stored.
struct Printing {
  Prompter& prompter;
  Storage& storage;
};

/// Prints the pages that `printer` asks for, each with the report's title, subtitle and page
/// number. False when printing fails.
bool PrintReport(const PrintedReport& report, QPrinter& printer);

/// Returns the same pages as a PDF file.
QByteArray PdfOf(const PrintedReport& report, const QPrinter& printer);
/// Several reports as one PDF file, each on paper of its own orientation, with pages counted
/// through.
using PrintedParts = std::vector<std::unique_ptr<PrintedReport>>;
QByteArray PdfOf(const QString& documentName, const PrintedParts& parts);

/// Stores the pages of a report in the file that `printer` would write, whole or not at all; the
/// user is told when that fails, and can have it tried again or choose another place.
void SavePdf(const PrintedReport& report, const QPrinter& printer, const Printing& printing);

/// Shows the report as it will look on paper; from there it goes to a printer or into a PDF file.
void PreviewReport(const PrintedReport& report, const Printing& printing, QWidget* form);

/// A font for painting on paper, where lengths are in points. It keeps its proportions at every
/// resolution.
QFont PaperFont(const QFont& like, double points);

}  // namespace orvex
