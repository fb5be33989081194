#include "tables/tidy_columns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "model/clock.h"
#include "model/validation.h"
#include "store/eps_writer.h"
#include "tables/observation_columns.h"
#include "tables/shared_columns.h"
#include "tables/survey_columns.h"

namespace orvex {
namespace {

using Values = std::vector<ValueLabel>;

Values ValuesOf(SubCode code) {
  Values values;
  for (const std::string_view label : SchemeOf(code).values) {
    values.push_back({std::to_string(values.size()), label});
  }
  return values;
}

Values ActivityValues() {
  Values values;
  for (const Activity& activity : kActivities) {
    values.push_back({ActivityDigits(activity.number), activity.name});
  }
  return values;
}

/// A code of a segment; missing where the activity carries none, and where it has not been coded.
void WriteCode(bool carried, std::int16_t code, Cells& cells) {
  if (carried && code != kUncoded) {
    cells.Number(std::int64_t{code});
  } else {
    cells.Missing();
  }
}

Values LetterMeanings(const DimensionScheme& scheme) {
  Values values;
  for (const char letter : scheme.letters) {
    values.push_back({std::string(1, letter), scheme.meanings[values.size()]});
  }
  return values;
}

void WriteDimension(const TidyRow& row, int dimension, Cells& cells) {
  const std::string_view text = row.question->Text(static_cast<Dimension>(dimension));
  SchemeOf(static_cast<Dimension>(dimension)).HasLetters() ? cells.Code(text) : cells.Text(text);
}

Columns DimensionColumns() {
  Columns columns;
  for (const DimensionScheme& scheme : kDimensionSchemes) {
    columns.push_back({std::string(scheme.variable), std::string(scheme.tableLabel),
                       scheme.HasLetters() ? ColumnType::code : ColumnType::text, WriteDimension,
                       static_cast<int>(scheme.dimension), LetterMeanings(scheme)});
  }
  return columns;
}

template <int QuestionCounts::*member>
void WriteCount(const TidyRow& row, int, Cells& cells) {
  cells.Number(std::int64_t{EpisodeQuestionCounts(*row.episode).*member});
}

/// The segment that the question was asked in; null when it is not known.
const SegmentData* SegmentOf(const TidyRow& row) {
  return SegmentOf(*row.episode, *row.question);
}

void WriteNumber(const TidyRow& row, int, Cells& cells) {
  cells.Number(std::int64_t{row.number});
}

/// The columns that all tables of parts of an observation begin with.
Columns EpisodeNumberColumns() {
  Columns columns = ObservationColumns();
  Append(columns, {{"episode", "Number of the episode in the observation", ColumnType::wholeNumber,
                    [](const TidyRow& row, int, Cells& cells) {
                      cells.Number(std::int64_t{row.episodeNumber});
                    }}});
  return columns;
}

Columns QuestionColumns() {
  Columns columns = EpisodeNumberColumns();
  Append(
      columns,
      {{"question", "Number of the question in the episode", ColumnType::wholeNumber, WriteNumber},
       {"segment", "Number of the segment it was asked in", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) {
          WriteCode(row.question->iSgQ > 0, row.question->iSgQ, cells);
        }},
       {"activity", "Activity of that segment", ColumnType::code,
        [](const TidyRow& row, int, Cells& cells) {
          const SegmentData* segment = SegmentOf(row);
          WriteCode(segment != nullptr, segment ? segment->activityNum : kUncoded, cells);
        },
        0, ActivityValues()},
       {"text", "Text of the question", ColumnType::text,
        [](const TidyRow& row, int, Cells& cells) { cells.Text(row.question->question); }}});
  Append(columns, DimensionColumns());
  Append(
      columns,
      {{"normal", "The codes are those of a normal question", ColumnType::code,
        [](const TidyRow& row, int, Cells& cells) { WriteYesNo(row.question->IsNormal(), cells); },
        0, YesNoValues()},
       {"fully_coded", "Nothing is missing of what must be coded", ColumnType::code,
        [](const TidyRow& row, int, Cells& cells) {
          WriteYesNo(FindMissingCodes(*row.question).None(), cells);
        },
        0, YesNoValues()},
       {"dialogic_spell", "Number of the episode's dialogic spell that it belongs to",
        ColumnType::wholeNumber, [](const TidyRow& row, int, Cells& cells) {
          const auto spell =
              std::ranges::lower_bound(*row.spells, row.number, {}, &DialogicSpell::last);
          const auto number = static_cast<std::int16_t>(spell - row.spells->begin() + 1);
          WriteCode(spell != row.spells->end() && spell->first <= row.number, number, cells);
        }}});
  return columns;
}

void WriteSubCode(const TidyRow& row, int code, Cells& cells) {
  const SubCodeScheme& scheme = kSubCodes[static_cast<std::size_t>(code)];
  WriteCode(Carries(row.segment->activityNum, scheme.code), row.segment->*scheme.stored, cells);
}

Columns SegmentColumns() {
  Columns columns = EpisodeNumberColumns();
  Append(columns,
         {{"segment", "Number of the segment in the episode", ColumnType::wholeNumber, WriteNumber},
          {"activity", "Activity", ColumnType::code,
           [](const TidyRow& row, int, Cells& cells) {
             cells.Number(std::int64_t{row.segment->activityNum});
           },
           0, ActivityValues()},
          {"seconds", "Length in seconds", ColumnType::wholeNumber,
           [](const TidyRow& row, int, Cells& cells) {
             cells.Seconds(static_cast<double>(row.segment->duration));
           }},
          {"about", "What the activity was about", ColumnType::text,
           [](const TidyRow& row, int, Cells& cells) { cells.Text(row.segment->aboutdata); }}});
  for (const SubCodeScheme& code : kSubCodes) {
    columns.push_back({std::string(code.name), std::string(code.label), ColumnType::code,
                       WriteSubCode, static_cast<int>(code.code), ValuesOf(code.code)});
  }
  return columns;
}

void WriteActivitySeconds(const TidyRow& row, int activity, Cells& cells) {
  ActivityTimes times{};
  AddTimes(row.episode->segments, times);
  cells.Seconds(times[static_cast<std::size_t>(activity - 1)]);
}

Columns EpisodeColumns() {
  using C = QuestionCounts;
  Columns columns = EpisodeNumberColumns();
  Append(
      columns,
      {{"description", "Description of the episode", ColumnType::text,
        [](const TidyRow& row, int, Cells& cells) { cells.Text(row.episode->Descript); }},
       {"review",
        "Mainly review of previously learned material",
        ColumnType::code,
        [](const TidyRow& row, int, Cells& cells) {
          const std::string& answer = row.episode->bReview;
          cells.Code(answer == "Y" || answer == "N" ? answer : "");
        },
        0,
        {{"Y", "Yes"}, {"N", "No"}}},
       {"seconds", "Length in seconds", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) { cells.Seconds(row.episode->duration()); }},
       {"segments", "Number of segments", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) {
          cells.Number(std::int64_t{std::ssize(row.episode->segments)});
        }},
       {"questions", "Number of questions", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) {
          cells.Number(std::int64_t{row.episode->nQAs()});
        }},
       {"spells", "Number of dialogic spells", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) {
          cells.Number(std::int64_t{std::ssize(*row.spells)});
        }},
       {"offtask",
        OfftaskLabel(
            "only known with questions; its number of estimates is in the session log alone"),
        ColumnType::number,
        [](const TidyRow& row, int, Cells& cells) {
          if (row.episode->questions.empty()) {
            cells.Missing();
          } else {
            cells.Number(row.episode->offtask);
          }
        }},
       {"teacher_questions", "Teacher questions", ColumnType::wholeNumber, WriteCount<&C::teacher>},
       {"student_questions", "Student questions", ColumnType::wholeNumber, WriteCount<&C::student>},
       {"authentic_teacher", "Authentic teacher questions", ColumnType::wholeNumber,
        WriteCount<&C::authenticTeacher>},
       {"authentic_student", "Authentic student questions", ColumnType::wholeNumber,
        WriteCount<&C::authenticStudent>},
       {"unanswered", "Questions without a response", ColumnType::wholeNumber,
        WriteCount<&C::unanswered>},
       {"test_uptake", "Questions with test uptake", ColumnType::wholeNumber,
        WriteCount<&C::uptakeTest>},
       {"default_questions",
        "Questions whose source, response, authenticity, uptake and cognitive level are T, Y, N, N "
        "and R; `normal` asks for more",
        ColumnType::wholeNumber, WriteCount<&C::allDefault>},
       {"higher_order", "Higher-order questions", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) {
          cells.Number(std::int64_t{
              std::ranges::count(row.episode->questions, "H", &questionInfo::strCogLev)});
        }}});
  for (const Activity& activity : kActivities) {
    columns.push_back({"seconds_" + TwoDigits(activity.number),
                       "Seconds of " + std::string(activity.name), ColumnType::wholeNumber,
                       WriteActivitySeconds, activity.number});
  }
  return columns;
}

}  // namespace

