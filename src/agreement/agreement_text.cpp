#include "agreement/agreement_text.h"

#include <array>
#include <string_view>
#include <vector>

#include "agreement/comparison.h"
#include "agreement/figure_text.h"
#include "agreement/observer_name.h"
#include "agreement/row_text.h"
#include "model/activities.h"
#include "model/wording.h"
#include "study/tabbed_text.h"

namespace orvex {
namespace {

/// The names of the two in the headings of columns.
struct Names {
  explicit Names(const Agreement& agreement)
      : first(NameOfObserver(agreement, Side::first)),
        second(NameOfObserver(agreement, Side::second)) {}
  std::string first;
  std::string second;
};

void AppendOrigin(const Agreement& agreement, std::string& text) {
  AddTabbedLine(text, {"OBSERVERS", "File", "Initials", "Date"});
  AddTabbedLine(text, {"First", agreement.first.file, ShownInitials(agreement.first.identity),
                       agreement.first.date});
  AddTabbedLine(text, {"Second", agreement.second.file, ShownInitials(agreement.second.identity),
                       agreement.second.date});
  static constexpr std::array<std::string_view, 3> kFrom = {
      "from the session logs", "as it was stated", "not known: both are taken to begin together"};
  AddTabbedLine(text,
                {"The second began later by (seconds)", std::to_string(agreement.offset.seconds),
                 kFrom[static_cast<std::size_t>(agreement.offset.from)]});
  for (const std::string& remark : agreement.AllRemarks()) {
    AddTabbedLine(text, {"Remark", remark});
  }
}

void AppendActivities(const Agreement& agreement, const Names& names, std::string& text) {
  const ActivityAgreement& activities = agreement.activities;
  const std::string within = "Kappa within " + std::to_string(activities.tolerance) + " s, ";
  text += "\n";
  AddTabbedLine(text, {"ACTIVITIES", "Second by second"});
  AddTabbedLine(text, {"Seconds of both", WholeSecondsText(agreement.overlap)});
  AddTabbedLine(text, {"Percent", PercentText(activities.table)});
  AddTabbedLine(text, {"Kappa", KappaText(activities.table)});
  AddTabbedLine(text, {within + names.first + " first", KappaText(activities.tolerantFirst)});
  AddTabbedLine(text, {within + names.second + " first", KappaText(activities.tolerantSecond)});
}

/// How many things each of the two has, and how many are of both.
void AppendCounts(std::string_view heading, const Names& names,
                  const std::array<std::size_t, 3>& counts, std::optional<double> share,
                  std::string& text) {
  const auto& [first, second, both] = counts;
  text += "\n";
  AddTabbedLine(text, {heading, names.first, names.second, "Both", "Only " + names.first,
                       "Only " + names.second, "Share"});
  AddTabbedLine(text,
                {"", std::to_string(first), std::to_string(second), std::to_string(both),
                 std::to_string(first - both), std::to_string(second - both), FigureText(share)});
}

std::string PercentOf(const RespondentAgreement& respondent) {
  if (respondent.both == 0) return FigureText(std::nullopt);
  return FigureText(100.0 * respondent.same / respondent.both);
}

void AppendCodes(const Agreement& agreement, std::string& text) {
  text += "\n";
  AddTabbedLine(text, {"CODES", "n", "Left out by one", "Left out by both", "Percent", "Kappa",
                       "95 % from", "to", "AC1"});
  for (const CodeAgreement& codes : agreement.codes) {
    const auto interval = KappaInterval(codes.table);
    AddTabbedLine(text, {codes.compared->label, std::to_string(codes.table.Total()),
                         std::to_string(codes.leftOut), std::to_string(codes.neither),
                         PercentText(codes.table), KappaText(codes.table),
                         interval ? FigureText(interval->low) : "",
                         interval ? FigureText(interval->high) : "", Ac1Text(codes.table)});
  }
  AddTabbedLine(text, {"Who answered", std::to_string(agreement.respondent.both), "", "",
                       PercentOf(agreement.respondent)});
}

void AppendOfftask(const Agreement& agreement, const Names& names, std::string& text) {
  text += "\n";
  AddTabbedLine(text, {"OFFTASK", names.first, names.second, "Difference"});
  for (const Activity& activity : kActivities) {
    const auto position = OfftaskPosition(activity.number);
    if (!position) continue;
    const double first = agreement.firstOfftask[*position];
    const double second = agreement.secondOfftask[*position];
    AddTabbedLine(text, {activity.name, FigureText(first), FigureText(second),
                         first == 0 || second == 0 ? "not counted" : FigureText(second - first)});
  }
}

void AppendSurvey(const SurveyAgreement& survey, std::string& text) {
  text += "\n";
  AddTabbedLine(
      text, {"SURVEY", "n", "Left out by one", "Equal", "At most one apart", "Percent", "Kappa"});
  AddTabbedLine(text, {"Statements (weighted kappa)", std::to_string(survey.ratings.Total()),
                       std::to_string(survey.leftOut), std::to_string(survey.ratings.Agreed()),
                       std::to_string(survey.WithinOne()), PercentText(survey.ratings),
                       FigureText(WeightedKappa(survey.ratings), KappaUndefined(survey.ratings))});
  AddTabbedLine(text, {"Check lists", std::to_string(survey.items.Total()), "",
                       std::to_string(survey.items.Agreed()), "", PercentText(survey.items),
                       KappaText(survey.items)});
}

/// A code of a table, and what it is called.
struct NamedCode {
  std::size_t code = 0;
  std::string name;
};

std::vector<NamedCode> CodesOf(const Agreement& agreement, std::optional<std::size_t> dimension) {
  std::vector<NamedCode> codes;
  if (dimension) {
    const std::string_view letters = agreement.codes[*dimension].compared->letters;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      codes.push_back({i, std::string(letters.substr(i, 1))});
    }
    return codes;
  }
  // Most classes have few of the activities.
  const CodeTable& table = agreement.activities.table;
  for (std::size_t i = 0; i < table.Codes(); ++i) {
    if (table.OfFirst(i) + table.OfSecond(i) > 0) {
      codes.push_back({i, ActivityName(static_cast<int>(i))});
    }
  }
  return codes;
}

/// Where a question was asked: "2.14" is the 14th of the second episode.
std::string PlaceText(const AskedQuestion* asked) {
  if (asked == nullptr) return "";
  return std::to_string(asked->episode) + "." + std::to_string(asked->number);
}

}  // namespace

