#include <algorithm>
#include <cstdint>

#include "fuzz/checks.h"
#include "model/time_of_day.h"
#include "store/eps_reader.h"
#include "store/eps_writer.h"
#include "store/numbers.h"
#include "study/reading_with_warnings.h"

namespace orvex::fuzz {
namespace {

EpsObservation Parse(std::string_view bytes) {
  ReadingWithWarnings events(nullptr);
  return ParseEps(std::string(bytes), events);
}

/// A single as it is read back from the digits that are written.
float SingleAgain(float value) {
  return static_cast<float>(ParseNumber(PrintDigits(value)).value());
}

SegmentData SegmentAgain(const SegmentData& segment) {
  const Activity& activity = ActivityOf(segment.activityNum);
  SegmentData again;
  again.SetData(segment.activityNum, segment.duration);
  if (activity.carriesAbout) again.aboutdata = OneLine(segment.aboutdata);
  for (const SubCode code : activity.subCodes) {
    again.*SchemeOf(code).stored = segment.*SchemeOf(code).stored;
  }
  return again;
}

/// An observation as it should be read back after it was written.
EpsObservation Again(EpsObservation observation) {
  std::ranges::transform(observation.header.ActivityOfftask,
                         observation.header.ActivityOfftask.begin(), SingleAgain);
  std::int16_t number = 0;
  for (Episode& episode : observation.Episodes) {
    ++number;
    episode.Descript = OneLine(episode.Descript);
    episode.offtask = SingleAgain(episode.offtask);
    std::ranges::transform(episode.segments, episode.segments.begin(), SegmentAgain);
    for (questionInfo& question : episode.questions) {
      question.question = OneLine(question.question);
      question.respondName = OneLine(question.respondName);
      question.iEpQ = number;
    }
  }
  return observation;
}

/// An observation whose fields are on one line and without double quotes, which those that are
/// written between quotes cannot hold.
EpsObservation WithPlainFields(EpsObservation observation) {
  EpsHeader& header = observation.header;
  Identity& identity = header.identity;
  const auto plain = [](std::string& field) {
    field = OneLine(field);
    std::ranges::replace(field, '"', '\'');
  };
  for (std::string* field :
       {&identity.SchoolNum, &identity.ClassNum, &identity.ObservNum, &identity.NumStudents,
        &identity.Initials, &header.ObservDate, &header.StartTime}) {
    plain(*field);
  }
  // The number of students is written as it was typed, and read without the blanks around it.
  identity.NumStudents = std::string(WithoutBlanks(identity.NumStudents));
  for (Episode& episode : observation.Episodes) plain(episode.bReview);
  return observation;
}

void RequireSame(const EpsObservation& expected, const EpsObservation& again) {
  Require(again.Episodes == expected.Episodes, "episodes come back as they were");
  Require(again.header.identity == expected.header.identity, "the identity comes back as it was");
  Require(again.header.ObservDate == expected.header.ObservDate, "the date comes back as it was");
  Require(again.header.StartTime == expected.header.StartTime, "the time comes back as it was");
  Require(again.header.ActivityOfftask == expected.header.ActivityOfftask,
          "the off-task averages come back as they were");
}

}  // namespace

std::optional<std::string> CheckEps(std::string_view bytes) {
  const auto observation = Accepted(bytes, Parse);
  if (!observation) return std::nullopt;
  const std::string written = FormatEps(observation->header, observation->Episodes);
  const auto again = Accepted(written, Parse);
  Require(again.has_value(), "what is written can be read");
  RequireSame(WithPlainFields(Again(*observation)), WithPlainFields(*again));
  return written;
}

}  // namespace orvex::fuzz
