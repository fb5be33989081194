#include "ui/forms/frmClassEdit.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <utility>
#include <vector>

#include "model/version.h"
#include "model/wording.h"
#include "reports/episode_origin.h"
#include "ui/ReadFromStart.h"
#include "ui/forms/SegmentCodingPanel.h"
#include "ui/forms/dlgTimer.h"
#include "ui/keys/BoxFocus.h"
#include "ui/keys/FormKeys.h"
#include "ui/keys/UndoKeys.h"
#include "ui/show.h"
#include "ui/widgets/SegmentDrag.h"
#include "ui_frmClassEdit.h"

namespace orvex {
namespace {

constexpr int kTimerInterval = 200;

QList<QKeySequence> Keys(QKeySequence::StandardKey key) {
  return QKeySequence::keyBindings(key);
}

/// There is one history for all that is changed.
bool IsUndoOrRedo(const QKeyEvent& key) {
  return WayOf(key).has_value();
}

}  // namespace

frmClassEdit::frmClassEdit(const Services& services, LoadedEpisodes loaded, QWidget* parent)
    : QWidget(parent),
      clock_(services.clock),
      editor_(services, std::move(loaded)),
      ui_(std::make_unique<Ui::frmClassEdit>()) {
  ui_->setupUi(this);
  setWindowTitle(tr("Orvex %1 Episode Editor[*]").arg(ToQt(VersionText())));
  coding_ = new SegmentCodingPanel(
      *ui_, editor_, [this] { Refresh(); }, this);
  AddKeepTrouble();
  ConnectLists();
  ConnectKeys();
  ConnectButtons();
  ConnectBoxes();
  StartTimer();
  ui_->listViewEp->setFocus();
  Refresh();
}

frmClassEdit::~frmClassEdit() = default;

void frmClassEdit::AddKeepTrouble() {
  keepTrouble_ = new QLabel(this);
  keepTrouble_->setTextFormat(Qt::PlainText);
  keepTrouble_->setWordWrap(true);
  ShowAsWarning(keepTrouble_);
  ui_->outerLayout->insertWidget(1, keepTrouble_);
}

void frmClassEdit::ConnectLists() {
  // A key changes the selection before the current row. Refreshing the whole list in between would
  // disturb that.
  RowList* episodes = ui_->listViewEp;
  RowList* segments = ui_->listViewSg;
  connect(episodes, &RowList::Chosen, this, [this](int row) {
    editor_.ShowEpisode(row);
    Refresh();
  });
  connect(episodes, &RowList::SelectionMade, this, [this] {
    editor_.SelectEpisodes(ui_->listViewEp->SelectedRows());
    RefreshButtons();
  });
  connect(segments, &RowList::Chosen, this, [this](int row) {
    editor_.ShowSegment(row);
    Refresh();
  });
  connect(segments, &RowList::SelectionMade, this, [this] {
    editor_.SelectSegments(ui_->listViewSg->SelectedRows());
    RefreshButtons();
  });
  auto* drag = new SegmentDrag(segments, {episodes, segments});
  connect(drag, &SegmentDrag::Dropped, this, [this, episodes](RowList* target, int row) {
    if (target == episodes) {
      editor_.MoveSegments(row);
    } else {
      editor_.ReorderSegments(row);
    }
    Refresh();
  });
}

QAction* frmClassEdit::AddKeys(QList<QKeySequence> keys, QWidget* where,
                               std::function<void()> work) {
  auto* action = new QAction(where);
  action->setShortcuts(keys);
  action->setShortcutContext(where == this ? Qt::WindowShortcut : Qt::WidgetShortcut);
  where->addAction(action);
  connect(action, &QAction::triggered, this, [this, work = std::move(work)] {
    work();
    Refresh();
  });
  return action;
}

void frmClassEdit::ConnectKeys() {
  undo_ = AddKeys(KeysOf(Way::undo), this, [this] { editor_.TakeStep(Way::undo); });
  redo_ = AddKeys(KeysOf(Way::redo), this, [this] { editor_.TakeStep(Way::redo); });
  AddKeys(Keys(QKeySequence::Save), this, [this] { editor_.Save(); });
  for (RowList* list : {ui_->listViewEp, ui_->listViewSg}) {
    AddKeys(Keys(QKeySequence::Cut), list, [this] { editor_.Cut(); });
    AddKeys({QKeySequence(Qt::Key_Escape)}, list, [this] { editor_.CancelCut(); });
  }
  AddKeys(Keys(QKeySequence::Paste), ui_->listViewEp,
          [this] { editor_.PasteOntoEpisode(ui_->listViewEp->CurrentRow()); });
  AddKeys(Keys(QKeySequence::Paste), ui_->listViewSg,
          [this] { editor_.PasteBeforeSegment(ui_->listViewSg->CurrentRow()); });
}

void frmClassEdit::ConnectButtons() {
  const auto button = [this](QPushButton* source, auto work) {
    connect(source, &QPushButton::clicked, this, [this, work] {
      work(editor_);
      Refresh();
    });
  };
  using Editor = EpisodeEditor;
  button(ui_->cmdSplitSg, [](Editor& editor) { editor.SplitSegment(); });
  button(ui_->cmdMergeSg, [](Editor& editor) { editor.MergeSegments(); });
  button(ui_->cmdSplitEp, [](Editor& editor) { editor.SplitEpisode(); });
  button(ui_->cmdMergeEp, [](Editor& editor) { editor.MergeEpisodes(); });
  button(ui_->cmdUndo, [](Editor& editor) { editor.TakeStep(Way::undo); });
  button(ui_->cmdRedo, [](Editor& editor) { editor.TakeStep(Way::redo); });
  button(ui_->Command1, [](Editor& editor) { editor.EditQuestions(); });
  button(ui_->Command2, [](Editor& editor) { editor.ShowReport(Screen::timeSummary); });
  button(ui_->Command3, [](Editor& editor) { editor.ShowReport(Screen::questionStats); });
  button(ui_->Command4, [](Editor& editor) { editor.Save(); });
  button(ui_->Command6, [](Editor& editor) { editor.ShowReport(Screen::questionPlot); });
  button(ui_->Command7, [](Editor& editor) { editor.Proof(); });
  button(ui_->cmdPicture, [](Editor& editor) { editor.ShowReport(Screen::classPicture); });
  connect(ui_->Command5, &QPushButton::clicked, this, &frmClassEdit::ShowTimer);
  connect(ui_->cmdQuit, &QPushButton::clicked, this, &QWidget::close);
  // Whoever comes back goes on where they were.
  new FormKeys(this,
               {.asking = {ui_->cmdSplitSg, ui_->cmdMergeSg, ui_->cmdSplitEp, ui_->cmdMergeEp,
                           ui_->cmdUndo, ui_->cmdRedo, ui_->Command1, ui_->Command2, ui_->Command3,
                           ui_->Command4, ui_->Command6, ui_->Command7, ui_->cmdPicture},
                .letters = [this](const QWidget* control,
                                  const QKeyEvent& key) { return ButtonUnder(control, key); },
                .shortcuts = IsUndoOrRedo,
                .own = [this](const QWidget* control,
                              const QKeyEvent& key) { return coding_->TakeKey(control, key); }});
}

void frmClassEdit::ConnectBoxes() {
  connect(ui_->txtEpisodeName, &QLineEdit::textEdited, this, [this](const QString& text) {
    editor_.TypeDescription(FromQt(text));
    Refresh();
  });
  const std::vector<QWidget*> boxes = {ui_->txtEpisodeName, ui_->txtAboutData, ui_->Text1};
  boxFocus_ = std::make_unique<BoxFocus>(
      this, boxes, [](const QWidget*) {},
      [this](const QWidget*) {
        editor_.LeaveBox();
        Refresh();
        return true;
      });
  for (QLineEdit* box : {ui_->txtEpisodeName, ui_->txtAboutData, ui_->Text1}) {
    box->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(box, &QWidget::customContextMenuRequested, this,
            [this, box](const QPoint& position) { ShowMenu(*box, position); });
  }
}

/// Shows the context menu of a box, with the editor's undo and redo replacing the box's own.
void frmClassEdit::ShowMenu(QLineEdit& box, const QPoint& position) {
  const std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
  for (QAction* own : menu->actions().first(2)) menu->removeAction(own);
  menu->insertActions(menu->actions().value(0), {undo_, redo_});
  menu->exec(box.mapToGlobal(position));
}

void frmClassEdit::StartTimer() {
  auto* timer1 = new QTimer(this);
  timer1->setObjectName(QStringLiteral("Timer1"));
  connect(timer1, &QTimer::timeout, this, &frmClassEdit::Refresh);
  timer1->start(kTimerInterval);
}

void frmClassEdit::ShowTimer() {
  if (!timer_) timer_ = new dlgTimer(clock_, this);
  timer_->show();
  timer_->activateWindow();
}

void frmClassEdit::Refresh() {
  setWindowModified(editor_.Modified());
  RefreshTexts();
  RefreshLists();
  coding_->Refresh();
  RefreshButtons();
}

void frmClassEdit::RefreshTexts() {
  const EditedFile& file = editor_.File();
  const std::string trouble = file.KeepTrouble();
  ShowText(keepTrouble_, NotKeptText(trouble));
  keepTrouble_->setVisible(!trouble.empty());
  ShowText(ui_->Label7, ObserverText(file.Header()));
  ShowText(ui_->Label8, FromQt(tr("File: %1").arg(ToQt(file.Path().string()))));
  ShowText(ui_->Label11, DateText(file.Header()));
  const EpisodeView view = editor_.View();
  ShowText(ui_->Label12, view.total);
  ReadFromStart(ui_->txtEpisodeName, view.description);
  ui_->txtEpisodeName->setEnabled(view.hasEpisode);
  ShowText(ui_->Label10, view.activity);
  ShowText(ui_->Label1, view.duration);
  ShowText(ui_->Label2, view.segmentCount);
  ShowText(ui_->lblDSpells, view.spells);
  ui_->Command1->setEnabled(view.hasEpisode);
  ui_->Command3->setEnabled(view.hasQuestions);
  ui_->Command6->setEnabled(view.hasQuestions);
}

void frmClassEdit::RefreshLists() {
  const ListSelection& selection = editor_.Selection();
  ui_->listViewEp->ShowRows(editor_.EpisodeRows(), selection.episodes, selection.episode);
  ui_->listViewSg->ShowRows(editor_.SegmentRows(), selection.segments, selection.segment);
  ui_->listViewSg->ShowFaint([this](int row) { return editor_.IsCut(row); });
}

void frmClassEdit::RefreshButtons() {
  const PossibleEdits possible = editor_.Possible();
  ui_->cmdSplitSg->setEnabled(possible.splitSegment);
  ui_->cmdSplitSg->setToolTip(Qt::convertFromPlainText(ToQt(possible.splitSegmentHint)));
  ui_->cmdMergeSg->setEnabled(possible.mergeSegments);
  ui_->cmdSplitEp->setEnabled(possible.splitEpisode);
  ui_->cmdMergeEp->setEnabled(possible.mergeEpisodes);
  const auto step = [this](QPushButton* button, QAction* action, const QString& verb, Way way) {
    const QString name = ToQt(editor_.StepName(way));
    const QString text = name.isEmpty() ? verb : verb + QLatin1Char(' ') + name;
    ShowText(button, text);
    button->setEnabled(!name.isEmpty());
    action->setText(text);
    action->setEnabled(!name.isEmpty());
  };
  step(ui_->cmdUndo, undo_, tr("&Undo"), Way::undo);
  step(ui_->cmdRedo, redo_, tr("&Redo"), Way::redo);
}

/// The button under a list that has the letter `key`. The two lists have the same letters: from
/// within a list they are for its own buttons, from anywhere else for those of the episodes.
QPushButton* frmClassEdit::ButtonUnder(const QWidget* list, const QKeyEvent& key) const {
  const bool episodes = list == ui_->listViewEp;
  if (!episodes && list != ui_->listViewSg) return nullptr;
  const QKeySequence pressed(key.keyCombination());
  for (QPushButton* button : {episodes ? ui_->cmdSplitEp : ui_->cmdSplitSg,
                              episodes ? ui_->cmdMergeEp : ui_->cmdMergeSg}) {
    // In a list that cannot merge, its key must not reach the other list's button. A disabled split
    // does give way: splitting an episode starts from the list of segments.
    const bool answers =
        button->isEnabled() || button == ui_->cmdMergeEp || button == ui_->cmdMergeSg;
    if (answers && QKeySequence::mnemonic(button->text()) == pressed) return button;
  }
  return nullptr;
}

void frmClassEdit::showEvent(QShowEvent* event) {
  // The fonts are only known now.
  coding_->Arrange();
  ui_->scrollArea->setMinimumWidth(ui_->scrollContents->minimumSizeHint().width() +
                                   ui_->scrollArea->verticalScrollBar()->sizeHint().width());
  // Other forms may have changed the episodes when the form comes back.
  if (!event->spontaneous() && editor_.HasBeenLeft()) editor_.Activate();
  QWidget::showEvent(event);
}

void frmClassEdit::closeEvent(QCloseEvent* event) {
  editor_.Quit();
  event->ignore();  // the form closes when the program ends
  // If the user continues with another file, the focus should not be on "Quit".
  ui_->listViewEp->setFocus();
  Refresh();
}

}  // namespace orvex
