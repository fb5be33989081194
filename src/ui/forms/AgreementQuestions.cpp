#include "ui/forms/AgreementQuestions.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QStringList>
#include <algorithm>

#include "agreement/row_text.h"
#include "ui/forms/AgreementTables.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/CodesDelegate.h"
#include "ui_frmAgreement.h"

namespace orvex {

AgreementQuestions::AgreementQuestions(Ui::frmAgreement& ui, Comparison& comparison,
                                       AgreementActions& actions, QObject* parent)
    : QObject(parent), ui_(ui), comparison_(comparison), do_(actions), rows_(comparison) {
  StudyTable& table = *ui_.tblPairs;
  table.Show(rows_);
  table.FitColumns();
  auto* codes = new CodesDelegate(this);
  table.setItemDelegateForColumn(PairsModel::firstCodes, codes);
  table.setItemDelegateForColumn(PairsModel::secondCodes, codes);
  connect(&table, &StudyTable::Opened, this, [this] { Open(Side::first); });
  connect(&table, &StudyTable::CurrentMoved, this, &AgreementQuestions::ShowCurrent);
  connect(&table, &StudyTable::SelectionMade, this, &AgreementQuestions::ShowCurrent);
  ConnectFilter();
  ConnectButtons();
}

AgreementQuestions::~AgreementQuestions() = default;

void AgreementQuestions::ConnectFilter() {
  ui_.cboDimension->addItem(tr("All"));
  for (const ComparedDimension& compared : ComparedDimensions()) {
    ui_.cboDimension->addItem(ToQt(compared.label));
  }
  connect(ui_.cboDimension, &QComboBox::currentIndexChanged, this, &AgreementQuestions::Refresh);
  connect(ui_.chkDisagreements, &QCheckBox::toggled, this, &AgreementQuestions::Refresh);
}

void AgreementQuestions::ConnectButtons() {
  const auto button = [this](QPushButton* source, auto work) {
    connect(source, &QPushButton::clicked, this, work);
  };
  button(ui_.cmdPrevious, [this] { Step(false); });
  button(ui_.cmdNext, [this] { Step(true); });
  button(ui_.cmdPair, [this] { Change([this] { return do_.Pair(Selected()); }); });
  button(ui_.cmdUnpair,
         [this] { Change([this] { return std::optional(comparison_.Unpair(*ToPart())); }); });
  button(ui_.cmdUndo, [this] { Undo(); });
  button(ui_.cmdWords, [this] { ChangeAll(&Comparison::PairByWords); });
  button(ui_.cmdFirst, [this] { Open(Side::first); });
  button(ui_.cmdSecond, [this] { Open(Side::second); });
  auto* copy = new QAction(tr("&Copy Rows"), this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &AgreementQuestions::Copy);
  ui_.tblPairs->addAction(copy);
  ui_.tblPairs->setContextMenuPolicy(Qt::ActionsContextMenu);
}

std::optional<std::size_t> AgreementQuestions::DimensionShown() const {
  if (cell_) return cell_->dimension;
  const int index = ui_.cboDimension->currentIndex();
  return index > 0 ? std::optional(static_cast<std::size_t>(index - 1)) : std::nullopt;
}

std::optional<std::size_t> AgreementQuestions::Current() const {
  const auto row = ui_.tblPairs->CurrentRow();
  return row && *row < rows_.Shown().size() ? std::optional(rows_.Shown()[*row]) : std::nullopt;
}

std::vector<std::size_t> AgreementQuestions::Selected() const {
  std::vector<std::size_t> selected;
  for (const std::size_t row : ui_.tblPairs->SelectedRows()) selected.push_back(rows_.Shown()[row]);
  return selected;
}

std::optional<std::size_t> AgreementQuestions::ToPart() const {
  const auto selected = Selected();
  const auto row = selected.empty() ? Current() : std::optional(selected.front());
  const bool isOne = row && selected.size() <= 1;
  return isOne && comparison_.CanUnpair(*row) ? row : std::nullopt;
}

void AgreementQuestions::Refresh() {
  const StudyTable::Place place = ui_.tblPairs->PlaceNow();
  const auto dimension = DimensionShown();
  rows_.Show(cell_ ? comparison_.RowsOfCell(*cell_->dimension, cell_->first, cell_->second)
                   : comparison_.Shown(ui_.chkDisagreements->isChecked(), dimension),
             dimension);
  ui_.tblPairs->Refill(place);
  const auto disagreements = std::ranges::count_if(
      rows_.Shown(), [&](std::size_t row) { return comparison_.IsDisagreement(row, dimension); });
  QString shown = tr("%1 of %2 rows, %3 disagreements")
                      .arg(rows_.Shown().size())
                      .arg(comparison_.Rows().size())
                      .arg(disagreements);
  if (cell_) shown = cell_->name + QLatin1String(".  ") + shown;
  ShowText(ui_.lblShown, shown);
  ui_.cmdBack->setVisible(cell_ != nullptr);
  for (QWidget* filter :
       {static_cast<QWidget*>(ui_.cboDimension), static_cast<QWidget*>(ui_.chkDisagreements)}) {
    filter->setEnabled(!cell_);
  }
}

void AgreementQuestions::ShowCell(const AgreementCell& cell) {
  cell_ = std::make_unique<AgreementCell>(cell);
  Refresh();
}

void AgreementQuestions::LeaveCell() {
  cell_.reset();
  Refresh();
}

void AgreementQuestions::Open(Side side) {
  if (const auto row = Current()) do_.Open(*row, side);
}

/// Goes to the row at `position` in the comparison. What the filter hides is not gone to.
void AgreementQuestions::GoTo(std::size_t position) {
  const auto found = std::ranges::find(rows_.Shown(), position);
  if (found == rows_.Shown().end()) return;
  ui_.tblPairs->GoTo(static_cast<std::size_t>(found - rows_.Shown().begin()));
}

void AgreementQuestions::Step(bool forward) {
  auto row = Current();
  while (row) {
    row = comparison_.NextDisagreement(*row, forward, DimensionShown());
    if (row && std::ranges::binary_search(rows_.Shown(), *row)) return GoTo(*row);
  }
}

/// Changes the pairs and goes to the first of them that is another now.
void AgreementQuestions::ChangeAll(void (Comparison::*change)()) {
  const QuestionPairs before = comparison_.Result().pairs;
  (comparison_.*change)();
  Q_EMIT PairsChanged();
  const QuestionPairs& now = comparison_.Result().pairs;
  const auto changed = std::ranges::mismatch(now, before).in1;
  if (changed != now.end()) GoTo(static_cast<std::size_t>(changed - now.begin()));
}

void AgreementQuestions::Undo() {
  if (comparison_.CanUndo()) ChangeAll(&Comparison::Undo);
}

void AgreementQuestions::Redo() {
  if (comparison_.CanRedo()) ChangeAll(&Comparison::Redo);
}

/// Changes the pairs and goes to the row that the change returns.
void AgreementQuestions::Change(const std::function<std::optional<std::size_t>()>& change) {
  const auto row = change();
  Q_EMIT PairsChanged();
  if (row) GoTo(*row);
}

void AgreementQuestions::Copy() const {
  QStringList lines;
  QStringList headings;
  for (int column = 0; column < rows_.columnCount(); ++column) {
    headings << rows_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  }
  lines << headings.join(QLatin1Char('\t'));
  for (const std::size_t row : ui_.tblPairs->SelectedRows()) {
    QStringList cells;
    for (int column = 0; column < rows_.columnCount(); ++column) {
      cells << rows_.index(static_cast<int>(row), column).data().toString();
    }
    lines << cells.join(QLatin1Char('\t'));
  }
  if (lines.size() > 1) QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

/// Says the question in full, and what can be done with it.
void AgreementQuestions::ShowCurrent() {
  const auto row = Current();
  const auto selected = Selected();
  ui_.cmdPair->setEnabled(do_.CanPair(selected));
  ui_.cmdUnpair->setEnabled(ToPart().has_value());
  ui_.cmdUndo->setEnabled(comparison_.CanUndo());
  ui_.cmdWords->setEnabled(comparison_.Result().pairsGiven);
  ui_.cmdFirst->setEnabled(row && do_.CanOpen(*row, Side::first));
  ui_.cmdSecond->setEnabled(row && do_.CanOpen(*row, Side::second));
  ui_.txtPair->Show(row ? ToQt(DetailsOf(comparison_, comparison_.Rows()[*row])) : QString());
}

void AgreementQuestions::FocusTable() {
  ui_.tblPairs->FocusRows();
}

}  // namespace orvex
