#pragma once

#include <QTextBrowser>

namespace orvex {

/// Shows a chapter of the manual. A link may name a heading behind "#". Pictures are made to fit.
class ManualBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  using QTextBrowser::QTextBrowser;

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

 private:
  void ScrollToHeading(const QString& name);
};

/// Gives the tables of a chapter the lines that Markdown has no words for.
void RuleTables(QTextDocument& chapter);

}  // namespace orvex