std::string_view NameOf(ColumnType type) {
  switch (type) {
    case ColumnType::text:
      return "text";
    case ColumnType::wholeNumber:
    case ColumnType::number:
      return "number";
    case ColumnType::date:
      return "date";
    case ColumnType::time:
      return "time";
    case ColumnType::code:
      break;
  }
  return "code";
}

bool TidyColumn::IsNumeric() const {
  if (type == ColumnType::code)
    return values.front().value.find_first_not_of("0123456789") == std::string::npos;
  return type == ColumnType::wholeNumber || type == ColumnType::number;
}

const Columns& ColumnsOf(TidyTable table) {
  static const Columns observations = ClassColumns();
  static const Columns survey = SurveyColumns();
  static const Columns episodes = EpisodeColumns();
  static const Columns segments = SegmentColumns();
  static const Columns questions = QuestionColumns();
  switch (table) {
    case TidyTable::observations:
      return observations;
    case TidyTable::survey:
      return survey;
    case TidyTable::episodes:
      return episodes;
    case TidyTable::segments:
      return segments;
    case TidyTable::questions:
      break;
  }
  return questions;
}

void WriteRow(TidyTable table, const TidyRow& row, Cells& cells) {
  for (const TidyColumn& column : ColumnsOf(table)) column.write(row, column.argument, cells);
}

}  // namespace orvex
