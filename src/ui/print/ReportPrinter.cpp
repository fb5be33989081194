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
#include <vector>

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

/// Where a report without a title has a heading of its own.
double HeadHeight(const PrintedReport& report, double width) {
  if (report.Title().isEmpty()) return 0;
  return kSubtitleAt + SubtitleHeight(report, width) + 2 * kHeadGap + 3;
}

void PaintHead(QPainter& painter, const PrintedReport& report, double width, const QString& page) {
  if (report.Title().isEmpty()) return;
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

/// A report on sheets whose margins leave it `whole`, in points.
struct ReportOnPaper {
  ReportOnPaper(const PrintedReport& printed, const QPageLayout& sheet, int resolution)
      : report(printed),
        scale(resolution / kPointsPerInch),
        whole(QSizeF(sheet.paintRectPixels(resolution).size()) / scale) {}

  const PrintedReport& report;
  double scale;  ///< from points to dots
  QSizeF whole;

  QSizeF Area() const {
    return {whole.width(), whole.height() - HeadHeight(report, whole.width())};
  }
  int Pages() const { return std::max(1, report.Pages(Area())); }
  /// Paints page `page` of the report, counted from 1, which is number `number` of `count`.
  void Paint(QPainter& painter, int page, int number, int count) const;
};

void ReportOnPaper::Paint(QPainter& painter, int page, int number, int count) const {
  const QSizeF area = Area();
  painter.save();
  painter.scale(scale, scale);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintHead(painter, report, whole.width(),
            QCoreApplication::translate("ReportPrinter", "Page %1 of %2").arg(number).arg(count));
  painter.translate(0, whole.height() - area.height());
  const double shrink = std::min(1.0, area.height() / report.LeastHeight());
  painter.scale(shrink, shrink);
  report.PaintPage(painter, area / shrink, page - 1);
  painter.restore();
}

/// Paints the pages in `range`. False when `paper` cannot be painted on.
bool PaintReport(const PrintedReport& report, QPagedPaintDevice& paper, int resolution,
                 const PageRange& range) {
  QPainter painter;
  if (!painter.begin(&paper)) return false;
  const ReportOnPaper onPaper(report, paper.pageLayout(), resolution);
  const int pages = onPaper.Pages();
  const int last = range.last > 0 ? std::min(range.last, pages) : pages;
  for (int page = range.first; page <= last; ++page) {
    if (page > range.first) paper.newPage();
    onPaper.Paint(painter, page, page, pages);
  }
  return painter.end();
}

QPageLayout LayoutFor(const PrintedReport& report) {
  return {QPageSize(QPageSize::A4), report.Orientation(),
          QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter};
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

QByteArray PdfOf(const QString& documentName, const PrintedParts& parts) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(documentName);
  std::vector<ReportOnPaper> onPaper;
  int count = 0;
  for (const auto& part : parts) {
    count += onPaper.emplace_back(*part, LayoutFor(*part), writer.resolution()).Pages();
  }
  QPainter painter;
  int number = 0;
  for (const ReportOnPaper& part : onPaper) {
    writer.setPageLayout(LayoutFor(part.report));
    for (int page = 1; page <= part.Pages(); ++page) {
      if (++number == 1) {
        painter.begin(&writer);
      } else {
        writer.newPage();
      }
      part.Paint(painter, page, number, count);
    }
  }
  painter.end();
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
