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
    : subtitle_(tr("%1 pairs, %2 questions of both observers")
                    .arg(study.pairs.size())
                    .arg(study.pooled.bothQuestions)) {
  AddPooled(study);
  flow_.AddHeading(tr("Observers, the one who agrees least first"));
  flow_.AddTable(ObserversTable(study));
  AddCourses(study, dimension);
  flow_.AddHeading(tr("Figures analysed class by class"));
  flow_.AddTable(IccTable(study));
  flow_.AddHeading(tr("Pairs"));
  flow_.AddTable(PairsTable(study));
  flow_.AddHeading(tr("For a paper"));
  flow_.AddText(ToQt(PaperLine(study)));
  const bool hasMore = !study.unread.empty() || !study.remarks.empty();
  if (hasMore) flow_.AddHeading(tr("Left out"));
  for (const Problem& problem : study.unread) flow_.AddText(ToQt(problem.Sentence()));
  for (const std::string& remark : study.remarks) flow_.AddText(ToQt(remark));
}

QString PrintedAgreementStudy::Title() const {
  return tr("Agreement of a Study");
}

QString PrintedAgreementStudy::DocumentName() const {
  return tr("Agreement of a Study");
}

void PrintedAgreementStudy::AddPooled(const AgreementStudy& study) {
  const AgreementChart chart(LinesOf(study.pooled.codes));
  flow_.AddHeading(tr("All pairs together"));
  flow_.AddChart([chart](double) { return chart.Height(QFontMetricsF(PaperFlow::Font())); },
                 [chart](QPainter& painter, const QRectF& area) {
                   chart.Paint(painter, area, PaperFlow::Palette());
                 });
  flow_.AddText(ToQt(ActivitiesText(study.pooled)));
}

void PrintedAgreementStudy::AddCourses(const AgreementStudy& study,
                                       std::optional<std::size_t> dimension) {
  const CourseChart chart(CoursesOf(study, dimension));
  const QString what =
      dimension ? ToQt(ComparedDimensions()[*dimension].label) : tr("Activities, by the second");
  flow_.AddHeading(tr("Kappa over dates: %1").arg(what));
  // A row of plots stays whole; how many there are depends on the width of the page, and those that
  // a wide page does not need are empty.
  const int most = chart.Rows(QFontMetricsF(PaperFlow::Font()), 1);
  for (int row = 0; row < most; ++row) {
    flow_.AddChart(
        [chart, row](double width) {
          const QFontMetricsF metrics(PaperFlow::Font());
          return row < chart.Rows(metrics, width) ? CourseChart::HeightOfRow(metrics) : 0;
        },
        [chart, row](QPainter& painter, const QRectF& area) {
          chart.PaintRow(painter, area, row, PaperFlow::Palette());
        });
  }
}

}  // namespace orvex
