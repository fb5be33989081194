#include "ui/manual/ManualBrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>

#include "ui/manual/ManualPlaces.h"

namespace orvex {
namespace {

constexpr int kCellPadding = 4;
constexpr int kBesidePicture = 40;
constexpr int kLeastPicture = 200;

}  // namespace

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
  QVariant resource = QTextBrowser::loadResource(type, name);
  if (type != QTextDocument::ImageResource) return resource;
  QImage picture = resource.userType() == QMetaType::QByteArray
                       ? QImage::fromData(resource.toByteArray())
                       : resource.value<QImage>();
  if (picture.isNull()) return resource;
  const int room = std::max(kLeastPicture, viewport()->width() - kBesidePicture);
  if (picture.width() <= room) return picture;
  // Finer than the layout, so that what is small in the picture can be read on a fine screen.
  const qreal ratio = devicePixelRatioF();
  const int width = std::min(picture.width(), static_cast<int>(room * ratio));
  picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(static_cast<qreal>(width) / room);
  return picture;
}

void ManualBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  QTextBrowser::doSetSource(url, type);
  RuleTables(*document());
  if (url.hasFragment()) ScrollToHeading(url.fragment());
}

void ManualBrowser::ScrollToHeading(const QString& name) {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || HeadingName(block.text()) != name) continue;
    setTextCursor(QTextCursor(block));
    verticalScrollBar()->setValue(
        static_cast<int>(document()->documentLayout()->blockBoundingRect(block).top()));
    return;
  }
}

void RuleTables(QTextDocument& chapter) {
  for (QTextFrame* frame : chapter.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (!table) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setCellPadding(kCellPadding);
    format.setHeaderRowCount(1);
    table->setFormat(format);
  }
}

}  // namespace orvex
