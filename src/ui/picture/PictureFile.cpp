#include "ui/picture/PictureFile.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>

#include "ui/print/PaperText.h"
#include "ui/print/ReportPrinter.h"

namespace orvex {
namespace {

constexpr double kPointsPerInch = 72;
constexpr QSize kSheet = {842, 595};
constexpr double kMargin = 28;
constexpr double kTextSize = 9;

/// Paints a page with so many dots per inch.
void PaintOn(QPainter& painter, double resolution, const PaintPage& page) {
  const PictureSheet sheet;
  painter.save();
  painter.scale(resolution / kPointsPerInch, resolution / kPointsPerInch);
  painter.fillRect(sheet.sheet, sheet.palette.base());
  page(painter, sheet);
  painter.restore();
}

QByteArray SvgFile(const QString& title, const PaintPage& page) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setTitle(title);
  svg.setResolution(static_cast<int>(kPointsPerInch));
  svg.setSize(kSheet);
  svg.setViewBox(QRect(QPoint(), kSheet));
  QPainter painter(&svg);
  PaintOn(painter, kPointsPerInch, page);
  painter.end();
  return bytes;
}

QByteArray PngFile(const QString& title, const PaintPage& page) {
  constexpr double kResolution = 150;
  constexpr int kQuickly = 80;  // without loss; what more would save takes as long as the painting
  constexpr double kInchesPerMetre = 1000 / 25.4;
  QImage image((QSizeF(kSheet) * (kResolution / kPointsPerInch)).toSize(), QImage::Format_RGB32);
  image.setText(QStringLiteral("Title"), title);
  image.setDotsPerMeterX(static_cast<int>(std::lround(kResolution * kInchesPerMetre)));
  image.setDotsPerMeterY(image.dotsPerMeterX());
  QPainter painter(&image);
  PaintOn(painter, kResolution, page);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG", kQuickly);
  return bytes;
}

}  // namespace

PictureSheet::PictureSheet()
    : sheet(QPointF(), kSheet),
      area(sheet.adjusted(kMargin, kMargin, -kMargin, -kMargin)),
      font(PaperFont(QFont(), kTextSize)),
      palette(PaperPalette()) {}

QByteArray PictureFile(const QString& title, const PaintPage& page, PictureFormat format) {
  switch (format) {
    case PictureFormat::svg:
      return SvgFile(title, page);
    case PictureFormat::pdf:
      return PdfFile(title, {page});
    case PictureFormat::png:
      return PngFile(title, page);
  }
  return {};
}

QByteArray PdfFile(const QString& title, const std::vector<PaintPage>& pages) {
  constexpr int kResolution = 1200;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setTitle(title);
  pdf.setResolution(kResolution);
  pdf.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()});
  QPainter painter(&pdf);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (i > 0) pdf.newPage();
    PaintOn(painter, kResolution, pages[i]);
  }
  painter.end();
  return bytes;
}

}  // namespace orvex
