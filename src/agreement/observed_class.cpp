#include "agreement/observed_class.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "store/eps_reader.h"
#include "store/numbers.h"
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

/// The seconds since midnight of "hh:mm:ss"; nothing for any other text.
std::optional<int> SecondOfDay(std::string_view time) {
  const auto numbers = ThreeNumbers(time, ":");
  if (!numbers) return std::nullopt;
  constexpr std::array<int, 3> kBelow = {24, 60, 60};
  int second = 0;
  for (std::size_t part = 0; part < kBelow.size(); ++part) {
    if ((*numbers)[part] >= kBelow[part]) return std::nullopt;
    second = second * 60 + (*numbers)[part];
  }
  return second;
}

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
  const auto facts = ReadLogStart(file);
  if (!facts) {
    observed.notes.emplace_back("the session log could not be read, or is none");
    return;
  }
  observed.logStart = SecondOfDay(facts->start);
  observed.logDay = DayOf(facts->date);
  if (!observed.logStart) observed.notes.emplace_back("the session log does not say when it began");
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
