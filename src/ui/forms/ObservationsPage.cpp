#include "ui/forms/ObservationsPage.h"

#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMenu>
#include <QUrl>
#include <algorithm>

#include "ui/forms/ObservationActions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/StudyColumns.h"
#include "ui_frmStudy.h"

namespace orvex {

ObservationsPage::ObservationsPage(Ui::frmStudy& ui, StudyActions& actions, QObject* parent)
    : QObject(parent), ui_(ui), do_(actions) {
  StudyTable& table = *ui_.tblObservations;
  table.Show(rows_);
  columns_ = new StudyColumns(table);
  actions_ = new ObservationActions(table, [this](StudyAction action) { Do(action); });
  AddMore();
  ui_.cmdColumns->setMenu(columns_->Menu());
  ui_.cmdActions->setMenu(actions_->Menu());
  table.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&table, &QWidget::customContextMenuRequested, this, [this, &table](const QPoint& at) {
    actions_->Menu()->popup(table.viewport()->mapToGlobal(at));
  });
  connect(&table, &StudyTable::Opened, this, &ObservationsPage::Open);
  connect(&table, &StudyTable::CurrentMoved, this, &ObservationsPage::ShowCurrent);
  connect(columns_, &StudyColumns::Sorted, this, [this](StudyColumn column, bool descending) {
    Change([&] { study_->SortBy(column, descending); });
  });
  ConnectFilter();
}

void ObservationsPage::ConnectFilter() {
  for (QCheckBox* box : {ui_.chkNotFullyCoded, ui_.chkNoSurvey, ui_.chkProblems, ui_.chkMine}) {
    connect(box, &QCheckBox::toggled, this, &ObservationsPage::Filter);
  }
  connect(ui_.txtFilter, &QLineEdit::textChanged, this, &ObservationsPage::Filter);
  connect(ui_.txtInitials, &QLineEdit::textChanged, this, [this](const QString& initials) {
    // Who types initials wants to see these observations.
    if (ui_.chkMine->isChecked() == initials.isEmpty()) return ui_.chkMine->toggle();
    Filter();
  });
}

/// Adds what is not about a single observation.
void ObservationsPage::AddMore() {
  QMenu& menu = *actions_->Menu();
  const auto add = [&](const QString& caption, const QKeySequence& key, auto work) {
    QAction* action = menu.addAction(caption, this, work);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    ui_.tblObservations->addAction(action);
  };
  menu.addSeparator();
  add(tr("A&greement..."), Qt::CTRL | Qt::Key_G, [this] { ShowAgreement(); });
  add(tr("Show in &Folder"), Qt::CTRL | Qt::Key_D, [this] { ShowInFolder(); });
  add(tr("&Copy Rows"), QKeySequence::Copy, [this] { Copy(); });
  add(tr("Sort &by This Column"), Qt::CTRL | Qt::Key_B,
      [this] { columns_->SortBy(std::max(0, ui_.tblObservations->currentIndex().column())); });
}

void ObservationsPage::Show(Study& study, const StudyLayout& layout) {
  study_ = nullptr;  // nothing that the controls say yet is meant for it
  layout_ = layout;
  ShowText(ui_.txtFilter, layout.filter.text);
  ui_.chkNotFullyCoded->setChecked(layout.filter.notFullyCoded);
  ui_.chkNoSurvey->setChecked(layout.filter.noSurvey);
  ui_.chkProblems->setChecked(layout.filter.problems);
  ShowText(ui_.txtInitials, layout.filter.initials);
  ui_.chkMine->setChecked(layout.filter.mine);
  study_ = &study;
  study.SetFilter(layout.filter);
  study.SortBy(layout.sortedBy, layout.descending);
  rows_.Show(&study);
  ui_.tblObservations->Refill({});
  columns_->Arrange(layout);
}

StudyLayout ObservationsPage::Layout() const {
  StudyLayout layout = layout_;
  if (study_) layout.filter = study_->Filter();
  columns_->Store(layout);
  return layout;
}

void ObservationsPage::Change(const std::function<void()>& change) {
  const StudyTable::Place place = ui_.tblObservations->PlaceNow();
  change();
  ui_.tblObservations->Refill(place);
  ShowText(ui_.lblTotals, TextOf(study_->Totals()));
}

void ObservationsPage::Filter() {
  if (!study_) return;
  Change([this] {
    study_->SetFilter({.text = FromQt(ui_.txtFilter->text()),
                       .notFullyCoded = ui_.chkNotFullyCoded->isChecked(),
                       .noSurvey = ui_.chkNoSurvey->isChecked(),
                       .problems = ui_.chkProblems->isChecked(),
                       .mine = ui_.chkMine->isChecked(),
                       .initials = FromQt(ui_.txtInitials->text())});
  });
}

/// A copy: what is done with it may take long, and the rows change meanwhile.
std::optional<StudyRow> ObservationsPage::Current() const {
  const auto row = ui_.tblObservations->CurrentRow();
  return study_ && row && *row < study_->Count() ? std::optional(study_->Row(*row)) : std::nullopt;
}

void ObservationsPage::Do(StudyAction action) {
  const auto selected = ui_.tblObservations->SelectedRows();
  if (selected.size() > 1) {
    if (action == StudyAction::showStatistics) return do_.ShowStatistics(*study_, selected);
    if (action == StudyAction::showPicture) return do_.ShowPictures(*study_, selected);
  }
  if (const auto row = Current()) do_.Do(action, *row);
}

void ObservationsPage::MakeTables() {
  do_.MakeTables(*study_, ui_.tblObservations->SelectedRows());
}

void ObservationsPage::ShowAgreement() {
  if (study_) do_.ShowAgreement(*study_, ui_.tblObservations->SelectedRows());
}

void ObservationsPage::ShowInFolder() {
  const auto row = Current();
  if (!row) return;
  const std::filesystem::path file = FirstOf(row->files);
  if (file.empty()) return;
  const std::filesystem::path folder = file.parent_path();
  QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(folder.string())));
}

/// Copies the selected rows, as they are shown.
void ObservationsPage::Copy() {
  const auto rows = ui_.tblObservations->SelectedRows();
  if (study_ && !rows.empty()) {
    QGuiApplication::clipboard()->setText(ToQt(study_->TextOf(rows, columns_->Shown())));
  }
}

void ObservationsPage::ShowCurrent() {
  const auto row = Current();
  actions_->Refresh(row ? &*row : nullptr);
  Q_EMIT CurrentMoved();
  QString problems;
  if (row) {
    for (const std::string& problem : row->problems) {
      problems += (problems.isEmpty() ? QString() : QStringLiteral("\n")) + ToQt(problem);
    }
  }
  ui_.txtProblems->Show(problems);
}

bool ObservationsPage::CanOpen() const {
  const auto row = Current();
  return row && IsPossible(StudyAction::open, *row);
}

}  // namespace orvex
