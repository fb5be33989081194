#include "ui/forms/frmQA.h"

#include <QCloseEvent>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTimer>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/forms/QuestionFrames.h"
#include "ui/keys/BoxFocus.h"
#include "ui/keys/FormKeys.h"
#include "ui/keys/UndoKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/QuestionRows.h"
#include "ui/widgets/ShowClocks.h"
#include "ui/widgets/ShowOfftask.h"
#include "ui_frmQA.h"

namespace orvex {
namespace {

using Command = QuestionEditor::Command;
using Control = QuestionEditor::Control;

}  // namespace

frmQA::frmQA(const Services& services, const QuestionEditorStart& start, LiveObservation* live,
             const SessionClocks* clocks, QWidget* parent)
    : QWidget(parent),
      editor_(services, start, live, clocks),
      ui_(std::make_unique<Ui::frmQA>()),
      rows_(new QuestionRows(editor_, this)) {
  ui_->setupUi(this);
  ui_->FrTimerNOfftask->setVisible(editor_.Clocks() != nullptr);
  ui_->lblLogTrouble->hide();
  KeepPlace(ui_->cmdOfftaskActive);
  ui_->cmdNxt->setVisible(editor_.ProofMode());
  ShowAsWarning(ui_->lblLogTrouble);
  frames_ = new QuestionFrames(
      *ui_, editor_, [this] { Refresh(); }, this);
  ui_->lblMeanings->Follow(
      services, [this](const QWidget* control) { return frames_->DimensionOf(control); });
  ConnectList();
  ConnectBoxes();
  ConnectButtons();
  WatchFocus();
  StartTimers();
  Refresh();
}

frmQA::~frmQA() = default;

frmQA::Buttons frmQA::EditButtons() const {
  return {{{Command::insertBefore, ui_->cmdInsB},
           {Command::insertAfter, ui_->cmdInsA},
           {Command::drop, ui_->cmdDrop},
           {Command::ditto, ui_->cmdDitto},
           {Command::makeNormal, ui_->cmdNormal},
           {Command::renumber, ui_->cmdReseq},
           {Command::nextGap, ui_->cmdNxt},
           {Command::leave, ui_->cmdReturn},
           {Command::editFieldNotes, ui_->Command1}}};
}

void frmQA::ConnectList() {
  for (int number = 1; number <= editor_.EpisodeCount(); ++number) {
    ui_->Combo1->addItem(QString::number(number));
  }
  // Also for the episode that is shown already: choosing it loads it again.
  connect(ui_->Combo1, &QComboBox::activated, this, [this](int position) {
    editor_.ChooseEpisode(position + 1);
    Refresh();
  });
  ui_->lVwQ->setModel(rows_);
  const auto choose = [this](const QModelIndex& row) {
    if (listFollows_) return;
    editor_.ChooseQuestion(row.row() + 1);
    Refresh();
  };
  connect(ui_->lVwQ->selectionModel(), &QItemSelectionModel::currentChanged, this, choose);
  connect(ui_->lVwQ, &QListView::clicked, this, choose);
}

void frmQA::ConnectBoxes() {
  const auto box = [this](QLineEdit* edit, auto type) {
    connect(edit, &QLineEdit::textEdited, this, [this, type](const QString& text) {
      type(FromQt(text));
      Refresh();
    });
  };
  box(ui_->Text1, [this](const std::string& text) { editor_.TypeDescription(text); });
  box(ui_->txtQuestion, [this](const std::string& text) { editor_.TypeQuestion(text); });
  box(ui_->txtRespondName, [this](const std::string& text) { editor_.TypeRespondName(text); });
  box(ui_->UpDown1->Box(), [this](const std::string& text) { editor_.TypeSegment(text); });
  connect(ui_->UpDown1, &SegmentBox::Stepped, this, [this](int steps) {
    editor_.StepSegment(steps);
    Refresh();
    ui_->UpDown1->Box()->selectAll();
  });
}

void frmQA::ConnectButtons() {
  const auto connectButton = [this](QPushButton* button, Command command) {
    connect(button, &QPushButton::clicked, this, [this, command] {
      editor_.Do(command);
      Refresh();
    });
  };
  for (const auto& [command, button] : EditButtons()) connectButton(button, command);
  connect(ui_->cmdNxt, &QPushButton::clicked, this, &frmQA::ShowGap);
  connect(ui_->cmdOfftaskActive, &QPushButton::clicked, this, [this] {
    editor_.Offtask()->TakeEstimate();
    Refresh();
  });
  new FormKeys(this, {.asking = {ui_->cmdOfftaskActive, ui_->Command1},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        const auto way = WayOf(key);
                        return way && TakeStep(control, *way);
                      }});
}

void frmQA::WatchFocus() {
  const auto entered = [this](const QWidget* control) {
    if (control == ui_->Text1) editor_.EnterDescription();
  };
  const auto tryLeave = [this](const QWidget* control) {
    if (control == ui_->Text1) editor_.LeaveDescription();
    if (control == ui_->UpDown1) editor_.LeaveSegment();
    editor_.LeaveBox();
    Refresh();
    return true;
  };
  const std::vector<QWidget*> boxes = {ui_->Text1, ui_->UpDown1, ui_->txtQuestion,
                                       ui_->txtRespondName};
  boxFocus_ = std::make_unique<BoxFocus>(this, boxes, entered, tryLeave);
}

void frmQA::StartTimers() {
  auto* timer1 = new QTimer(this);
  timer1->setObjectName(QStringLiteral("Timer1"));
  connect(timer1, &QTimer::timeout, this, [this] {
    editor_.ClockTick();
    RefreshClocks();
  });
  if (editor_.Clocks()) timer1->start(1000);
  auto* timer4 = new QTimer(this);
  timer4->setObjectName(QStringLiteral("Timer4"));
  connect(timer4, &QTimer::timeout, this, [this] {
    editor_.BlinkTick();
    frames_->RefreshCaptions();
  });
  if (editor_.ProofMode()) timer4->start(500);
}

