#include "ui/forms/frmClassEdit.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <utility>
#include <vector>

#include "model/coding_scheme.h"
#include "ui/ReadFromStart.h"
#include "ui/forms/SegmentCodingPanel.h"
#include "ui/forms/dlgTimer.h"
#include "ui/keys/BoxFocus.h"
#include "ui/keys/FocusReturn.h"
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

bool IsUndoOrRedo(const QKeyEvent& key) {
  return WayOf(key).has_value();
}

}  // namespace

frmClassEdit::frmClassEdit(const Services& services, OpenedFile opened, QWidget* parent)
    : QWidget(parent),
      clock_(services.clock),
      editor_(services, std::move(opened)),
      ui_(std::make_unique<Ui::frmClassEdit>()) {
  ui_->setupUi(this);
  setWindowTitle(ToQt(editor_.Caption()) + QStringLiteral("[*]"));
  coding_ = new SegmentCodingPanel(
      *ui_, editor_, [this] { Refresh(); }, this);
  AddKeepTrouble();
  ConnectLists();
  ConnectKeys();
  ConnectButtons();
  ConnectBoxes();
  StartTimer();
  installEventFilter(this);
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
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
  // A key selects a row before it goes there: the list is not to be called back in between.
  RowList* episodes = ui_->listViewEp;
  RowList* segments = ui_->listViewSg;
  connect(episodes, &RowList::Chosen, this, [this](int row) {
    editor_.GetEpisode(row);
    Refresh();
  });
  connect(episodes, &RowList::SelectionMade, this, [this] {
    editor_.SetSelectedEpisodes(ui_->listViewEp->SelectedRows());
    RefreshButtons();
  });
  connect(segments, &RowList::Chosen, this, [this](int row) {
    editor_.ShowSegment(row);
    Refresh();
  });
  connect(segments, &RowList::SelectionMade, this, [this] {
    editor_.SetSelectedSegments(ui_->listViewSg->SelectedRows());
    RefreshButtons();
  });
  auto* drag = new SegmentDrag(segments, {episodes, segments});
  connect(drag, &SegmentDrag::Dropped, this, [this, episodes](RowList* target, int row) {
    if (target == episodes) {
      editor_.DropOnEpisode(row);
    } else {
      editor_.DropOnSegment(row);
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
  undo_ = AddKeys(KeysOf(Way::undo), this, [this] { editor_.Undo(); });
  redo_ = AddKeys(KeysOf(Way::redo), this, [this] { editor_.Redo(); });
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
  const auto button = [this](QPushButton* source, void (EpisodeEditor::*click)()) {
    connect(source, &QPushButton::clicked, this, [this, click] {
      (editor_.*click)();
      Refresh();
    });
  };
  button(ui_->cmdSplitSg, &EpisodeEditor::cmdSplitSg_Click);
  button(ui_->cmdMergeSg, &EpisodeEditor::cmdMergeSg_Click);
  button(ui_->cmdSplitEp, &EpisodeEditor::cmdSplitEp_Click);
  button(ui_->cmdMergeEp, &EpisodeEditor::cmdMergeEp_Click);
  button(ui_->cmdUndo, &EpisodeEditor::Undo);
  button(ui_->cmdRedo, &EpisodeEditor::Redo);
  button(ui_->Command1, &EpisodeEditor::EditQuestions);
  button(ui_->Command2, &EpisodeEditor::ShowTimeSummary);
  button(ui_->Command3, &EpisodeEditor::ShowStatistics);
  button(ui_->Command6, &EpisodeEditor::ShowPlot);
  button(ui_->Command7, &EpisodeEditor::Proof);
  connect(ui_->Command4, &QPushButton::clicked, this, [this] {
    editor_.Save();
    Refresh();
  });
  connect(ui_->Command5, &QPushButton::clicked, this, &frmClassEdit::ShowTimer);
  connect(ui_->cmdQuit, &QPushButton::clicked, this, &QWidget::close);
  // Whoever comes back goes on where they were.
  for (QPushButton* source : {ui_->cmdSplitSg, ui_->cmdMergeSg, ui_->cmdSplitEp, ui_->cmdMergeEp,
                              ui_->cmdUndo, ui_->cmdRedo, ui_->Command1, ui_->Command2,
                              ui_->Command3, ui_->Command4, ui_->Command6, ui_->Command7}) {
    new FocusReturn(source);
  }
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

/// The menu of a box, with the editor's undo and redo in the place of the box's own.
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
  const std::string trouble = editor_.KeepTrouble();
  ShowText(keepTrouble_, NotKeptText(trouble));
  keepTrouble_->setVisible(!trouble.empty());
  ShowText(ui_->Label7, editor_.ObserverText());
  ShowText(ui_->Label8, editor_.FileText());
  ShowText(ui_->Label11, editor_.DateText());
  ShowText(ui_->Label12, editor_.TotalText());
  ReadFromStart(ui_->txtEpisodeName, editor_.Description());
  ui_->txtEpisodeName->setEnabled(editor_.HasEpisode());
  ShowText(ui_->Label10, PlainText(editor_.ActivityText()));
  ShowText(ui_->Label1, editor_.DurationText());
  ShowText(ui_->Label2, editor_.SegmentCountText());
  ShowText(ui_->lblDSpells, editor_.SpellsText());
}

void frmClassEdit::RefreshLists() {
  ui_->listViewEp->ShowRows(editor_.EpisodeRows(), editor_.SelectedEpisodes(),
                            editor_.CurrentEpisode());
  ui_->listViewSg->ShowRows(editor_.SegmentRows(), editor_.SelectedSegments(),
                            editor_.CurrentSegment());
  ui_->listViewSg->ShowFaint([this](int row) { return editor_.IsCut(row); });
}

void frmClassEdit::RefreshButtons() {
  ui_->cmdSplitSg->setEnabled(editor_.CanSplitSegment());
  ui_->cmdSplitSg->setToolTip(Qt::convertFromPlainText(ToQt(editor_.SplitSegmentHint())));
  ui_->cmdMergeSg->setEnabled(editor_.CanMergeSegments());
  ui_->cmdSplitEp->setEnabled(editor_.CanSplitEpisode());
  ui_->cmdMergeEp->setEnabled(editor_.CanMergeEpisodes());
  ui_->Command1->setEnabled(editor_.HasEpisode());
  ui_->Command3->setEnabled(editor_.HasQuestions());
  ui_->Command6->setEnabled(editor_.HasQuestions());
  const auto step = [](QPushButton* button, QAction* action, const char* verb,
                       const std::string& name) {
    const std::string text = name.empty() ? verb : verb + (" " + name);
    ShowText(button, text);
    button->setEnabled(!name.empty());
    action->setText(ToQt(text));
    action->setEnabled(!name.empty());
  };
  step(ui_->cmdUndo, undo_, "&Undo", editor_.UndoName());
  step(ui_->cmdRedo, redo_, "&Redo", editor_.RedoName());
}

/// The button under a list that has the letter `key`. The two lists have the same letters: from
/// within a list they are for its own buttons, from anywhere else for those of the episodes.
QPushButton* frmClassEdit::ButtonUnder(const QObject* list, const QKeyEvent& key) const {
  const bool episodes = list == ui_->listViewEp;
  if (!episodes && list != ui_->listViewSg) return nullptr;
  const QKeySequence pressed(key.keyCombination());
  for (QPushButton* button : {episodes ? ui_->cmdSplitEp : ui_->cmdSplitSg,
                              episodes ? ui_->cmdMergeEp : ui_->cmdMergeSg}) {
    // Where nothing can be merged, the key is not for the other list; to split an episode, though,
    // one stands in the list of its segments.
    const bool answers =
        button->isEnabled() || button == ui_->cmdMergeEp || button == ui_->cmdMergeSg;
    if (answers && QKeySequence::mnemonic(button->text()) == pressed) return button;
  }
  return nullptr;
}

bool frmClassEdit::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && IsUndoOrRedo(*static_cast<QKeyEvent*>(event))) {
    // A box would take it for itself; there is one history for all that is changed.
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::ShortcutOverride &&
      ButtonUnder(watched, *static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (QPushButton* button = ButtonUnder(watched, key)) {
      button->setFocus(Qt::ShortcutFocusReason);
      button->click();
      return true;
    }
    return IsSpareMnemonic(key) || IsUndoOrRedo(key) || key.key() == Qt::Key_Return ||
           key.key() == Qt::Key_Enter;
  }
  auto* control = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::FocusIn && ui_->scrollContents->isAncestorOf(control)) {
    ui_->scrollArea->ensureWidgetVisible(control);
  }
  return false;
}

void frmClassEdit::showEvent(QShowEvent* event) {
  // Only now every control has its font.
  coding_->Arrange();
  ui_->scrollArea->setMinimumWidth(ui_->scrollContents->minimumSizeHint().width() +
                                   ui_->scrollArea->verticalScrollBar()->sizeHint().width());
  QWidget::showEvent(event);
}

void frmClassEdit::closeEvent(QCloseEvent* event) {
  editor_.RequestClose();
  event->ignore();  // the form goes when the program ends
  // Whoever goes on with another file does not begin on "Quit".
  ui_->listViewEp->setFocus();
  Refresh();
}

}  // namespace orvex
