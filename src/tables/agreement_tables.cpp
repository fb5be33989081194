#include "tables/agreement_tables.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "model/activities.h"
#include "tables/csv.h"

namespace orvex {
namespace {

/// A text that somebody typed, and one of our own codes.
struct Typed {
  std::string text;
};
struct Coded {
  std::string text;
};

void Write(const Typed& typed, Csv& csv) {
  csv.Text(typed.text);
}
void Write(const Coded& coded, Csv& csv) {
  csv.Code(coded.text);
}
void Write(std::integral auto number, Csv& csv) {
  csv.Number(static_cast<std::int64_t>(number));
}
void Write(float number, Csv& csv) {
  csv.Number(number);
}
void Write(double figure, Csv& csv) {
  csv.Number(figure);
}
template <typename Value>
void Write(const std::optional<Value>& value, Csv& csv) {
  value ? Write(*value, csv) : csv.Missing();
}

/// The columns of a table with a line for each `Row`.
template <typename Row>
class Columns {
 public:
  /// `value` makes the cell of a row: a text, a number, or nothing where there is none.
  template <typename Value>
  void Add(std::string name, Value value) {
    columns_.push_back(
        {std::move(name), [value](const Row& row, Csv& csv) { Write(value(row), csv); }});
  }

  std::string TableOf(const auto& rows) const {
    std::string text;
    Csv csv(text);
    for (const Column& column : columns_) csv.Code(column.name);
    csv.EndLine();
    for (const Row& row : rows) {
      for (const Column& column : columns_) column.write(row, csv);
      csv.EndLine();
    }
    return text;
  }

