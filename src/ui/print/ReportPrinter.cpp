#include "ui/print/ReportPrinter.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <filesystem>
#include <string>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "store/durable_file.h"
#include "ui/print/PrintedReport.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kTitleSize = 13;
constexpr double kTextSize = 9;
constexpr double kSubtitleAt = 19;
constexpr double kLineHeight = 12;
constexpr double kMostSubtitle = 200;
constexpr double kHeadGap = 5;
constexpr double kMargin = 15;  // millimetres
constexpr int kPreviewWidth = 960;
constexpr int kPreviewHeight = 680;

/// The subtitle, cut off if the user has typed so much that the report would have no room.
QString SubtitleOf(const PrintedReport& report) {
  constexpr qsizetype kMostCharacters = 1000;
  const QString text = report.Subtitle();
  return text.size() > kMostCharacters ? text.left(kMostCharacters) + QStringLiteral("\u2026")
                                       : text;
}

/// The height of the wrapped subtitle on paper of this width.
double SubtitleHeight(const PrintedReport& report, double width) {
  const QFontMetricsF metrics(PaperFont(QApplication::font(), kTextSize));
  const QRectF room(0, 0, width, kMostSubtitle);
  return std::max(kLineHeight,
                  metrics.boundingRect(room, Qt::TextWordWrap, SubtitleOf(report)).height());
}

double HeadHeight(const PrintedReport& report, double width) {
  return kSubtitleAt + SubtitleHeight(report, width) + 2 * kHeadGap + 3;
}

void PaintHead(QPainter& painter, const PrintedReport& report, double width, const QString& page) {
  const double height = SubtitleHeight(report, width);
  QFont title = PaperFont(QApplication::font(), kTitleSize);
  title.setBold(true);
  painter.setPen(Qt::black);
  painter.setFont(title);
  painter.drawText(QRectF(0, 0, width, 18), Qt::AlignLeft | Qt::AlignVCenter, report.Title());
  painter.setFont(PaperFont(QApplication::font(), kTextSize));
  painter.drawText(QRectF(0, 0, width, 18), Qt::AlignRight | Qt::AlignVCenter, page);
  painter.drawText(QRectF(0, kSubtitleAt, width, height), Qt::TextWordWrap, SubtitleOf(report));
  painter.setPen(QPen(Qt::black, 0.5));
  const double line = kSubtitleAt + height + 3;
  painter.drawLine(QPointF(0, line), QPointF(width, line));
}

/// The pages to paint, counted from 1. `last` 0 means all.
struct PageRange {
  int first = 1;
  int last = 0;
};

PageRange RangeOf(const QPrinter& printer) {
  if (printer.printRange() != QPrinter::PageRange || printer.fromPage() <= 0) return {};
  return {printer.fromPage(), std::max(printer.fromPage(), printer.toPage())};
}

/// Paints the pages in `range`. False when `paper` cannot be painted on.
bool PaintReport(const PrintedReport& report, QPagedPaintDevice& paper, int resolution,
                 const PageRange& range) {
  QPainter painter;
  if (!painter.begin(&paper)) return false;
  const double scale = resolution / kPointsPerInch;
  const QRectF sheet = paper.pageLayout().paintRectPixels(resolution);
  const QSizeF whole(sheet.width() / scale, sheet.height() / scale);
  const double head = HeadHeight(report, whole.width());
  const QSizeF area(whole.width(), whole.height() - head);
  const int pages = std::max(1, report.Pages(area));
  const int last = range.last > 0 ? std::min(range.last, pages) : pages;
  for (int page = range.first; page <= last; ++page) {
    if (page > range.first) paper.newPage();
    painter.save();
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintHead(painter, report, whole.width(),
              QCoreApplication::translate("ReportPrinter", "Page %1 of %2").arg(page).arg(pages));
    painter.translate(0, head);
    const double shrink = std::min(1.0, area.height() / report.LeastHeight());
    painter.scale(shrink, shrink);
    report.PaintPage(painter, area / shrink, page - 1);
    painter.restore();
  }
  return painter.end();
}

/// True while the preview is painting, which does not happen on the printer's own device.
bool IsPreview(QPrinter& printer) {
  return printer.paintEngine()->type() == QPaintEngine::Picture;
}

void Print(const PrintedReport& report, QPrinter& printer, const Printing& printing) {
  if (!IsPreview(printer) && !printer.outputFileName().isEmpty()) {
    SavePdf(report, printer, printing);
  } else if (!PrintReport(report, printer)) {
    printing.prompter.Tell(
        FromQt(QCoreApplication::translate("ReportPrinter", "The report could not be printed.")));
  }
}

}  // namespace

QFont PaperFont(const QFont& like, double points) {
  QFont font(like);
  font.setPixelSize(std::max(1, static_cast<int>(points)));
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

bool PrintReport(const PrintedReport& report, QPrinter& printer) {
  return PaintReport(report, printer, printer.resolution(), RangeOf(printer)) &&
         printer.printerState() != QPrinter::Error;
}

QByteArray PdfOf(const PrintedReport& report, const QPrinter& printer) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(report.DocumentName());
  writer.setPageLayout(printer.pageLayout());
  writer.setResolution(printer.resolution());
  PaintReport(report, writer, printer.resolution(), RangeOf(printer));
  return bytes;
}

void SavePdf(const PrintedReport& report, const QPrinter& printer, const Printing& printing) {
  // Qt writes a PDF as it paints it, and does not say when the disk refuses.
  const std::string bytes = PdfOf(report, printer).toStdString();
  const QByteArray file = QFile::encodeName(printer.outputFileName());
  SaveFile(
      printing.prompter,
      {.failure = FromQt(
           QCoreApplication::translate("ReportPrinter", "The PDF file could not be written.")),
       .path = std::filesystem::path(file.toStdString()),
       .filter = FromQt(QCoreApplication::translate("ReportPrinter", "PDF files (*.PDF)|*.PDF"))},
      [&](const std::filesystem::path& path) { ReplaceFile(printing.storage, path, bytes); });
}

void PreviewReport(const PrintedReport& report, const Printing& printing, QWidget* form) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(report.DocumentName());
  printer.setPageOrientation(report.Orientation());
  printer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
  QPrintPreviewDialog preview(&printer, form);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                   [&](QPrinter* to) { Print(report, *to, printing); });
  // The toolbar hides its buttons on a small screen, and is out of the keyboard's reach.
  const QString print = QPrintPreviewDialog::tr("Print");
  QObject::connect(new QShortcut(QKeySequence::Print, &preview), &QShortcut::activated, &preview,
                   [&preview, print] {
                     for (QAction* action : preview.findChildren<QAction*>()) {
                       if (action->iconText() == print) return action->trigger();
                     }
                   });
  preview.resize(QSize(kPreviewWidth, kPreviewHeight).boundedTo(form->screen()->availableSize()));
  preview.exec();
}

}  // namespace orvex
