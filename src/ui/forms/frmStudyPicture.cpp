#include "ui/forms/frmStudyPicture.h"

#include <QCloseEvent>
#include <QShortcut>
#include <cstddef>
#include <utility>

#include "ui/keys/FormKeys.h"
#include "ui/picture/PictureActions.h"
#include "ui/picture/StudyFile.h"
#include "ui/print/PrintedStudyPicture.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmStudyPicture.h"

namespace orvex {

frmStudyPicture::frmStudyPicture(std::vector<PictureRow> rows, std::filesystem::path folder,
                                 const Printing& printing, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::frmStudyPicture>()),
      rows_(std::move(rows)),
      folder_(std::move(folder)),
      printing_(printing) {
  ui_->setupUi(this);
  for (const RowOrderScheme& scheme : kRowOrders) ui_->cboSort->addItem(ToQt(scheme.label));
  connect(ui_->cboSort, &QComboBox::currentIndexChanged, this, &frmStudyPicture::Sort);
  connect(ui_->cmdPrevious, &QPushButton::clicked, this, [this] { Turn(-1); });
  connect(ui_->cmdNext, &QPushButton::clicked, this, [this] { Turn(1); });
  connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmStudyPicture::Copy);
  connect(ui_->cmdSaveAs, &QPushButton::clicked, this, &frmStudyPicture::SaveAs);
  connect(ui_->cmdPrint, &QPushButton::clicked, this, &frmStudyPicture::Print);
  connect(ui_->cmdBack, &QPushButton::clicked, this, &frmStudyPicture::Back);
  const auto key = [this](const QKeySequence& sequence, auto work) {
    connect(new QShortcut(sequence, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence::Print, &frmStudyPicture::Print);
  key(QKeySequence::Copy, &frmStudyPicture::Copy);
  key(QKeySequence::Save, &frmStudyPicture::SaveAs);
  key(QKeySequence(Qt::Key_Escape), &QWidget::close);
  const auto turn = [this](const QWidget*, const QKeyEvent& pressed) {
    const bool turns = pressed.key() == Qt::Key_PageUp || pressed.key() == Qt::Key_PageDown;
    if (turns) Turn(pressed.key() == Qt::Key_PageUp ? -1 : 1);
    return turns;
  };
  new FormKeys(this, {.asking = {ui_->cmdPrevious, ui_->cmdNext, ui_->cmdCopy, ui_->cmdSaveAs,
                                 ui_->cmdPrint},
                      .own = turn});
  FocusVisibly(ui_->cboSort);
  Sort();
}

frmStudyPicture::~frmStudyPicture() = default;

void frmStudyPicture::Sort() {
  const RowOrder order =
      kRowOrders.at(static_cast<std::size_t>(ui_->cboSort->currentIndex())).order;
  ui_->view->Show(StudyPage(MakeStudyPicture(rows_, order)));
  Refresh();
}

void frmStudyPicture::Turn(int step) {
  ui_->view->Turn(step);
  Refresh();
}

void frmStudyPicture::Refresh() {
  const int page = ui_->view->Page();
  const int pages = ui_->view->Pages();
  ShowText(ui_->lblPage, tr("Page %1 of %2").arg(page + 1).arg(pages));
  for (QWidget* ofSeveral :
       {static_cast<QWidget*>(ui_->lblPage), static_cast<QWidget*>(ui_->cmdPrevious),
        static_cast<QWidget*>(ui_->cmdNext)}) {
    ofSeveral->setVisible(pages > 1);
  }
  ui_->cmdPrevious->setEnabled(page > 0);
  ui_->cmdNext->setEnabled(page + 1 < pages);
}

void frmStudyPicture::Print() {
  PreviewReport(PrintedStudyPicture(ui_->view->Study()), printing_, this);
}

void frmStudyPicture::Copy() const {
  CopyPicture([this](PictureFormat format) { return File(format); });
}

void frmStudyPicture::SaveAs() {
  SavePicture([this](PictureFormat format) { return File(format); }, folder_ / "study", printing_);
}

QByteArray frmStudyPicture::File(PictureFormat format) const {
  const StudyPage& study = ui_->view->Study();
  const QString title = tr("Study Picture");
  if (format == PictureFormat::pdf) return PdfFile(title, PaintedPages(study));
  return PictureFile(title, PaintedPages(study)[static_cast<std::size_t>(ui_->view->Page())],
                     format);
}

void frmStudyPicture::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form goes when it is closed on its signal
  Q_EMIT Back();
}

}  // namespace orvex