void frmQA::Refresh() {
  const QString title = ToQt(editor_.Title());
  if (windowTitle() != title) setWindowTitle(title);
  RefreshList();
  RefreshTexts();
  frames_->RefreshCaptions();
  // The focus must move in between: Qt would pass the focus of a control that is hidden first to an
  // arbitrary box, and a control that is not shown yet cannot take it.
  RefreshStates(true);
  if (isVisible()) TakeFocusWish();
  RefreshStates(false);
  RefreshClocks();
}

void frmQA::RefreshList() {
  listFollows_ = true;
  ui_->Combo1->setCurrentIndex(editor_.SelEp() - 1);
  rows_->Refresh();
  const QModelIndex shown = rows_->index(editor_.CurQ() - 1);
  QItemSelectionModel* selection = ui_->lVwQ->selectionModel();
  if (selection->currentIndex() != shown) ui_->lVwQ->setCurrentIndex(shown);
  if (shown.isValid() && !selection->isSelected(shown)) {
    selection->select(shown, QItemSelectionModel::ClearAndSelect);
  }
  listFollows_ = false;
}

void frmQA::RefreshTexts() {
  const QuestionView view = editor_.View();
  ShowText(ui_->Text1, view.description);
  ShowText(ui_->Label4, view.caption);
  ShowText(ui_->txtQuestion, view.question);
  ShowText(ui_->UpDown1->Box(), view.segment);
  ui_->UpDown1->EnableSteps(view.canStepUp, view.canStepDown);
  ShowText(ui_->txtRespondName, view.respondName);
  if (editor_.TakeNameSelection()) ui_->txtRespondName->selectAll();
  ShowText(ui_->Label5, std::string(view.heading));
  ShowText(ui_->lblUndo, StepsText(editor_));
  frames_->RefreshOptions();
}

void frmQA::RefreshClocks() {
  if (!editor_.Clocks()) return;
  ShowClocks(*editor_.Clocks(), *ui_);
  ShowOfftask(*editor_.Offtask(), ui_->lblOfftask, ui_->cmdOfftaskActive);
}

/// Shows and enables the available controls if `available`, and otherwise hides and disables the
/// rest.
void frmQA::RefreshStates(bool available) {
  if (editor_.HasEpisode() == available) {
    ui_->Combo1->setEnabled(available);
    ui_->Text1->setEnabled(available);
  }
  const std::initializer_list<QWidget*> editing = {ui_->txtQuestion, ui_->Label2, ui_->Label5,
                                                   ui_->Label6, ui_->UpDown1};
  for (QWidget* control : editing) {
    if (editor_.CanEdit() == available) control->setEnabled(available);
  }
  frames_->RefreshStates(available);
  const QuestionView view = editor_.View();
  if (view.isNormal == available) ui_->Label2->setVisible(available);
  if (view.hasHeading == available) ui_->Label5->setVisible(available);
  for (const auto& [command, button] : EditButtons()) {
    if (editor_.Enabled(command) == available) button->setEnabled(available);
  }
}

void frmQA::TakeFocusWish() {
  const auto wish = editor_.TakeFocus();
  if (!wish) return;
  if (wish->control == Control::insertAfter) return FocusVisibly(ui_->cmdInsA);
  if (wish->control == Control::gap) return frames_->Focus(*editor_.FirstGap());
  FocusBox(wish->control == Control::question ? ui_->txtQuestion : ui_->txtRespondName,
           wish->caret);
}

/// Undoes or redoes a step. What is typed in the boxes is among the steps, unless a class logs the
/// description; only then the box has something of its own to undo or redo, and this is false.
bool frmQA::TakeStep(const QWidget* control, Way way) {
  if (control == ui_->Text1 && !editor_.KeepsDescription() && HasOwnStep(*ui_->Text1, way)) {
    return false;
  }
  editor_.TakeStep(way);
  Refresh();
  return true;
}

void frmQA::showEvent(QShowEvent* event) {
  // Only now every control has its font, and what was measured before does not count.
  ShowText(ui_->lblOfftask, tr("Offtask in     :            00 : 00"));
  for (QLayout* layout : {ui_->clockLayout->layout(), ui_->codingLayout->layout()}) {
    layout->invalidate();
    layout->activate();
  }
  clocksWidth_ = ui_->timesLayout->sizeHint().width() + ui_->offtaskLayout->sizeHint().width();
  ui_->scrollArea->setMinimumWidth(ui_->scrollContents->minimumSizeHint().width() +
                                   ui_->scrollArea->verticalScrollBar()->sizeHint().width());
  ArrangeClocks();
  QWidget::showEvent(event);
  Refresh();
  ShowGap();
}

/// In proof mode, scrolls to what the question lacks.
void frmQA::ShowGap() {
  if (const auto gap = editor_.FirstGap())
    ui_->scrollArea->ensureWidgetVisible(frames_->FrameOf(*gap));
}

void frmQA::resizeEvent(QResizeEvent* event) {
  ArrangeClocks();
  QWidget::resizeEvent(event);
}

/// Gives the off-task prompt a line of its own when it does not fit beside the clocks.
void frmQA::ArrangeClocks() {
  const bool narrow = ui_->FrTimerNOfftask->width() < clocksWidth_;
  ui_->clockLayout->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void frmQA::closeEvent(QCloseEvent* event) {
  boxFocus_->CheckCurrent();
  editor_.Do(Command::leave);
  event->ignore();  // the form closes when the logic says so
}

}  // namespace orvex
