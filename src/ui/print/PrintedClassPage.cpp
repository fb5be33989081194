#include "ui/print/PrintedClassPage.h"

#include <QApplication>
#include <utility>

#include "ui/print/PaperText.h"
#include "ui/print/ReportPrinter.h"
#include "ui/text.h"

namespace orvex {

PrintedClassPage::PrintedClassPage(ClassPage page, PageView view)
    : page_(std::move(page)), view_(view) {
  view_.marked = {};
}

QString PrintedClassPage::DocumentName() const {
  return tr("%1 Picture").arg(ToQt(page_.Picture().title));
}

void PrintedClassPage::PaintPage(QPainter& painter, const QSizeF& area, int) const {
  constexpr double kTextSize = 9;
  page_.Paint(painter, QRectF(QPointF(), area), PaperFont(QApplication::font(), kTextSize),
              PaperPalette(), view_);
}

}  // namespace orvex
