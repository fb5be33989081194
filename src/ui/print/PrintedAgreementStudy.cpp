#include "ui/print/PrintedAgreementStudy.h"

#include <QFontMetricsF>
#include <QPainter>

#include "agreement/agreement_study.h"
#include "agreement/observers.h"
#include "agreement/paper_line.h"
#include "agreement/study_tables.h"
#include "ui/text.h"
#include "ui/widgets/AgreementChart.h"
#include "ui/widgets/CourseChart.h"

namespace orvex {

PrintedAgreementStudy::PrintedAgreementStudy(const AgreementStudy& study,
                                             std::optional<std::size_t> dimension)
    : FlowingReport(tr("%1 pairs, %2 questions of both observers")
                        .arg(study.pairs.size())
                        .arg(study.pooled.bothQuestions)) {
  AddPooled(study);
  Flow().AddHeading(tr("Observers, the one who agrees least first"));
  Flow().AddTable(ObserversTable(study));
  AddCourses(study, dimension);
  Flow().AddHeading(tr("Figures analysed class by class"));
  Flow().AddTable(IccTable(study));
  Flow().AddHeading(tr("Pairs"));
  Flow().AddTable(PairsTable(study));
  Flow().AddHeading(tr("For a paper"));
  Flow().AddText(ToQt(PaperLine(study)));
  const bool hasMore = !study.unread.empty() || !study.remarks.empty();
  if (hasMore) Flow().AddHeading(tr("Left out"));
  for (const Problem& problem : study.unread) Flow().AddText(ToQt(problem.Sentence()));
  for (const std::string& remark : study.remarks) Flow().AddText(ToQt(remark));
}

QString PrintedAgreementStudy::Title() const {
  return tr("Agreement of a Study");
}

QString PrintedAgreementStudy::DocumentName() const {
  return tr("Agreement of a Study");
}

void PrintedAgreementStudy::AddPooled(const AgreementStudy& study) {
  Flow().AddHeading(tr("All pairs together"));
  Flow().AddChart(AgreementChart(LinesOf(study.pooled.codes)));
  Flow().AddText(ToQt(ActivitiesText(study.pooled)));
}

void PrintedAgreementStudy::AddCourses(const AgreementStudy& study,
                                       std::optional<std::size_t> dimension) {
  const CourseChart chart(CoursesOf(study, dimension));
  const QString what =
      dimension ? ToQt(ComparedDimensions()[*dimension].label) : tr("Activities, by the second");
  Flow().AddHeading(tr("Kappa over dates: %1").arg(what));
  // A row of plots stays whole; how many there are depends on the width of the page, and those that
  // a wide page does not need are empty.
  const int most = chart.Rows(QFontMetricsF(PaperTextFont()), 1);
  for (int row = 0; row < most; ++row) {
    Flow().AddPainted(
        [chart, row](double width) {
          const QFontMetricsF metrics(PaperTextFont());
          return row < chart.Rows(metrics, width) ? CourseChart::HeightOfRow(metrics) : 0;
        },
        [chart, row](QPainter& painter, const QRectF& area) {
          chart.PaintRow(painter, area, row, PaperPalette());
        });
  }
}

}  // namespace orvex
