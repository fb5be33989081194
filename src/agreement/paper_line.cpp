#include "agreement/paper_line.h"

#include <chrono>
#include <map>
#include <string_view>
#include <vector>

#include "agreement/figure_text.h"
#include "agreement/observer_name.h"
#include "model/wording.h"
#include "study/observation_day.h"

namespace orvex {
namespace {

constexpr std::string_view kByWords =
    "matched automatically by their wording and order, without regard to their codes";
constexpr std::string_view kByHand = "matched by their wording and order, with corrections by hand";

/// "a, b and c".
std::string Listed(const std::vector<std::string>& items) {
  std::string list;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) list += i + 1 == items.size() ? " and " : ", ";
    list += items[i];
  }
  return list;
}

/// "91.67 % equal, kappa 0.82 [0.70, 0.94], AC1 0.90, n = 36".
std::string FiguresOf(const CodeTable& table) {
  std::string text = PercentText(table) + " % equal, kappa " + KappaText(table);
  if (const auto interval = KappaInterval(table)) {
    text += " [" + FigureText(interval->low) + ", " + FigureText(interval->high) + "]";
  }
  return text + ", AC1 " + Ac1Text(table) + ", n = " + std::to_string(table.Total());
}

std::string CodesSentence(const std::vector<CodeAgreement>& codes) {
  std::string text;
  std::vector<std::string> empty;
  for (const CodeAgreement& agreement : codes) {
    if (!agreement.compared->dimension) continue;
    const std::string label(agreement.compared->label);
    if (agreement.table.Total() == 0) {
      empty.push_back(label);
      continue;
    }
    text += (text.empty() ? "" : "; ") + label + ": " + FiguresOf(agreement.table);
  }
  if (text.empty()) return "No question was coded by both.";
  text = "Codes, with Cohen's kappa, its 95 % confidence interval, and Gwet's AC1: " + text;
  if (!empty.empty()) text += "; not coded by both: " + Listed(empty);
  return text + ".";
}

std::string ActivitiesSentence(const ActivityAgreement& activities) {
  const CodeTable& table = activities.table;
  if (table.Total() == 0) return "There was no time that both observed.";
  return "Activities, compared second by second over " + std::to_string(table.Total()) +
         " s: " + PercentText(table) + " % equal, kappa " + KappaText(table) +
         "; with a tolerance of " + std::to_string(activities.tolerance) + " s, kappa " +
         KappaText(activities.tolerantFirst) + " and " + KappaText(activities.tolerantSecond) +
         " (either observer as the reference).";
}

std::string ClassOf(const Agreement::Observer& observer) {
  return observer.identity.SchoolNum + "-" + observer.identity.ClassNum + " on " + observer.date;
}

/// By how much the second observer's times were moved, and how that is known.
std::string OffsetSentence(const Offset& offset) {
  const std::string seconds = " (" + std::to_string(offset.seconds) + " s).";
  switch (offset.from) {
    case Offset::From::log:
      return "The observers' times were aligned by their session logs" + seconds;
    case Offset::From::given:
      return "The observers' times were aligned by hand" + seconds;
    case Offset::From::start:
      break;
  }
  return "Both observers were taken to have begun at the same time.";
}

/// Says of how many pairs it is not known when the second observer began; "" if of none.
std::string UnknownOffsetsSentence(const std::vector<StudyPair>& pairs) {
  const auto unknown = std::ranges::count_if(pairs, [](const StudyPair& pair) {
    return pair.agreement.offset.from == Offset::From::start;
  });
  if (unknown == 0) return "";
  return " In " + Counted(static_cast<std::size_t>(unknown), "pair") +
         " both observers were taken to have begun at the same time.";
}

/// The first and the last of the days.
std::string PeriodOf(const std::vector<StudyPair>& pairs) {
  std::map<std::chrono::sys_days, std::string> dates;
  for (const StudyPair& pair : pairs) {
    const std::string& date = pair.agreement.first.date;
    if (const auto day = DayOf(date)) dates.emplace(*day, date);
  }
  if (dates.empty()) return "on days that are not known";
  const std::string& begin = dates.begin()->second;
  return dates.size() == 1 ? "on " + begin : "from " + begin + " to " + dates.rbegin()->second;
}

}  // namespace

std::string PaperLine(const Agreement& agreement) {
  const std::string first = ClassOf(agreement.first);
  const std::string second = ClassOf(agreement.second);
  return NameOfObserver(agreement, Side::first) + " and " +
         NameOfObserver(agreement, Side::second) + " observed " +
         (first == second ? "class " + first : "classes " + first + " and " + second) + "; of " +
         std::to_string(agreement.firstQuestions) + " and " +
         std::to_string(agreement.secondQuestions) + " questions, " +
         std::to_string(agreement.BothQuestions()) + " were recorded by both (" +
         std::string(agreement.pairsGiven ? kByHand : kByWords) + "). " +
         CodesSentence(agreement.codes) + " " + ActivitiesSentence(agreement.activities) + " " +
         OffsetSentence(agreement.offset);
}

std::string PaperLine(const AgreementStudy& study) {
  if (study.pairs.empty()) return "No two observations of one class were compared.";
  const PooledAgreement& pooled = study.pooled;
  std::vector<std::string> observers;
  for (const auto& [key, observer] : study.observers) observers.push_back(observer.name);
  std::string text =
      Counted(pooled.pairs, "pair") + " of observations by " + Listed(observers) + ", " +
      PeriodOf(study.pairs) + "; of " + std::to_string(pooled.firstQuestions) + " and " +
      std::to_string(pooled.secondQuestions) + " questions, " +
      std::to_string(pooled.bothQuestions) + " were recorded by both observers of a class (" +
      std::string(kByWords) + "). " + CodesSentence(pooled.codes) + " " +
      ActivitiesSentence(pooled.activities) + UnknownOffsetsSentence(study.pairs);
  std::string icc;
  for (std::size_t i = 0; i < study.icc.size(); ++i) {
    if (!study.icc[i].value) continue;
    icc += (icc.empty() ? "" : "; ") + std::string(LabelOf(static_cast<ClassFigure>(i))) + " " +
           FigureText(*study.icc[i].value) + " (" + Counted(study.icc[i].pairs, "pair") + ")";
  }
  return icc.empty() ? text : text + " ICC(A,1) of the figures of a class: " + icc + ".";
}

}  // namespace orvex
