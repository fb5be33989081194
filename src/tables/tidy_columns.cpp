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
#include "store/numbers.h"
#include "tables/csv.h"

namespace orvex {
namespace {

using Columns = std::vector<TidyColumn>;
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
                       scheme.HasLetters() ? "code" : "text", WriteDimension,
                       static_cast<int>(scheme.dimension), LetterMeanings(scheme)});
  }
  return columns;
}

/// Missing when the file has something else than a number there.
template <std::string Identity::*member>
void WriteIdentity(const TidyRow& row, int, Cells& cells) {
  if (const auto number = TypedSingle(row.header.identity.*member)) {
    cells.Number(*number);
  } else {
    cells.Missing();
  }
}

template <int QuestionCounts::*member>
void WriteCount(const TidyRow& row, int, Cells& cells) {
  cells.Number(std::int64_t{EpisodeQuestionCounts(row.episode).*member});
}

/// The segment that the question was asked in; null when it is not known.
const SegmentData* SegmentOf(const TidyRow& row) {
  return SegmentOf(row.episode, *row.question);
}

void WriteNumber(const TidyRow& row, int, Cells& cells) {
  cells.Number(std::int64_t{row.number});
}

Columns ObservationColumns() {
  return {
      {"file", "The observation, as the list names it", "text",
       [](const TidyRow& row, int, Cells& cells) { cells.Text(row.file); }},
      {"school", "School number", "number", WriteIdentity<&Identity::SchoolNum>},
      {"class", "Class number", "number", WriteIdentity<&Identity::ClassNum>},
      {"observation", "Observation number", "number", WriteIdentity<&Identity::ObservNum>},
      {"students", "Number of students present", "number", WriteIdentity<&Identity::NumStudents>},
      {"observer", "Initials of the observer", "text",
       [](const TidyRow& row, int, Cells& cells) { cells.Text(row.header.identity.Initials); }},
      {"date", "Date of the observation", "date",
       [](const TidyRow& row, int, Cells& cells) { cells.Code(IsoDate(row.header.ObservDate)); }},
      {"start_time", "Time at which the class started", "time",
       [](const TidyRow& row, int, Cells& cells) { cells.Code(IsoTime(row.header.StartTime)); }},
      {"episode", "Number of the episode in the observation", "number",
       [](const TidyRow& row, int, Cells& cells) {
         cells.Number(std::int64_t{row.episodeNumber});
       }},
  };
}

void Append(Columns& columns, Columns more) {
  std::ranges::move(more, std::back_inserter(columns));
}

Columns QuestionColumns() {
  Columns columns = ObservationColumns();
  Append(columns,
         {{"question", "Number of the question in the episode", "number", WriteNumber},
          {"segment", "Number of the segment it was asked in", "number",
           [](const TidyRow& row, int, Cells& cells) {
             WriteCode(row.question->iSgQ > 0, row.question->iSgQ, cells);
           }},
          {"activity", "Activity of that segment", "code",
           [](const TidyRow& row, int, Cells& cells) {
             const SegmentData* segment = SegmentOf(row);
             WriteCode(segment != nullptr, segment ? segment->activityNum : kUncoded, cells);
           },
           0, ActivityValues()},
          {"text", "Text of the question", "text",
           [](const TidyRow& row, int, Cells& cells) { cells.Text(row.question->question); }}});
  Append(columns, DimensionColumns());
  Append(columns,
         {{"normal",
           "The codes are those of a normal question",
           "code",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Code(row.question->IsNormal() ? "1" : "0");
           },
           0,
           {{"0", "No"}, {"1", "Yes"}}},
          {"fully_coded",
           "Nothing is missing of what must be coded",
           "code",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Code(FindMissingCodes(*row.question).None() ? "1" : "0");
           },
           0,
           {{"0", "No"}, {"1", "Yes"}}},
          {"dialogic_spell", "Number of the episode's dialogic spell that it belongs to", "number",
           [](const TidyRow& row, int, Cells& cells) {
             const auto spell =
                 std::ranges::lower_bound(row.spells, row.number, {}, &DialogicSpell::last);
             const auto number = static_cast<std::int16_t>(spell - row.spells.begin() + 1);
             WriteCode(spell != row.spells.end() && spell->first <= row.number, number, cells);
           }}});
  return columns;
}

void WriteSubCode(const TidyRow& row, int code, Cells& cells) {
  const SubCodeScheme& scheme = kSubCodes[static_cast<std::size_t>(code)];
  WriteCode(Carries(row.segment->activityNum, scheme.code), row.segment->*scheme.stored, cells);
}

