#include "ui/manual/dlgManual.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include "ui/keys/FormKeys.h"
#include "ui/manual/ManualBrowser.h"
#include "ui/manual/PrintedChapter.h"
#include "ui/print/ReportPrinter.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/FitToScreen.h"
#include "ui_dlgManual.h"

namespace orvex {
namespace {

const QString kFirstPage = QStringLiteral("index.md");

}  // namespace

dlgManual::dlgManual(const std::filesystem::path& folder, const Printing& printing, QWidget* parent)
    : QDialog(parent),
      folder_(QFile::decodeName(folder.c_str())),
      printing_(printing),
      ui_(std::make_unique<Ui::dlgManual>()) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_QuitOnClose, false);
  ui_->txtChapter->setOpenExternalLinks(false);
  ConnectButtons();
  ConnectKeys();
  FitToScreen(*this);
}

dlgManual::~dlgManual() = default;

void dlgManual::ConnectButtons() {
  connect(ui_->cmdContents, &QPushButton::clicked, this, [this] { Open(kFirstPage); });
  connect(ui_->cmdBack, &QPushButton::clicked, ui_->txtChapter, &QTextBrowser::backward);
  connect(ui_->cmdNext, &QPushButton::clicked, this, [this] { Find(From::behind); });
  connect(ui_->cmdPrevious, &QPushButton::clicked, this, [this] { Find(From::before); });
  connect(ui_->cmdAbout, &QPushButton::clicked, this, &dlgManual::AboutWanted);
  connect(ui_->cmdPrint, &QPushButton::clicked, this, &dlgManual::PrintChapter);
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->txtFind, &QLineEdit::textEdited, this, [this] { Find(From::here); });
  connect(ui_->txtChapter, &QTextBrowser::sourceChanged, this, &dlgManual::Refresh);
  connect(ui_->txtChapter, &QTextBrowser::backwardAvailable, ui_->cmdBack, &QWidget::setEnabled);
}

void dlgManual::ConnectKeys() {
  const auto key = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence(Qt::Key_F3), [this] { Find(From::behind); });
  key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { Find(From::before); });
  key(QKeySequence::Print, [this] { PrintChapter(); });
  key(QKeySequence::Find, [this] { FocusToReplace(ui_->txtFind); });
  new FormKeys(this, {.own = [this](const QWidget* control, const QKeyEvent& pressed) {
                 return IsEnter(pressed) &&
                        TakeEnter(control, pressed.modifiers().testFlag(Qt::ShiftModifier));
               }});
}

/// In the box, Enter finds; on a link, it follows.
bool dlgManual::TakeEnter(const QWidget* control, bool shift) {
  if (control == ui_->txtFind) {
    Find(shift ? From::before : From::behind);
    return true;
  }
  const QTextCursor cursor = ui_->txtChapter->textCursor();
  if (control != ui_->txtChapter || !cursor.charFormat().isAnchor()) return false;
  ui_->txtChapter->setSource(
      ui_->txtChapter->source().resolved(QUrl(cursor.charFormat().anchorHref())));
  return true;
}

void dlgManual::Open(const QString& place) {
  if (folder_.isEmpty() || !QFileInfo::exists(folder_ + QLatin1Char('/') + kFirstPage)) {
    ui_->txtChapter->setPlainText(tr("The manual is not there. It belongs beside the program."));
    return Refresh();
  }
  const QUrl folder = QUrl::fromLocalFile(folder_ + QLatin1Char('/'));
  ui_->txtChapter->setSource(folder.resolved(QUrl(place)));
  ui_->txtChapter->setFocus();
}

void dlgManual::Refresh() {
  const QString heading = ui_->txtChapter->document()->firstBlock().text();
  setWindowTitle(heading.isEmpty() ? tr("Manual") : tr("Manual - %1").arg(heading));
  ui_->cmdBack->setEnabled(ui_->txtChapter->isBackwardAvailable());
}

QString dlgManual::ChapterName() const {
  return ui_->txtChapter->source().fileName();
}

QString dlgManual::TextOf(const QString& chapter) const {
  QFile file(folder_ + QLatin1Char('/') + chapter);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList dlgManual::Chapters() const {
  static const QRegularExpression link(QStringLiteral(R"(\]\(([^)#]+\.md)\))"));
  QStringList chapters = {kFirstPage};
  for (auto found = link.globalMatch(TextOf(kFirstPage)); found.hasNext();) {
    chapters << found.next().captured(1);
  }
  return chapters;
}

/// Selects the next place with the text in the box, in this chapter or else in the others, which
/// come round to the first.
void dlgManual::Find(From from) {
  const bool isEmpty = ui_->txtFind->text().isEmpty();
  const bool found =
      isEmpty || FindInChapter(from, false) || FindInOthers(from) || FindInChapter(from, true);
  ShowText(ui_->lblFound, found ? QString() : tr("Not found"));
  if (!isEmpty) return;
  QTextCursor cursor = ui_->txtChapter->textCursor();
  cursor.clearSelection();
  ui_->txtChapter->setTextCursor(cursor);
}

/// Selects the next place in this chapter; `around`, from its beginning or end.
bool dlgManual::FindInChapter(From from, bool around) {
  QTextCursor at = ui_->txtChapter->textCursor();
  const bool back = from == From::before;
  if (from == From::here) at.setPosition(at.selectionStart());
  if (around) at.movePosition(back ? QTextCursor::End : QTextCursor::Start);
  const auto way = back ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  const QTextCursor found = ui_->txtChapter->document()->find(ui_->txtFind->text(), at, way);
  if (!found.isNull()) ui_->txtChapter->setTextCursor(found);
  return !found.isNull();
}

bool dlgManual::FindInOthers(From from) {
  const QStringList chapters = Chapters();
  const QString shown = ui_->txtChapter->source().toLocalFile();
  qsizetype at = 0;
  for (qsizetype i = 0; i < chapters.size(); ++i) {
    if (QFileInfo(folder_ + QLatin1Char('/') + chapters.at(i)) == QFileInfo(shown)) at = i;
  }
  const qsizetype step = from == From::before ? chapters.size() - 1 : 1;
  for (qsizetype tried = 1; tried < chapters.size(); ++tried) {
    const QString& chapter = chapters.at((at + tried * step) % chapters.size());
    QTextDocument text;
    text.setMarkdown(TextOf(chapter));
    if (text.find(ui_->txtFind->text()).isNull()) continue;
    const QWidget* box = focusWidget();
    ui_->txtChapter->setSource(QUrl::fromLocalFile(folder_ + QLatin1Char('/') + chapter));
    if (box == ui_->txtFind) ui_->txtFind->setFocus();
    return FindInChapter(from, true);
  }
  return false;
}

void dlgManual::PrintChapter() {
  const QTextDocument& chapter = *ui_->txtChapter->document();
  PreviewReport(PrintedChapter(chapter, chapter.firstBlock().text(),
                               QFileInfo(ChapterName()).completeBaseName()),
                printing_, this);
}

}  // namespace orvex
