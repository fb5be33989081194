#include "ui/print/PrintedAgreement.h"

#include <QFontMetricsF>
#include <QPainter>

#include "agreement/agreement_text.h"
#include "agreement/comparison.h"
#include "agreement/paper_line.h"
#include "agreement/training.h"
#include "ui/text.h"
#include "ui/widgets/ActivityChart.h"
#include "ui/widgets/AgreementChart.h"

namespace orvex {

PrintedAgreement::PrintedAgreement(const Comparison& comparison) {
  const Agreement& agreement = comparison.Result();
  const auto who = [](const Agreement::Observer& observer) {
    return tr("%1 (%2)").arg(ToQt(observer.identity.Initials), ToQt(observer.file));
  };
  subtitle_ = tr("%1 and %2, %3")
                  .arg(who(agreement.first), who(agreement.second), ToQt(agreement.first.date));
  AddCharts(comparison);
  flow_.AddHeading(tr("For a paper"));
  flow_.AddText(ToQt(PaperLine(agreement)));
  flow_.AddHeading(tr("Overview"));
  flow_.AddTabbedText(ToQt(TextOf(agreement)));
  if (comparison.MasterIs() != Master::none) {
    flow_.AddHeading(tr("Measured by the master"));
    flow_.AddTabbedText(ToQt(TextOf(TrainingOf(comparison))));
  }
  flow_.AddHeading(tr("Disagreements"));
  flow_.AddTabbedText(ToQt(DisagreementsText(comparison)));
  AddTables(comparison);
}

QString PrintedAgreement::Title() const {
  return tr("Agreement of Two Observers");
}

QString PrintedAgreement::DocumentName() const {
  return tr("Agreement");
}

void PrintedAgreement::AddCharts(const Comparison& comparison) {
  const AgreementChart codes(LinesOf(comparison.Result().codes));
  flow_.AddHeading(tr("Codes of the questions of both"));
  flow_.AddChart([codes](double) { return codes.Height(QFontMetricsF(PaperFlow::Font())); },
                 [codes](QPainter& painter, const QRectF& area) {
                   codes.Paint(painter, area, PaperFlow::Palette());
                 });
  const ActivityChart activities(comparison);
  flow_.AddHeading(tr("Activities over the class's time"));
  flow_.AddChart(
      [activities](double) { return activities.Height(QFontMetricsF(PaperFlow::Font())); },
      [activities](QPainter& painter, const QRectF& area) {
        activities.Paint(painter, area, PaperFlow::Palette());
      });
}

void PrintedAgreement::AddTables(const Comparison& comparison) {
  const Agreement& agreement = comparison.Result();
  // The first cell of the text says what the table is of.
  const auto add = [&](std::optional<std::size_t> dimension) {
    const QString text = ToQt(ConfusionText(agreement, dimension));
    const qsizetype end = text.indexOf(QLatin1Char('\t'));
    flow_.AddHeading(text.left(end));
    flow_.AddTabbedText(text.mid(end));
  };
  for (std::size_t i = 0; i < agreement.codes.size(); ++i) {
    if (agreement.codes[i].table.Total() > 0) add(i);
  }
  if (agreement.activities.table.Total() > 0) add(std::nullopt);
}

}  // namespace orvex
