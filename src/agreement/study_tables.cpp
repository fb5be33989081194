#include "agreement/study_tables.h"

#include <utility>

#include "agreement/figure_text.h"
#include "agreement/observers.h"
#include "model/texts.h"
#include "store/numbers.h"
#include "study/observation_day.h"

namespace orvex {
namespace {

constexpr int kFigureWidth = 7;
constexpr int kDateWidth = 10;
constexpr int kOffsetWidth = 9;
constexpr int kRemarksWidth = 30;
constexpr int kNameWidth = 40;
/// As many as "n/a (one code only)" needs.
constexpr int kReasonWidth = 18;

using Cell = FigureGrid::Cell;

FigureGrid::Column Figure(std::string heading, std::string explanation) {
  return {std::move(heading), std::move(explanation), true, kFigureWidth};
}

Cell KappaCell(const CodeTable& table) {
  return FigureGrid::OfNumber(KappaText(table), Kappa(table));
}

Cell Ac1Cell(const CodeTable& table) {
  return FigureGrid::OfNumber(Ac1Text(table), Ac1(table));
}

/// A figure, or why there is none.
Cell FigureCell(std::optional<double> figure, std::string_view reason) {
  return FigureGrid::OfNumber(FigureText(figure, reason), figure);
}

/// Classes are in the order of their schools and of their numbers there.
Cell ClassCell(const Identity& identity) {
  constexpr double kClasses = 32768;
  const auto school = ParseNumber(identity.SchoolNum);
  const auto number = ParseNumber(identity.ClassNum);
  const auto order = school && number ? std::optional(*school * kClasses + *number) : std::nullopt;
  return FigureGrid::OfNumber(ClassText(identity), order);
}

Cell DateCell(const std::string& date) {
  const auto day = DayOf(date);
  return FigureGrid::OfNumber(
      date, day ? std::optional<double>(day->time_since_epoch().count()) : std::nullopt);
}

std::string InOneLine(const std::vector<std::string>& sentences) {
  std::string line;
  for (const std::string& sentence : sentences) line += (line.empty() ? "" : " ") + sentence;
  return line;
}

/// "AB 3": the observer's initials and the number of the observation.
Cell ObserverCell(const AgreementStudy& study, const Agreement::Observer& observer) {
  return FigureGrid::OfText(study.NameOf(observer) + " " + observer.identity.ObservNum);
}

/// The seconds; "not known" where both are taken to have begun together.
Cell OffsetCell(const Offset& offset) {
  const bool isKnown = offset.from != Offset::From::start;
  return FigureGrid::OfNumber(isKnown ? std::to_string(offset.seconds) : "not known",
                              isKnown ? std::optional<double>(offset.seconds) : std::nullopt);
}

}  // namespace

std::string ClassText(const Identity& identity) {
  return identity.SchoolNum + "-" + identity.ClassNum;
}

FigureGrid PairsTable(const AgreementStudy& study) {
  FigureGrid table{
      .name = "Pairs",
      .columns = {{"Class", "School and class number", true},
                  {"Date", "Date of the observation, month-day-year", false, kDateWidth},
                  {"First", "The first observer, and the number of the observation"},
                  {"Second", "The second observer, and the number of the observation"},
                  {"Offset", "Seconds by which the second observer began later", true,
                   kOffsetWidth},
                  {"Both", "Questions that both observers wrote down", true},
                  Figure("Share", "Twice the questions of both of all questions"),
                  Figure("Activities", "Kappa of the activities, second by second")},
      .rows = {}};
  for (const ComparedDimension& compared : ComparedDimensions()) {
    table.columns.push_back(
        Figure(std::string(compared.label), "Kappa of " + std::string(compared.label)));
  }
  table.columns.push_back({"Remarks", "What is unusual about the pair", false, kRemarksWidth});
  for (std::size_t i = 0; i < study.pairs.size(); ++i) {
    const Agreement& pair = study.pairs[i].agreement;
    FigureGrid::Row row{
        .key = std::to_string(i),
        .cells = {ClassCell(pair.first.identity), DateCell(pair.first.date),
                  ObserverCell(study, pair.first), ObserverCell(study, pair.second),
                  OffsetCell(pair.offset), FigureGrid::OfCount(pair.BothQuestions()),
                  FigureCell(pair.QuestionShare(), "no questions"),
                  KappaCell(pair.activities.table)}};
    for (const CodeAgreement& codes : pair.codes) row.cells.push_back(KappaCell(codes.table));
    row.cells.push_back(FigureGrid::OfText(InOneLine(pair.AllRemarks())));
    table.rows.push_back(std::move(row));
  }
  return table;
}

FigureGrid ObserversTable(const AgreementStudy& study) {
  FigureGrid table{
      .name = "Observers",
      .columns = {{"Observer", "Initials of the observer"},
                  {"Pairs", "Pairs with this observer", true},
                  {"Mean kappa", "Mean kappa of the dimensions that are coded by letters", true},
                  Figure("Earlier", "Mean kappa in the earlier half of the observer's days"),
                  Figure("Later", "Mean kappa in the later half of the observer's days"),
                  Figure("Change",
                         "From the earlier half to the later: below 0, the observer "
                         "agrees less than before"),
                  Figure("Activities", "Kappa of the activities, second by second")},
      .rows = {}};
  for (const ComparedDimension& compared : ComparedDimensions()) {
    const std::string label(compared.label);
    table.columns.push_back(Figure(label, "Kappa of " + label));
    table.columns.push_back(Figure("AC1", "AC1 of " + label));
  }
  for (const ObserverAgreement& observer : ObserversOf(study)) {
    const PooledAgreement& pooled = observer.observer->pooled;
    FigureGrid::Row row{
        .key = observer.key,
        .cells = {FigureGrid::OfText(observer.observer->name), FigureGrid::OfCount(pooled.pairs),
                  FigureCell(observer.meanKappa, observer.noMean),
                  FigureCell(observer.earlier, observer.noHalves),
                  FigureCell(observer.later, observer.noHalves),
                  FigureCell(observer.Change(), observer.noHalves),
                  KappaCell(pooled.activities.table)}};
    for (const CodeAgreement& codes : pooled.codes) {
      row.cells.push_back(KappaCell(codes.table));
      row.cells.push_back(Ac1Cell(codes.table));
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

FigureGrid IccTable(const AgreementStudy& study) {
  FigureGrid table{
      .name = "Figures by class",
      .columns = {{"Figure", "A figure that is analysed class by class", false, kNameWidth},
                  {"Pairs", "Pairs that both define it", true},
                  {"Left out", "Pairs in which it is not defined for either observer", true},
                  {"ICC(A,1)",
                   "Intraclass correlation: two-way, absolute agreement, single measurement", true,
                   kReasonWidth}},
      .rows = {}};
  for (std::size_t i = 0; i < study.icc.size(); ++i) {
    const auto figure = static_cast<ClassFigure>(i);
    const Icc& icc = study.icc[i];
    table.rows.push_back(
        {.key = std::string(NameOf(figure)),
         .cells = {FigureGrid::OfText(std::string(LabelOf(figure))), FigureGrid::OfCount(icc.pairs),
                   FigureGrid::OfCount(icc.leftOut), FigureCell(icc.value, icc.undefined)}});
  }
  return table;
}

FigureGrid PooledTable(const PooledAgreement& pooled) {
  FigureGrid table{
      .name = "All pairs together",
      .columns = {{"Dimension", "", false, kNameWidth},
                  {"n", "Questions that both coded; seconds, for the activities", true},
                  {"Left out", "Questions that exactly one of the two coded", true},
                  Figure("Percent", "Share of equal codes, in percent"),
                  {"Kappa", "Cohen's kappa", true, kReasonWidth},
                  {"95 % interval", "Confidence interval of kappa", true, kReasonWidth},
                  {"AC1", "Gwet's AC1, which keeps its sense where one code is rare", true,
                   kReasonWidth}},
      .rows = {}};
  for (const CodeAgreement& codes : pooled.codes) {
    table.rows.push_back(
        {.key = std::string(codes.compared->name),
         .cells = {FigureGrid::OfText(std::string(codes.compared->label)),
                   FigureGrid::OfNumber(std::to_string(codes.table.Total()),
                                        static_cast<double>(codes.table.Total())),
                   FigureGrid::OfCount(static_cast<std::size_t>(codes.leftOut)),
                   FigureGrid::OfNumber(PercentText(codes.table), PercentAgreed(codes.table)),
                   KappaCell(codes.table),
                   FigureGrid::OfNumber(IntervalText(codes.table), KappaLow(codes.table)),
                   Ac1Cell(codes.table)}});
  }
  // Seconds are not independent of each other: there is no interval.
  const CodeTable& activities = pooled.activities.table;
  table.rows.push_back(
      {.key = "activities",
       .cells = {FigureGrid::OfText("Activities, by the second"),
                 FigureGrid::OfNumber(std::to_string(activities.Total()),
                                      static_cast<double>(activities.Total())),
                 FigureGrid::OfText(""),
                 FigureGrid::OfNumber(PercentText(activities), PercentAgreed(activities)),
                 KappaCell(activities), FigureGrid::OfText(""), FigureGrid::OfText("")}});
  return table;
}

std::string ActivitiesText(const PooledAgreement& pooled) {
  const ActivityAgreement& activities = pooled.activities;
  return Say(Text::activitiesPooled,
             {activities.table.Total(), PercentText(activities.table), KappaText(activities.table),
              activities.tolerance, KappaText(activities.tolerantFirst),
              KappaText(activities.tolerantSecond)});
}

}  // namespace orvex
