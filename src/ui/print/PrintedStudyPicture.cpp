#include "ui/print/PrintedStudyPicture.h"

#include <utility>

#include "ui/picture/PictureFile.h"

namespace orvex {

PrintedStudyPicture::PrintedStudyPicture(StudyPage study) : study_(std::move(study)) {}

int PrintedStudyPicture::Pages(const QSizeF& area) const {
  return study_.Pages(QRectF(QPointF(), area), PictureSheet().font);
}

void PrintedStudyPicture::PaintPage(QPainter& painter, const QSizeF& area, int page) const {
  const PictureSheet sheet;
  study_.Paint(painter, QRectF(QPointF(), area), sheet.font, sheet.palette, page);
}

}  // namespace orvex