Columns SegmentColumns() {
  Columns columns = ObservationColumns();
  Append(columns,
         {{"segment", "Number of the segment in the episode", "number", WriteNumber},
          {"activity", "Activity", "code",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Number(std::int64_t{row.segment->activityNum});
           },
           0, ActivityValues()},
          {"seconds", "Length in seconds", "number",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Seconds(static_cast<double>(row.segment->duration));
           }},
          {"about", "What the activity was about", "text",
           [](const TidyRow& row, int, Cells& cells) { cells.Text(row.segment->aboutdata); }}});
  for (const SubCodeScheme& code : kSubCodes) {
    columns.push_back({std::string(code.name), std::string(code.label), "code", WriteSubCode,
                       static_cast<int>(code.code), ValuesOf(code.code)});
  }
  return columns;
}

void WriteActivitySeconds(const TidyRow& row, int activity, Cells& cells) {
  ActivityTimes times{};
  AddTimes(row.episode.segments, times);
  cells.Seconds(times[static_cast<std::size_t>(activity - 1)]);
}

Columns EpisodeColumns() {
  using C = QuestionCounts;
  Columns columns = ObservationColumns();
  Append(columns,
         {{"description", "Description of the episode", "text",
           [](const TidyRow& row, int, Cells& cells) { cells.Text(row.episode.Descript); }},
          {"review",
           "Mainly review of previously learned material",
           "code",
           [](const TidyRow& row, int, Cells& cells) {
             const std::string& answer = row.episode.bReview;
             cells.Code(answer == "Y" || answer == "N" ? answer : "");
           },
           0,
           {{"Y", "Yes"}, {"N", "No"}}},
          {"seconds", "Length in seconds", "number",
           [](const TidyRow& row, int, Cells& cells) { cells.Seconds(row.episode.duration()); }},
          {"segments", "Number of segments", "number",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Number(std::int64_t{std::ssize(row.episode.segments)});
           }},
          {"questions", "Number of questions", "number",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Number(std::int64_t{row.episode.nQAs()});
           }},
          {"spells", "Number of dialogic spells", "number",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Number(std::int64_t{std::ssize(row.spells)});
           }},
          {"offtask", "Mean proportion of students off task; only known with questions", "number",
           [](const TidyRow& row, int, Cells& cells) {
             if (row.episode.questions.empty()) {
               cells.Missing();
             } else {
               cells.Number(row.episode.offtask);
             }
           }},
          {"teacher_questions", "Teacher questions", "number", WriteCount<&C::teacher>},
          {"student_questions", "Student questions", "number", WriteCount<&C::student>},
          {"authentic_teacher", "Authentic teacher questions", "number",
           WriteCount<&C::authenticTeacher>},
          {"authentic_student", "Authentic student questions", "number",
           WriteCount<&C::authenticStudent>},
          {"unanswered", "Questions without a response", "number", WriteCount<&C::unanswered>},
          {"test_uptake", "Questions with test uptake", "number", WriteCount<&C::uptakeTest>},
          {"normal_questions",
           "Questions with the normal source, response, authenticity, uptake and cognitive level",
           "number", WriteCount<&C::allDefault>},
          {"higher_order", "Higher-order questions", "number",
           [](const TidyRow& row, int, Cells& cells) {
             cells.Number(std::int64_t{
                 std::ranges::count(row.episode.questions, "H", &questionInfo::strCogLev)});
           }}});
  for (const Activity& activity : kActivities) {
    columns.push_back({"seconds_" + TwoDigits(activity.number),
                       "Seconds of " + std::string(activity.name), "number", WriteActivitySeconds,
                       activity.number});
  }
  return columns;
}

}  // namespace

const std::vector<TidyColumn>& ColumnsOf(TidyTable table) {
  static const Columns questions = QuestionColumns();
  static const Columns segments = SegmentColumns();
  static const Columns episodes = EpisodeColumns();
  switch (table) {
    case TidyTable::questions:
      return questions;
    case TidyTable::segments:
      return segments;
    case TidyTable::episodes:
      break;
  }
  return episodes;
}

void ForEachRow(TidyTable table, std::string_view file, const EpsObservation& observation,
                const std::function<void(const TidyRow&)>& take) {
  int episodeNumber = 0;
  for (const Episode& episode : observation.Episodes) {
    const auto spells = FindDialogicSpells(episode.questions);
    TidyRow row = {.file = file,
                   .header = observation.header,
                   .episode = episode,
                   .spells = spells,
                   .episodeNumber = ++episodeNumber};
    switch (table) {
      case TidyTable::questions:
        for (const questionInfo& question : episode.questions) {
          row.question = &question;
          ++row.number;
          take(row);
        }
        break;
      case TidyTable::segments:
        for (const SegmentData& segment : episode.segments) {
          row.segment = &segment;
          ++row.number;
          take(row);
        }
        break;
      case TidyTable::episodes:
        take(row);
        break;
    }
  }
}

}  // namespace orvex
