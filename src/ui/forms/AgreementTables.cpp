#include "ui/forms/AgreementTables.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QShortcut>

#include "agreement/agreement_text.h"
#include "agreement/comparison.h"
#include "agreement/observer_name.h"
#include "model/activities.h"
#include "model/dimensions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmAgreement.h"

namespace orvex {
namespace {

constexpr int kPadding = 24;

ConfusionModel::View ViewOf(const CodeAgreement& code) {
  ConfusionModel::View view;
  view.table = code.table;
  const ComparedDimension& compared = *code.compared;
  for (std::size_t i = 0; i < compared.letters.size(); ++i) {
    const QString letter = ToQt(compared.letters.substr(i, 1));
    view.codes.push_back(i);
    view.names << letter;
    view.meanings << (compared.dimension
                          ? QStringLiteral("%1 (%2)").arg(
                                letter, ToQt(SchemeOf(*compared.dimension).meanings[i]))
                          : letter);
  }
  return view;
}

/// The activities that either of the two saw.
ConfusionModel::View ViewOf(const ActivityAgreement& activities) {
  ConfusionModel::View view;
  view.table = activities.table;
  view.areSeconds = true;
  for (std::size_t code = 0; code < activities.table.Codes(); ++code) {
    if (activities.table.OfFirst(code) + activities.table.OfSecond(code) == 0) continue;
    const auto number = static_cast<int>(code);
    view.codes.push_back(code);
    const bool isActivity = IsActivity(number);
    view.names << (isActivity ? ToQt(ActivityOf(number).shortName) : AgreementTables::tr("None"));
    view.meanings << (isActivity ? ToQt(ActivityOf(number).name)
                                 : AgreementTables::tr("no activity"));
  }
  return view;
}

}  // namespace

AgreementTables::AgreementTables(Ui::frmAgreement& ui, const Comparison& comparison,
                                 QObject* parent)
    : QObject(parent), ui_(ui), comparison_(comparison) {
  for (const ComparedDimension& compared : ComparedDimensions()) {
    ui_.cboTable->addItem(ToQt(compared.label));
  }
  ui_.cboTable->addItem(tr("Activities, second by second"));
  QTableView& table = *ui_.tblCodes;
  table.setModel(&table_);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setTabKeyNavigation(false);
  table.setCornerButtonEnabled(false);
  connect(ui_.cboTable, &QComboBox::currentIndexChanged, this, &AgreementTables::Refresh);
  connect(table.selectionModel(), &QItemSelectionModel::currentChanged, this,
          &AgreementTables::ShowCurrent);
  connect(&table, &QTableView::clicked, this, &AgreementTables::CellChosen);
  connect(ui_.cmdCopyTable, &QPushButton::clicked, this, &AgreementTables::Copy);
  auto* copy = new QShortcut(QKeySequence(QKeySequence::Copy), &table);
  copy->setContext(Qt::WidgetShortcut);
  connect(copy, &QShortcut::activated, this, &AgreementTables::Copy);
}

std::optional<std::size_t> AgreementTables::Dimension() const {
  const auto index = static_cast<std::size_t>(ui_.cboTable->currentIndex());
  return index < ComparedDimensions().size() ? std::optional(index) : std::nullopt;
}

void AgreementTables::Refresh() {
  const Agreement& agreement = comparison_.Result();
  const auto dimension = Dimension();
  const QModelIndex current = ui_.tblCodes->currentIndex();
  const int row = std::max(0, current.row());
  const int column = std::max(0, current.column());
  table_.Show(dimension ? ViewOf(agreement.codes[*dimension]) : ViewOf(agreement.activities));
  ui_.tblCodes->resizeColumnsToContents();
  for (int shown = 0; shown < table_.columnCount(); ++shown) {
    ui_.tblCodes->setColumnWidth(shown, ui_.tblCodes->columnWidth(shown) + kPadding);
  }
  const int last = table_.rowCount() - 1;
  ui_.tblCodes->setCurrentIndex(table_.index(std::min(row, last), std::min(column, last)));
  ShowText(ui_.lblTableAxes, tr("Rows: %1, columns: %2")
                                 .arg(ToQt(NameOfObserver(agreement, Side::first)),
                                      ToQt(NameOfObserver(agreement, Side::second))));
  ShowCurrent();
}

std::optional<AgreementCell> AgreementTables::Current() const {
  const auto codes = table_.CodesAt(ui_.tblCodes->currentIndex());
  if (!codes || table_.CountAt(ui_.tblCodes->currentIndex()) == 0) return std::nullopt;
  const Agreement& agreement = comparison_.Result();
  return AgreementCell{
      Dimension(), codes->first, codes->second,
      table_.NameOf(ui_.tblCodes->currentIndex(), ToQt(NameOfObserver(agreement, Side::first)),
                    ToQt(NameOfObserver(agreement, Side::second)))};
}

QString AgreementTables::CellText() const {
  const Agreement& agreement = comparison_.Result();
  return table_.TextAt(ui_.tblCodes->currentIndex(), ToQt(NameOfObserver(agreement, Side::first)),
                       ToQt(NameOfObserver(agreement, Side::second)));
}

void AgreementTables::ShowCurrent() {
  const bool leadsOn = Current().has_value();
  const QString way = Dimension() ? tr("Enter shows these questions.")
                                  : tr("Enter shows the activities over the class's time.");
  ShowText(ui_.lblCell, leadsOn ? CellText() + QLatin1String(".  ") + way : CellText());
}

void AgreementTables::Copy() const {
  QGuiApplication::clipboard()->setText(ToQt(ConfusionText(comparison_.Result(), Dimension())));
}

}  // namespace orvex