 private:
  struct Column {
    std::string name;
    std::function<void(const Row&, Csv&)> write;
  };
  std::vector<Column> columns_;
};

/// Which pair a line is about; nothing where it is about all.
template <typename Row, typename Get>
void AddPairNames(const Get& pairOf, Columns<Row>& columns) {
  const auto add = [&](const char* name, auto Agreement::*observer) {
    columns.Add(name, [pairOf, observer](const Row& row) {
      const StudyPair* pair = pairOf(row);
      return pair != nullptr ? std::optional(Typed{(pair->agreement.*observer).file})
                             : std::nullopt;
    });
  };
  add("first", &Agreement::first);
  add("second", &Agreement::second);
}

/// The columns of every dimension. `codesOf` returns a row's agreement on all of them.
template <typename Row, typename Get>
void AddCodes(const Get& codesOf, Columns<Row>& columns) {
  for (std::size_t i = 0; i < ComparedDimensions().size(); ++i) {
    const auto add = [&](const char* name, auto figure) {
      columns.Add(std::string(ComparedDimensions()[i].name) + "_" + name,
                  [=](const Row& row) { return figure(codesOf(row)[i]); });
    };
    add("n", [](const CodeAgreement& code) { return code.table.Total(); });
    add("left_out", [](const CodeAgreement& code) { return code.leftOut; });
    add("neither", [](const CodeAgreement& code) { return code.neither; });
    add("percent", [](const CodeAgreement& code) { return PercentAgreed(code.table); });
    add("kappa", [](const CodeAgreement& code) { return Kappa(code.table); });
    add("kappa_low", [](const CodeAgreement& code) { return KappaLow(code.table); });
    add("kappa_high", [](const CodeAgreement& code) { return KappaHigh(code.table); });
    add("ac1", [](const CodeAgreement& code) { return Ac1(code.table); });
  }
}

template <typename Row, typename Get>
void AddActivities(const Get& activitiesOf, Columns<Row>& columns) {
  const auto add = [&](const char* name, auto figure) {
    columns.Add(name, [=](const Row& row) { return figure(activitiesOf(row)); });
  };
  using Activities = ActivityAgreement;
  add("seconds", [](const Activities& activities) { return activities.table.Total(); });
  add("percent", [](const Activities& activities) { return PercentAgreed(activities.table); });
  add("kappa", [](const Activities& activities) { return Kappa(activities.table); });
  add("tolerance", [](const Activities& activities) { return activities.tolerance; });
  add("kappa_first", [](const Activities& activities) { return Kappa(activities.tolerantFirst); });
  add("kappa_second",
      [](const Activities& activities) { return Kappa(activities.tolerantSecond); });
}

void AddBoundaries(Columns<StudyPair>& columns) {
  const auto add = [&](const char* name, auto figure) {
    columns.Add(name, [=](const StudyPair& pair) { return figure(pair.agreement.boundaries); });
  };
  using Boundaries = BoundaryAgreement;
  add("boundaries_first", [](const Boundaries& boundaries) { return boundaries.first; });
  add("boundaries_second", [](const Boundaries& boundaries) { return boundaries.second; });
  add("boundaries_both", [](const Boundaries& boundaries) { return boundaries.both; });
  add("boundaries_agreement", [](const Boundaries& boundaries) { return boundaries.Share(); });
}

void AddOfftask(Columns<StudyPair>& columns) {
  for (const Activity& activity : kActivities) {
    const auto position = OfftaskPosition(activity.number);
    if (!position) continue;
    const auto add = [&](const char* which, auto Agreement::*averages) {
      columns.Add(
          "offtask_" + ActivityDigits(activity.number) + "_" + which,
          [=, at = *position](const StudyPair& pair) { return (pair.agreement.*averages)[at]; });
    };
    add("first", &Agreement::firstOfftask);
    add("second", &Agreement::secondOfftask);
  }
}

/// Nothing where either observer has no survey.
void AddSurvey(Columns<StudyPair>& columns) {
  const auto add = [&](const char* name, auto figure) {
    columns.Add(name, [=](const StudyPair& pair) {
      const auto& survey = pair.agreement.survey;
      return survey ? std::make_optional(figure(*survey)) : std::nullopt;
    });
  };
  using Survey = SurveyAgreement;
  add("survey_n", [](const Survey& survey) { return survey.ratings.Total(); });
  add("survey_left_out", [](const Survey& survey) { return survey.leftOut; });
  add("survey_exact", [](const Survey& survey) { return survey.ratings.Agreed(); });
  add("survey_within_one", [](const Survey& survey) { return survey.WithinOne(); });
  add("survey_weighted_kappa", [](const Survey& survey) { return WeightedKappa(survey.ratings); });
  add("survey_items_n", [](const Survey& survey) { return survey.items.Total(); });
  add("survey_items_percent", [](const Survey& survey) { return PercentAgreed(survey.items); });
  add("survey_items_kappa", [](const Survey& survey) { return Kappa(survey.items); });
}

std::string PairsCsv(const AgreementStudy& study) {
  Columns<StudyPair> columns;
  const auto add = [&](const char* name, auto value) {
    columns.Add(name, [=](const StudyPair& pair) { return value(pair.agreement); });
  };
  AddPairNames([](const StudyPair& pair) { return &pair; }, columns);
  add("school", [](const Agreement& pair) { return Typed{pair.first.identity.SchoolNum}; });
  add("class", [](const Agreement& pair) { return Typed{pair.first.identity.ClassNum}; });
  add("date", [](const Agreement& pair) { return Coded{IsoDate(pair.first.date)}; });
  add("observer_first", [&](const Agreement& pair) { return Typed{study.NameOf(pair.first)}; });
  add("observer_second", [&](const Agreement& pair) { return Typed{study.NameOf(pair.second)}; });
  add("offset", [](const Agreement& pair) { return pair.offset.seconds; });
  add("offset_from",
      [](const Agreement& pair) { return Coded{std::string(NameOf(pair.offset.from))}; });
  AddActivities(
      [](const StudyPair& pair) -> const auto& { return pair.agreement.activities; }, columns);
  AddBoundaries(columns);
  add("questions_first", [](const Agreement& pair) { return pair.firstQuestions; });
  add("questions_second", [](const Agreement& pair) { return pair.secondQuestions; });
  add("questions_both", [](const Agreement& pair) { return pair.BothQuestions(); });
  add("questions_agreement", [](const Agreement& pair) { return pair.QuestionShare(); });
  AddCodes(
      [](const StudyPair& pair) -> const auto& { return pair.agreement.codes; }, columns);
  add("respondent_n", [](const Agreement& pair) { return pair.respondent.both; });
  add("respondent_same", [](const Agreement& pair) { return pair.respondent.same; });
  AddOfftask(columns);
  AddSurvey(columns);
  return columns.TableOf(study.pairs);
}

std::string ObserversCsv(const AgreementStudy& study) {
  using Row = std::pair<const std::string, ObserverPairs>;
  Columns<Row> columns;
  columns.Add("observer", [](const Row& row) { return Typed{row.second.name}; });
  columns.Add("pairs", [](const Row& row) { return row.second.pooled.pairs; });
  AddCodes(
      [](const Row& row) -> const auto& { return row.second.pooled.codes; }, columns);
  return columns.TableOf(study.observers);
}

std::string PooledCsv(const AgreementStudy& study) {
  using Row = PooledAgreement;
  Columns<Row> columns;
  columns.Add("pairs", [](const Row& pooled) { return pooled.pairs; });
  AddActivities(
      [](const Row& pooled) -> const auto& { return pooled.activities; }, columns);
  columns.Add("questions_first", [](const Row& pooled) { return pooled.firstQuestions; });
  columns.Add("questions_second", [](const Row& pooled) { return pooled.secondQuestions; });
  columns.Add("questions_both", [](const Row& pooled) { return pooled.bothQuestions; });
  columns.Add("questions_agreement", [](const Row& pooled) { return pooled.QuestionShare(); });
  AddCodes(
      [](const Row& pooled) -> const auto& { return pooled.codes; }, columns);
  return columns.TableOf(std::array{study.pooled});
}

std::string IccCsv(const AgreementStudy& study) {
  using Row = std::pair<ClassFigure, Icc>;
  std::vector<Row> rows;
  for (std::size_t i = 0; i < study.icc.size(); ++i) {
    rows.emplace_back(static_cast<ClassFigure>(i), study.icc[i]);
  }
  Columns<Row> columns;
  columns.Add("figure", [](const Row& row) { return Coded{std::string(NameOf(row.first))}; });
  columns.Add("pairs", [](const Row& row) { return row.second.pairs; });
  columns.Add("left_out", [](const Row& row) { return row.second.leftOut; });
  columns.Add("icc", [](const Row& row) { return row.second.value; });
  columns.Add("undefined", [](const Row& row) { return Typed{row.second.undefined}; });
  return columns.TableOf(rows);
}

/// A cell of a confusion table.
struct Confusion {
  const StudyPair* pair;  ///< null for all pairs together
  std::string_view dimension;
  std::string first;
  std::string second;
  std::int64_t count;
};

/// Adds the cells of a table that are not 0. `nameOf` says what a code is called.
template <typename Name>
void AddCells(const StudyPair* pair, std::string_view dimension, const CodeTable& table,
              const Name& nameOf, std::vector<Confusion>& cells) {
  for (std::size_t first = 0; first < table.Codes(); ++first) {
    for (std::size_t second = 0; second < table.Codes(); ++second) {
      const std::int64_t count = table.At(first, second);
      if (count != 0) cells.push_back({pair, dimension, nameOf(first), nameOf(second), count});
    }
  }
}

void AddConfusions(const StudyPair* pair, const std::vector<CodeAgreement>& codes,
                   const ActivityAgreement& activities, std::vector<Confusion>& cells) {
  for (const CodeAgreement& code : codes) {
    const auto letter = [&](std::size_t at) { return std::string(1, code.compared->letters[at]); };
    AddCells(pair, code.compared->name, code.table, letter, cells);
  }
  const auto number = [](std::size_t activity) { return std::to_string(activity); };
  AddCells(pair, "activity", activities.table, number, cells);
}

std::string ConfusionCsv(const AgreementStudy& study) {
  std::vector<Confusion> cells;
  for (const StudyPair& pair : study.pairs) {
    AddConfusions(&pair, pair.agreement.codes, pair.agreement.activities, cells);
  }
  AddConfusions(nullptr, study.pooled.codes, study.pooled.activities, cells);
  Columns<Confusion> columns;
  AddPairNames([](const Confusion& cell) { return cell.pair; }, columns);
  columns.Add("dimension",
              [](const Confusion& cell) { return Coded{std::string(cell.dimension)}; });
  columns.Add("code_first", [](const Confusion& cell) { return Coded{cell.first}; });
  columns.Add("code_second", [](const Confusion& cell) { return Coded{cell.second}; });
  columns.Add("count", [](const Confusion& cell) { return cell.count; });
  return columns.TableOf(cells);
}

/// A dimension in which a question of both was coded otherwise, or a question of one observer.
struct Difference {
  const StudyPair* pair;
  const Disagreement* disagreement;
  const Disagreement::Code* code;  ///< null for a question of one observer
};

std::string DisagreementsCsv(const AgreementStudy& study) {
  std::vector<Difference> rows;
  for (const StudyPair& pair : study.pairs) {
    for (const Disagreement& disagreement : pair.disagreements) {
      if (disagreement.codes.empty()) rows.push_back({&pair, &disagreement, nullptr});
      for (const auto& code : disagreement.codes) rows.push_back({&pair, &disagreement, &code});
    }
  }
  Columns<Difference> columns;
  AddPairNames([](const Difference& row) { return row.pair; }, columns);
  const auto addQuestion = [&](const std::string& which, auto Disagreement::*side) {
    const auto add = [&](const char* name, auto value) {
      columns.Add(name + which, [=](const Difference& row) {
        const auto& question = row.disagreement->*side;
        return question ? std::optional(value(*question)) : std::nullopt;
      });
    };
    using Question = Disagreement::Question;
    add("question_", [](const Question& question) { return question.inClass; });
    add("episode_", [](const Question& question) { return question.episode; });
    add("in_episode_", [](const Question& question) { return question.inEpisode; });
    add("text_", [](const Question& question) { return Typed{question.text}; });
  };
  addQuestion("first", &Disagreement::first);
  addQuestion("second", &Disagreement::second);
  const auto addCode = [&](const char* name, auto Disagreement::Code::*text) {
    columns.Add(name, [=](const Difference& row) {
      return row.code != nullptr ? std::optional(Coded{std::string(row.code->*text)})
                                 : std::nullopt;
    });
  };
  addCode("dimension", &Disagreement::Code::dimension);
  addCode("code_first", &Disagreement::Code::first);
  addCode("code_second", &Disagreement::Code::second);
  return columns.TableOf(rows);
}

}  // namespace

const std::array<AgreementTable, kAgreementTables>& AgreementTables() {
  static constexpr std::array<AgreementTable, kAgreementTables> kTables = {
      {{"agreement_pairs.csv", PairsCsv},
       {"agreement_observers.csv", ObserversCsv},
       {"agreement_study.csv", PooledCsv},
       {"agreement_icc.csv", IccCsv},
       {"agreement_confusion.csv", ConfusionCsv},
       {"agreement_disagreements.csv", DisagreementsCsv}}};
  return kTables;
}

}  // namespace orvex