std::string TextOf(const Agreement& agreement) {
  const Names names(agreement);
  std::string text;
  AppendOrigin(agreement, text);
  AppendActivities(agreement, names, text);
  const auto count = [](int number) { return static_cast<std::size_t>(number); };
  const BoundaryAgreement& boundaries = agreement.boundaries;
  AppendCounts("BOUNDARIES", names,
               {count(boundaries.first), count(boundaries.second), count(boundaries.both)},
               boundaries.Share(), text);
  AppendCounts("QUESTIONS", names,
               {agreement.firstQuestions, agreement.secondQuestions, agreement.BothQuestions()},
               agreement.QuestionShare(), text);
  AppendCodes(agreement, text);
  AppendOfftask(agreement, names, text);
  if (agreement.survey) AppendSurvey(*agreement.survey, text);
  return text;
}

std::string DatesText(const Agreement& agreement) {
  const std::string& first = agreement.first.date;
  const std::string& second = agreement.second.date;
  return first == second ? first : first + " and " + second;
}

std::string ConfusionText(const Agreement& agreement, std::optional<std::size_t> dimension) {
  const Names names(agreement);
  const CodeTable& table =
      dimension ? agreement.codes[*dimension].table : agreement.activities.table;
  const std::vector<NamedCode> codes = CodesOf(agreement, dimension);
  const std::string_view label =
      dimension ? agreement.codes[*dimension].compared->label : "Activities, in seconds";
  std::string text =
      std::string(label) + ": " + names.first + " in rows, " + names.second + " in columns\n";
  for (const NamedCode& column : codes) text += "\t" + column.name;
  text += "\tSum\n";
  for (const NamedCode& row : codes) {
    text += row.name;
    for (const NamedCode& column : codes) {
      text += "\t" + std::to_string(table.At(row.code, column.code));
    }
    text += "\t" + std::to_string(table.OfFirst(row.code)) + "\n";
  }
  text += "Sum";
  for (const NamedCode& column : codes) text += "\t" + std::to_string(table.OfSecond(column.code));
  return text + "\t" + std::to_string(table.Total()) + "\n";
}

std::string DisagreementsText(const Comparison& comparison) {
  const Names names(comparison.Result());
  std::string text;
  AddTabbedLine(text, {"Disagreement", names.first, "Question", names.second, "Question", "Codes"});
  for (const PairRow& row : comparison.Rows()) {
    if (!row.IsDisagreement()) continue;
    const auto textOf = [](const AskedQuestion* asked) {
      return asked == nullptr ? std::string_view() : std::string_view(asked->question->question);
    };
    AddTabbedLine(text, {MarkOf(comparison, row), PlaceText(row.first), textOf(row.first),
                         PlaceText(row.second), textOf(row.second), DifferenceText(row)});
  }
  return text;
}

}  // namespace orvex
