#pragma once

#include <QTextDocument>
#include <memory>

#include "ui/print/PrintedReport.h"

namespace orvex {

/// A chapter of the manual on paper.
class PrintedChapter : public PrintedReport {
 public:
  /// `title` is the chapter's heading, `name` that of its file.
  PrintedChapter(const QTextDocument& chapter, QString title, QString name);

  QString Title() const override { return title_; }
  QString Subtitle() const override;
  QString DocumentName() const override { return name_; }
  int Pages(const QSizeF& area) const override;
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const override;

 private:
  std::unique_ptr<QTextDocument> chapter_;
  QString title_;
  QString name_;
};

}  // namespace orvex
