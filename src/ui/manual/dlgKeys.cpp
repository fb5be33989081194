#include "ui/manual/dlgKeys.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>

#include "ui/manual/ManualBrowser.h"
#include "ui/widgets/FitToScreen.h"

namespace orvex {
namespace {

constexpr QSize kPanel(460, 620);

/// `text` as it stands, whatever it means in Markdown.
QString Literally(QString text) {
  static const QRegularExpression mark(QStringLiteral(R"(([\\`*_{}\[\]<>()#+\-.!|]))"));
  return text.replace(mark, QStringLiteral(R"(\\1)"));
}

/// A caption without the mark of its letter.
QString Plain(QString caption) {
  static const QRegularExpression mark(QStringLiteral("&(.)"));
  return caption.replace(mark, QStringLiteral("\\1"));
}

QString KeyOf(const QAbstractButton& button) {
  const QString other = button.property("otherKey").toString();
  return other.isEmpty() ? button.shortcut().toString(QKeySequence::NativeText) : other;
}

}  // namespace

dlgKeys::dlgKeys(const QWidget& form, const QString& page, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("dlgKeys"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(tr("Keys - %1").arg(form.windowTitle()));
  auto* text = new QTextBrowser(this);
  text->setObjectName(QStringLiteral("txtKeys"));
  text->setAccessibleName(tr("Keys"));
  text->setMarkdown(page + QStringLiteral("\n\n") + ButtonKeys(form));
  RuleTables(*text->document());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text);
  resize(kPanel);
  FitToScreen(*this);
}

QString dlgKeys::ButtonKeys(const QWidget& form) {
  QString rows;
  for (const auto* button : form.findChildren<QPushButton*>()) {
    const QString key = KeyOf(*button);
    if (!button->isVisible() || !button->isEnabled() || key.isEmpty()) continue;
    if (button->window() != &form) continue;
    rows += QStringLiteral("| %1 | %2 |\n").arg(Literally(Plain(button->text())), Literally(key));
  }
  if (rows.isEmpty()) return rows;
  return tr("### Buttons that can be pressed now\n\n| Button | Key |\n|---|---|\n") + rows;
}

/// The key that opened the panel closes it, too.
void dlgKeys::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F2) {
    accept();
  } else {
    QDialog::keyPressEvent(event);
  }
}

QString SectionOf(const QString& page, const QString& heading) {
  const QString start = QStringLiteral("\n## ") + heading + QLatin1Char('\n');
  const qsizetype found = heading.isEmpty() ? -1 : page.indexOf(start);
  if (found < 0) return {};
  const qsizetype begin = found + start.size();
  const qsizetype end = page.indexOf(QStringLiteral("\n## "), begin);
  return page.mid(begin, end < 0 ? -1 : end - begin);
}

}  // namespace orvex
