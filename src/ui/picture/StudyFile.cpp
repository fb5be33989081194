#include "ui/picture/StudyFile.h"

#include "ui/picture/StudyPage.h"

namespace orvex {

std::vector<PaintPage> PaintedPages(const StudyPage& study) {
  const PictureSheet sheet;
  std::vector<PaintPage> pages;
  const int count = study.Pages(sheet.area, sheet.font);
  for (int page = 0; page < count; ++page) {
    pages.emplace_back([&study, page](QPainter& painter, const PictureSheet& on) {
      study.Paint(painter, on.area, on.font, on.palette, page);
    });
  }
  return pages;
}

}  // namespace orvex
