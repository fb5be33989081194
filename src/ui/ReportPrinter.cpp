#include "ui/ReportPrinter.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>
#include <QShortcut>
#include <algorithm>

#include "ui/PrintedReport.h"

namespace orvex {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kTitleSize = 13;
constexpr double kTextSize = 9;
constexpr double kHeadHeight = 44;
constexpr double kMargin = 15;  // millimetres
constexpr int kPreviewWidth = 960;
constexpr int kPreviewHeight = 680;

void PaintHead(QPainter& painter, const PrintedReport& report, double width, const QString& page) {
  QFont title = PaperFont(QApplication::font(), kTitleSize);
  title.setBold(true);
  painter.setPen(Qt::black);
  painter.setFont(title);
  painter.drawText(QRectF(0, 0, width, 18), Qt::AlignLeft | Qt::AlignVCenter, report.Title());
  painter.setFont(PaperFont(QApplication::font(), kTextSize));
  painter.drawText(QRectF(0, 0, width, 18), Qt::AlignRight | Qt::AlignVCenter, page);
  painter.drawText(QRectF(0, 19, width, 12), Qt::AlignLeft | Qt::AlignVCenter, report.Subtitle());
  painter.setPen(QPen(Qt::black, 0.5));
  painter.drawLine(QPointF(0, 34), QPointF(width, 34));
}

}  // namespace

QFont PaperFont(const QFont& like, double points) {
  QFont font(like);
  font.setPixelSize(std::max(1, static_cast<int>(points)));
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

bool PrintReport(const PrintedReport& report, QPrinter& printer) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const double scale = printer.resolution() / kPointsPerInch;
  const QRectF paper = printer.pageLayout().paintRectPixels(printer.resolution());
  const QSizeF whole(paper.width() / scale, paper.height() / scale);
  const QSizeF area(whole.width(), whole.height() - kHeadHeight);
  const int pages = std::max(1, report.Pages(area));
  const bool someOnly = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  const int first = someOnly ? printer.fromPage() : 1;
  const int last = someOnly ? std::min(std::max(first, printer.toPage()), pages) : pages;
  for (int page = first; page <= last; ++page) {
    if (page > first) printer.newPage();
    painter.save();
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintHead(painter, report, whole.width(), QStringLiteral("Page %1 of %2").arg(page).arg(pages));
    painter.translate(0, kHeadHeight);
    const double shrink = std::min(1.0, area.height() / report.LeastHeight());
    painter.scale(shrink, shrink);
    report.PaintPage(painter, area / shrink, page - 1);
    painter.restore();
  }
  return painter.end() && printer.printerState() != QPrinter::Error;
}

void PreviewReport(const PrintedReport& report, QWidget* form) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(report.DocumentName());
  printer.setPageOrientation(report.Orientation());
  printer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
  QPrintPreviewDialog preview(&printer, form);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                   [&report, form](QPrinter* to) {
                     if (PrintReport(report, *to)) return;
                     QMessageBox::warning(form, QStringLiteral("Orvex"),
                                          QStringLiteral("The report could not be printed."));
                   });
  // The toolbar hides its buttons on a small screen, and is out of the keyboard's reach.
  QObject::connect(new QShortcut(QKeySequence::Print, &preview), &QShortcut::activated, &preview,
                   [&preview] {
                     for (QAction* action : preview.findChildren<QAction*>()) {
                       if (action->iconText() == QLatin1String("Print")) return action->trigger();
                     }
                   });
  preview.resize(QSize(kPreviewWidth, kPreviewHeight).boundedTo(form->screen()->availableSize()));
  preview.exec();
}

}  // namespace orvex
