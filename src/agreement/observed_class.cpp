#include "agreement/observed_class.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

#include "store/eps_reader.h"
#include "store/sur_file.h"
#include "store/text_encoding.h"
#include "study/file_kind.h"
#include "study/file_numbers.h"
#include "study/log_facts.h"
#include "study/problem.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

/// The seconds since midnight of "hh:mm:ss"; nothing for any other text.
std::optional<int> SecondOfDay(std::string_view time) {
  constexpr std::array<int, 3> kBelow = {24, 60, 60};
  constexpr std::size_t kPart = 3;  // two digits and what separates them from the next
  constexpr std::size_t kDigits = 2;
  if (time.size() + 1 != kBelow.size() * kPart) return std::nullopt;
  int second = 0;
  for (std::size_t part = 0; part < kBelow.size(); ++part) {
    const std::string_view digits = time.substr(part * kPart, kDigits);
    unsigned number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
    if (static_cast<int>(number) >= kBelow[part]) return std::nullopt;
    second = second * 60 + static_cast<int>(number);
  }
  return second;
}

void ReadSurvey(const std::filesystem::path& file, ObservedClass& observed) {
  const auto note = [&](const std::string& text) {
    observed.notes.push_back("the survey: " + text);
  };
  const auto problem = ProblemOf(file, [&] {
    const SurFile survey = ReadSurFile(file);
    WarnOfOtherNumbers(file, survey.identity, note);
    observed.survey = survey.answers;
  });
  if (!problem) return;
  note(problem->Text());
  observed.isWhole = false;
}

void ReadLog(const std::filesystem::path& file, ObservedClass& observed) {
  const auto facts = ReadLogStart(file);
  if (facts) observed.logStart = SecondOfDay(facts->start);
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
