#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <string_view>

class QFont;
class QPainter;
class QPalette;
class QRectF;

namespace orvex {

/// A page that is painted with any font and colours.
struct PaintedPage {
  QString title;  ///< of the document
  std::function<void(QPainter&, const QRectF& area, const QFont&, const QPalette&)> paint;
};

enum class PictureFormat { svg, pdf, png };

struct PictureFormatScheme {
  PictureFormat format;
  std::string_view id;        ///< on the command line, and how its files end
  std::string_view fileType;  ///< what dialogs call its files
};
inline constexpr std::array<PictureFormatScheme, 3> kPictureFormats = {{
    {PictureFormat::svg, "svg", "SVG pictures"},
    {PictureFormat::pdf, "pdf", "PDF files"},
    {PictureFormat::png, "png", "PNG pictures"},
}};
const PictureFormatScheme& SchemeOf(PictureFormat format);
/// The format of this id; nothing if there is none.
std::optional<PictureFormat> PictureFormatNamed(std::string_view id);

/// The file of a page in the colours of paper, A4 across. Texts stay texts but in a PNG picture.
/// May run in any thread.
QByteArray PictureFile(const PaintedPage& page, PictureFormat format);

}  // namespace orvex
