#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "model/program.h"
#include "store/text_encoding.h"

namespace orvex {

/// The filter of dialogs that choose an episode file.
inline constexpr const char* kEpsFilter = "EPS files (*.EPS)|*.EPS";

/// What an episode file says about its observation as a whole.
struct EpsHeader {
  Identity identity;
  std::string ObservDate;  ///< "mm-dd-yyyy"
  std::string StartTime;   ///< "hh:mm:ss"
  OfftaskAverages ActivityOfftask{};
  Encoding encoding = Encoding::utf8;  ///< how the file was encoded, and is written again
};

/// What an episode file holds.
struct EpsObservation {
  EpsHeader header;
  EpisodeList Episodes;
};

/// The seven question counts of an episode's summary.
struct QuestionCounts {
  int authenticTeacher = 0;
  int authenticStudent = 0;
  int teacher = 0;
  int student = 0;
  int unanswered = 0;
  int uptakeTest = 0;
  int allDefault = 0;  ///< Source, Response, Authenticity, Uptake and Cognitive Level all 0
};
/// The counts, in the order in which files state them.
inline constexpr std::array kQuestionCounts = {
    &QuestionCounts::authenticTeacher, &QuestionCounts::authenticStudent,
    &QuestionCounts::teacher,          &QuestionCounts::student,
    &QuestionCounts::unanswered,       &QuestionCounts::uptakeTest,
    &QuestionCounts::allDefault};

}  // namespace orvex
