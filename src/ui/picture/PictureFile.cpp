#include "ui/picture/PictureFile.h"

#include <QBuffer>
#include <QFont>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "ui/print/ReportPrinter.h"

namespace orvex {
namespace {

// In points, of which an inch has 72.
constexpr double kPointsPerInch = 72;
constexpr QSize kSheet = {842, 595};
constexpr double kMargin = 28;
constexpr double kTextSize = 9;

constexpr int kPdfResolution = 1200;
constexpr double kPngResolution = 200;

/// The colours of paper, whatever those of the screen are.
QPalette Paper() {
  QPalette palette(Qt::black, Qt::white);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

/// Paints the page on a device with `resolution` dots per inch.
void PaintOn(QPaintDevice& device, double resolution, const PaintedPage& page) {
  const QRectF area = QRectF(QPointF(), kSheet).adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const QPalette palette = Paper();
  QPainter painter(&device);
  painter.scale(resolution / kPointsPerInch, resolution / kPointsPerInch);
  painter.fillRect(QRectF(QPointF(), kSheet), palette.base());  // the margins too
  page.paint(painter, area, PaperFont(QFont(), kTextSize), palette);
}

QByteArray SvgOf(const PaintedPage& page) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setTitle(page.title);
  svg.setResolution(static_cast<int>(kPointsPerInch));
  svg.setSize(kSheet);
  svg.setViewBox(QRect(QPoint(), kSheet));
  PaintOn(svg, kPointsPerInch, page);
  return bytes;
}

QByteArray PdfOf(const PaintedPage& page) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setTitle(page.title);
  pdf.setResolution(kPdfResolution);
  pdf.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()});
  PaintOn(pdf, kPdfResolution, page);
  return bytes;
}

QByteArray PngOf(const PaintedPage& page) {
  constexpr double kScale = kPngResolution / kPointsPerInch;
  constexpr double kMillimetresPerInch = 25.4;
  QImage image((QSizeF(kSheet) * kScale).toSize(), QImage::Format_RGB32);
  image.setText(QStringLiteral("Title"), page.title);
  const int dotsPerMetre =
      static_cast<int>(std::lround(kPngResolution * 1000 / kMillimetresPerInch));
  image.setDotsPerMeterX(dotsPerMetre);
  image.setDotsPerMeterY(dotsPerMetre);
  PaintOn(image, kPngResolution, page);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes;
}

}  // namespace

const PictureFormatScheme& SchemeOf(PictureFormat format) {
  return kPictureFormats.at(static_cast<std::size_t>(format));
}

std::optional<PictureFormat> PictureFormatNamed(std::string_view id) {
  const auto* const found = std::ranges::find(kPictureFormats, id, &PictureFormatScheme::id);
  if (found == kPictureFormats.end()) return std::nullopt;
  return found->format;
}

QByteArray PictureFile(const PaintedPage& page, PictureFormat format) {
  switch (format) {
    case PictureFormat::svg:
      return SvgOf(page);
    case PictureFormat::pdf:
      return PdfOf(page);
    case PictureFormat::png:
      return PngOf(page);
  }
  return {};
}

}  // namespace orvex
