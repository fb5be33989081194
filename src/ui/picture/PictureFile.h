#pragma once

#include <QByteArray>
#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QString>
#include <functional>
#include <vector>

#include "ui/picture/PictureFormat.h"

class QPainter;

namespace orvex {

/// A sheet of paper, A4 across, as pages are painted on it. Lengths are in points.
struct PictureSheet {
  PictureSheet();

  QRectF sheet;
  QRectF area;  ///< within the margins
  QFont font;
  QPalette palette;  ///< the colours of paper, whatever those of the screen are
};

/// Paints a page on a sheet.
using PaintPage = std::function<void(QPainter&, const PictureSheet&)>;

/// The file of one page. Texts stay texts but in a PNG picture. May run in any thread.
QByteArray PictureFile(const QString& title, const PaintPage& page, PictureFormat format);
/// A PDF file of several pages.
QByteArray PdfFile(const QString& title, const std::vector<PaintPage>& pages);

}  // namespace orvex
