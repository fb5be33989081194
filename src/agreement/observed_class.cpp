#include "agreement/observed_class.h"

#include "store/eps_reader.h"
#include "store/sur_file.h"
#include "store/text_encoding.h"
#include "study/file_kind.h"
#include "study/file_numbers.h"
#include "study/log_facts.h"
#include "study/observation_day.h"
#include "study/problem.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

void ReadSurvey(const std::filesystem::path& file, ObservedClass& observed) {
  observed.surveyProblem = ProblemOf(file, [&] {
    const SurFile survey = ReadSurFile(file);
    WarnOfOtherNumbers(file, survey.identity, [&](const std::string& text) {
      observed.notes.push_back("the survey: " + text);
    });
    observed.survey = survey.answers;
  });
}

void ReadLog(const std::filesystem::path& file, ObservedClass& observed) {
  const auto log = ReadLogStart(file);
  if (const auto trouble = TroubleOf(log); !trouble.empty()) observed.notes.emplace_back(trouble);
  if (!log) return;
  observed.logStart = log->begin;
  observed.logDay = DayOf(log->date);
}

}  // namespace

std::string ObservedClass::Name() const {
  return Decode(file.filename().string()).text;
}

ObservedClass ReadObservedClass(const std::filesystem::path& file) {
  ObservedClass observed = {.file = file};
  const auto note = [&](const std::string& text) { observed.notes.push_back(text); };
  ReadingWithWarnings events(note);
  observed.observation = ReadEpsFile(file, events);
  WarnOfOtherNumbers(file, observed.observation.header.identity, note);
  if (const auto survey = Companion(file, FileKind::survey); !survey.empty()) {
    ReadSurvey(survey, observed);
  }
  if (const auto log = Companion(file, FileKind::sessionLog); !log.empty()) {
    ReadLog(log, observed);
  }
  return observed;
}

}  // namespace orvex
