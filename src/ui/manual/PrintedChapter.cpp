#include "ui/manual/PrintedChapter.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <utility>

#include "ui/print/ReportPrinter.h"

namespace orvex {
namespace {

constexpr double kTextSize = 9;

/// Makes the pictures fit the width of the paper.
void NarrowPictures(QTextDocument& chapter, double width) {
  for (QTextBlock block = chapter.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (!part.fragment().charFormat().isImageFormat()) continue;
      QTextImageFormat picture = part.fragment().charFormat().toImageFormat();
      picture.setWidth(width);
      QTextCursor cursor(block);
      cursor.setPosition(part.fragment().position());
      cursor.setPosition(part.fragment().position() + part.fragment().length(),
                         QTextCursor::KeepAnchor);
      cursor.setCharFormat(picture);
      break;
    }
  }
}

}  // namespace

PrintedChapter::PrintedChapter(const QTextDocument& chapter, QString title, QString name)
    : chapter_(chapter.clone()), title_(std::move(title)), name_(std::move(name)) {
  chapter_->setDefaultFont(PaperFont(QApplication::font(), kTextSize));
}

QString PrintedChapter::Subtitle() const {
  return QCoreApplication::translate("PrintedChapter", "The manual of Orvex");
}

int PrintedChapter::Pages(const QSizeF& area) const {
  NarrowPictures(*chapter_, area.width() * 2 / 3);
  chapter_->setDocumentMargin(0);
  chapter_->setPageSize(area);
  return chapter_->pageCount();
}

void PrintedChapter::PaintPage(QPainter& painter, const QSizeF& area, int page) const {
  Pages(area);
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  context.clip = QRectF(QPointF(0, page * area.height()), area);
  painter.save();
  painter.translate(0, -page * area.height());
  painter.setClipRect(context.clip);
  chapter_->documentLayout()->draw(&painter, context);
  painter.restore();
}

}  // namespace orvex
