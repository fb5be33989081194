#include "ui/forms/AgreementOverview.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <numeric>

#include "agreement/agreement_text.h"
#include "agreement/comparison.h"
#include "agreement/figure_text.h"
#include "agreement/observer_name.h"
#include "agreement/paper_line.h"
#include "agreement/training.h"
#include "model/activities.h"
#include "model/wording.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/FigureTable.h"
#include "ui_frmAgreement.h"

namespace orvex {
namespace {

constexpr int kBetweenBoxes = 10;
constexpr int kBesideBoxes = 80;  // the margins of the form and its pages, and the scroll bar

QString Figure(std::optional<double> value, std::optional<Undefined> reason = {}) {
  return ToQt(FigureText(value, reason));
}

QString Percent(const CodeTable& table) {
  const QString text = ToQt(PercentText(table));
  return table.Total() > 0 ? AgreementOverview::tr("%1 %").arg(text) : text;
}

QString Number(std::size_t number) {
  return QString::number(number);
}

QString Share(std::size_t part, std::size_t of) {
  if (of == 0) return Figure(std::nullopt);
  return Figure(static_cast<double>(part) / static_cast<double>(of));
}

QString KappaOf(const CodeTable& table) {
  return ToQt(KappaText(table));
}

}  // namespace

AgreementOverview::AgreementOverview(Ui::frmAgreement& ui, const Comparison& comparison,
                                     QObject* parent)
    : QObject(parent), ui_(ui), comparison_(comparison) {
  const auto box = [this](const QString& title) {
    auto* made = new FigureTable(ui_.overviewContents);
    made->setTitle(title);
    return made;
  };
  activities_ = box(tr("Activities, second by second"));
  questions_ = box(tr("Questions"));
  offtask_ = box(tr("Off-task"));
  survey_ = box(tr("Survey"));
  training_ = box({});
  ui_.txtPaper->setMinimumHeight(ui_.txtPaper->sizeHint().height());  // the page scrolls anyway
  ui_.contentsLayout->insertWidget(ui_.contentsLayout->indexOf(ui_.paperLayout), training_);
  const auto stretch = [this] { ShowText(ui_.lblStretch, ui_.stripActivities->Text()); };
  connect(ui_.stripActivities, &ActivityStrips::Moved, this, stretch);
  connect(ui_.cmdCopyLine, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(ui_.txtPaper->toPlainText()); });
  connect(ui_.cmdCopyFigures, &QPushButton::clicked, this, &AgreementOverview::Copy);
}

void AgreementOverview::Refresh() {
  const Agreement& agreement = comparison_.Result();
  ui_.barsCodes->Show(LinesOf(agreement.codes));
  ui_.stripActivities->Show(ActivityChart(comparison_));
  ShowActivities();
  ShowQuestions();
  ShowOfftask();
  ShowSurvey();
  ShowTraining();
  ui_.txtPaper->Show(ToQt(PaperLine(agreement)));
}

void AgreementOverview::ShowActivities() {
  const Agreement& agreement = comparison_.Result();
  const ActivityAgreement& activities = agreement.activities;
  const BoundaryAgreement& boundaries = agreement.boundaries;
  const QString first = ToQt(NameOfObserver(agreement, Side::first));
  const QString second = ToQt(NameOfObserver(agreement, Side::second));
  activities_->Show(
      {}, {{tr("Both observed"), ToQt(FormatMinSec(agreement.overlap))},
           {tr("Equal seconds"), Percent(activities.table)},
           {tr("Kappa"), KappaOf(activities.table)},
           {tr("Kappa within %1 s, %2 first").arg(activities.tolerance).arg(first),
            KappaOf(activities.tolerantFirst)},
           {tr("Kappa within %1 s, %2 first").arg(activities.tolerance).arg(second),
            KappaOf(activities.tolerantSecond)},
           {tr("Boundaries of %1, %2, both").arg(first, second),
            tr("%1, %2, %3").arg(boundaries.first).arg(boundaries.second).arg(boundaries.both)},
           {tr("Share of boundaries"), Figure(boundaries.Share(), Undefined::noPairs)}});
}

void AgreementOverview::ShowQuestions() {
  const Agreement& agreement = comparison_.Result();
  const std::size_t both = agreement.BothQuestions();
  const QString first = ToQt(NameOfObserver(agreement, Side::first));
  const QString second = ToQt(NameOfObserver(agreement, Side::second));
  const RespondentAgreement& respondent = agreement.respondent;
  questions_->Show(
      {}, {{tr("Of both"), Number(both)},
           {tr("Only %1").arg(first), Number(agreement.firstQuestions - both)},
           {tr("Only %1").arg(second), Number(agreement.secondQuestions - both)},
           {tr("Share of questions"), Figure(agreement.QuestionShare(), Undefined::noPairs)},
           {tr("Same respondent"), tr("%1 of %2").arg(respondent.same).arg(respondent.both)},
           {tr("Pairs"), agreement.pairsGiven ? tr("by hand") : tr("by words and order")}});
}

