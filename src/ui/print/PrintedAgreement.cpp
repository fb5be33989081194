#include "ui/print/PrintedAgreement.h"

#include "agreement/agreement_text.h"
#include "agreement/comparison.h"
#include "agreement/observer_name.h"
#include "agreement/paper_line.h"
#include "agreement/training.h"
#include "ui/text.h"
#include "ui/widgets/ActivityChart.h"
#include "ui/widgets/AgreementChart.h"

namespace orvex {
namespace {

QString WhoText(const Agreement& agreement) {
  const auto who = [](const Agreement::Observer& observer) {
    return PrintedAgreement::tr("%1 (%2)").arg(ToQt(ShownInitials(observer.identity)),
                                               ToQt(observer.file));
  };
  return PrintedAgreement::tr("%1 and %2, %3")
      .arg(who(agreement.first), who(agreement.second), ToQt(DatesText(agreement)));
}

}  // namespace

PrintedAgreement::PrintedAgreement(const Comparison& comparison)
    : FlowingReport(WhoText(comparison.Result())) {
  const Agreement& agreement = comparison.Result();
  AddCharts(comparison);
  Flow().AddHeading(tr("For a paper"));
  Flow().AddText(ToQt(PaperLine(agreement)));
  Flow().AddHeading(tr("Overview"));
  Flow().AddTabbedText(ToQt(TextOf(agreement)));
  if (comparison.MasterIs() != Master::none) {
    Flow().AddHeading(tr("Measured by the master"));
    Flow().AddTabbedText(ToQt(TextOf(TrainingOf(comparison))));
  }
  Flow().AddHeading(tr("Disagreements"));
  Flow().AddTabbedText(ToQt(DisagreementsText(comparison)));
  AddTables(comparison);
}

QString PrintedAgreement::Title() const {
  return tr("Agreement of Two Observers");
}

QString PrintedAgreement::DocumentName() const {
  return tr("Agreement");
}

void PrintedAgreement::AddCharts(const Comparison& comparison) {
  Flow().AddHeading(tr("Codes of the questions of both"));
  Flow().AddChart(AgreementChart(LinesOf(comparison.Result().codes)));
  Flow().AddHeading(tr("Activities over the class's time"));
  Flow().AddChart(ActivityChart(comparison));
}

void PrintedAgreement::AddTables(const Comparison& comparison) {
  const Agreement& agreement = comparison.Result();
  // The first cell of the text says what the table is of.
  const auto add = [&](std::optional<std::size_t> dimension) {
    const QString text = ToQt(ConfusionText(agreement, dimension));
    const qsizetype end = text.indexOf(QLatin1Char('\t'));
    Flow().AddHeading(text.left(end));
    Flow().AddTabbedText(text.mid(end));
  };
  for (std::size_t i = 0; i < agreement.codes.size(); ++i) {
    if (agreement.codes[i].table.Total() > 0) add(i);
  }
  if (agreement.activities.table.Total() > 0) add(std::nullopt);
}

}  // namespace orvex
