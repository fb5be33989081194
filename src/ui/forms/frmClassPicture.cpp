#include "ui/forms/frmClassPicture.h"

#include <QCloseEvent>
#include <QShortcut>
#include <utility>

#include "study/logged_class.h"
#include "ui/keys/FormKeys.h"
#include "ui/picture/PictureActions.h"
#include "ui/picture/PictureFile.h"
#include "ui/print/PrintedClass.h"
#include "ui/print/PrintedClassPage.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/CodesText.h"
#include "ui_frmClassPicture.h"

namespace orvex {

frmClassPicture::frmClassPicture(LoggedClass shown, std::filesystem::path file,
                                 const Printing& printing, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::frmClassPicture>()),
      shown_(std::make_unique<LoggedClass>(std::move(shown))),
      file_(std::move(file)),
      printing_(printing) {
  ui_->setupUi(this);
  ui_->view->Show(ClassPage(shown_->Picture()));
  setWindowTitle(tr("Class Picture %1").arg(ToQt(ui_->view->Page().Picture().title)));
  connect(ui_->view, &ClassPageView::Moved, this, &frmClassPicture::Refresh);
  connect(ui_->view, &ClassPageView::Opened, this, &frmClassPicture::Open);
  connect(ui_->chkEpisodes, &QCheckBox::toggled, ui_->view, &ClassPageView::ShowEpisodes);
  connect(ui_->cmdOpen, &QPushButton::clicked, this, &frmClassPicture::Open);
  connect(ui_->cmdPrint, &QPushButton::clicked, this, &frmClassPicture::Print);
  connect(ui_->cmdPrintAll, &QPushButton::clicked, this, &frmClassPicture::PrintAll);
  connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmClassPicture::Copy);
  connect(ui_->cmdSaveAs, &QPushButton::clicked, this, &frmClassPicture::SaveAs);
  connect(ui_->cmdBack, &QPushButton::clicked, this, &frmClassPicture::Back);
  const auto key = [this](const QKeySequence& sequence, auto work) {
    connect(new QShortcut(sequence, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence::Print, &frmClassPicture::Print);
  key(QKeySequence::Copy, &frmClassPicture::Copy);
  key(QKeySequence::Save, &frmClassPicture::SaveAs);
  key(QKeySequence(Qt::Key_Escape), &QWidget::close);
  const auto open = [this](const QWidget* control, const QKeyEvent& pressed) {
    const bool opens = control == ui_->view && IsEnter(pressed);
    if (opens) Open();
    return opens;
  };
  new FormKeys(this, {.asking = {ui_->chkEpisodes, ui_->cmdPrint, ui_->cmdPrintAll, ui_->cmdCopy,
                                 ui_->cmdSaveAs},
                      .own = open});
  FocusVisibly(ui_->view);
}

frmClassPicture::~frmClassPicture() = default;

void frmClassPicture::Refresh() {
  const auto* const marked = ui_->view->Marked();
  ui_->cmdOpen->setEnabled(marked != nullptr);
  if (marked) return ui_->txtQuestion->Show(TextOf(*marked));
  ui_->txtQuestion->Show(ui_->view->Page().Picture().questions.empty()
                             ? tr("The class has no questions.")
                             : tr("Down and Up go from question to question, or click on one. "
                                  "Plus and Minus zoom, Left and Right move, 0 shows all."));
}

void frmClassPicture::AllowOpening(bool allowed) {
  ui_->cmdOpen->setVisible(allowed);
}

/// Says the whole question, and what it was coded as.
QString frmClassPicture::TextOf(const ClassPicture::QuestionTick& tick) const {
  const Episode& episode = shown_->observation.Episodes[static_cast<std::size_t>(tick.episode - 1)];
  const questionInfo& question = episode.questions[static_cast<std::size_t>(tick.number - 1)];
  return tr("%1.%2  %3").arg(tick.episode).arg(tick.number).arg(ToQt(tick.text)) +
         QLatin1Char('\n') + CodesText(question.Texts());
}

void frmClassPicture::Open() {
  const auto* const marked = ui_->view->Marked();
  if (marked && !ui_->cmdOpen->isHidden()) {
    Q_EMIT OpenQuestion(marked->episode, marked->number, marked->text);
  }
}

void frmClassPicture::Print() {
  PreviewReport(PrintedClassPage(ui_->view->Page(), ui_->view->View()), printing_, this);
}

void frmClassPicture::PrintAll() {
  SaveClassPdf(*shown_, file_, printing_);
}

QByteArray frmClassPicture::File(PictureFormat format) const {
  const ClassPage& page = ui_->view->Page();
  PageView view = ui_->view->View();
  view.marked = {};
  const auto paint = [&](QPainter& painter, const PictureSheet& sheet) {
    page.Paint(painter, sheet.area, sheet.font, sheet.palette, view);
  };
  return PictureFile(ToQt(page.Picture().title), paint, format);
}

void frmClassPicture::Copy() const {
  CopyPicture([this](PictureFormat format) { return File(format); });
}

void frmClassPicture::SaveAs() {
  SavePicture([this](PictureFormat format) { return File(format); },
              file_.parent_path() / file_.stem(), printing_);
}

void frmClassPicture::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form goes when it is closed on its signal
  Q_EMIT Back();
}

}  // namespace orvex