void AgreementOverview::ShowOfftask() {
  const Agreement& agreement = comparison_.Result();
  std::vector<QStringList> rows;
  for (const Activity& activity : kActivities) {
    const auto position = OfftaskPosition(activity.number);
    if (!position) continue;
    const double first = agreement.firstOfftask[*position];
    const double second = agreement.secondOfftask[*position];
    const bool counts = first != 0 && second != 0;
    rows.push_back({ToQt(activity.name), Figure(first), Figure(second),
                    counts ? Figure(second - first) : tr("not counted")});
  }
  offtask_->Show({{},
                  ToQt(NameOfObserver(agreement, Side::first)),
                  ToQt(NameOfObserver(agreement, Side::second)),
                  tr("Difference")},
                 rows);
}

void AgreementOverview::ShowSurvey() {
  const auto& survey = comparison_.Result().survey;
  if (!survey) return survey_->Show({}, {{tr("Not both observers have a survey.")}});
  const CodeTable& ratings = survey->ratings;
  survey_->Show({},
                {{tr("Statements rated by both"), QString::number(ratings.Total())},
                 {tr("Rated by one only"), QString::number(survey->leftOut)},
                 {tr("Equal"), QString::number(ratings.Agreed())},
                 {tr("At most one apart"), QString::number(survey->WithinOne())},
                 {tr("Weighted kappa"), Figure(WeightedKappa(ratings), KappaUndefined(ratings))},
                 {tr("Check lists, equal"), Percent(survey->items)},
                 {tr("Check lists, kappa"), KappaOf(survey->items)}});
}

/// Says how often the one who is trained found each of the master's codes.
void AgreementOverview::ShowTraining() {
  training_->setVisible(comparison_.MasterIs() != Master::none);
  if (comparison_.MasterIs() == Master::none) return;
  const Training training = TrainingOf(comparison_);
  const bool isFirst = comparison_.MasterIs() == Master::first;
  const Agreement& agreement = comparison_.Result();
  const QString trainee = ToQt(NameOfObserver(agreement, isFirst ? Side::second : Side::first));
  training_->setTitle(
      tr("%1, measured by %2")
          .arg(trainee, ToQt(NameOfObserver(agreement, isFirst ? Side::first : Side::second))));
  std::vector<QStringList> rows = {
      {tr("Questions"), Number(training.ofMaster), Number(training.found),
       Share(training.found, training.ofMaster), Number(training.missed),
       Number(training.codedOtherwise), Number(training.added)}};
  for (const TrainedCode& code : training.codes) {
    rows.push_back({ToQt(NameOf(code)), Number(code.ofMaster), Number(code.found),
                    Share(code.found, code.ofMaster), Number(code.missed),
                    Number(code.CodedOtherwise()), Number(code.added)});
  }
  training_->Show({tr("Code"), tr("The master's"), tr("Found"), tr("Share found"), tr("Missed"),
                   tr("Coded otherwise"), tr("Added")},
                  rows);
}

void AgreementOverview::Copy() const {
  std::string text = TextOf(comparison_.Result());
  if (comparison_.MasterIs() != Master::none) text += "\n" + TextOf(TrainingOf(comparison_));
  QGuiApplication::clipboard()->setText(ToQt(text));
}

void AgreementOverview::FitBoxes(int width) {
  const std::array boxes = {activities_, questions_, offtask_, survey_};
  const auto widthWith = [&boxes](int columns) {
    std::array<int, 4> widths{};
    for (int position = 0; const FigureTable* box : boxes) {
      int& widest = widths[static_cast<std::size_t>(position++ % columns)];
      widest = std::max(widest, box->sizeHint().width() + kBetweenBoxes);
    }
    return std::accumulate(widths.begin(), widths.end(), kBesideBoxes);
  };
  const int columns = widthWith(4) <= width ? 4 : widthWith(2) <= width ? 2 : 1;
  for (int position = 0; FigureTable * box : boxes) {
    ui_.boxesLayout->addWidget(box, position / columns, position % columns);
    ++position;
  }
}

void AgreementOverview::ShowActivities(int first, int second) {
  ui_.stripActivities->GoTo(first, second);
  FocusVisibly(ui_.stripActivities);
  ui_.overviewArea->ensureWidgetVisible(ui_.stripActivities);
}

}  // namespace orvex
