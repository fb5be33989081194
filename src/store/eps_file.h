#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "model/program.h"
#include "store/text_encoding.h"

namespace orvex {

class Storage;

/// For dialogs that choose an episode file.
inline constexpr const char* kEpsFilter = "EPS files (*.EPS)|*.EPS";

/// What an episode file says of its observation as a whole.
struct EpsHeader {
  Identity identity;
  std::string ObservDate;  ///< "mm-dd-yyyy"
  std::string StartTime;   ///< "hh:mm:ss"
  OfftaskAverages ActivityOfftask{};
  Encoding encoding = Encoding::utf8;  ///< how the file was spelled, and is spelled again
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
/// The counts in the order in which files state them.
inline constexpr std::array kQuestionCounts = {
    &QuestionCounts::authenticTeacher, &QuestionCounts::authenticStudent,
    &QuestionCounts::teacher,          &QuestionCounts::student,
    &QuestionCounts::unanswered,       &QuestionCounts::uptakeTest,
    &QuestionCounts::allDefault};

/// How it is said that a file is of an earlier version, that the first segment of episode `ep`
/// needs a repair, and that it has been repaired.
inline constexpr const char* kEarlierVersionText =
    "EPS file created by an earlier version of ORVEX.";
std::string InconsistentText(int ep);
std::string RepairedText(int ep);

/// What the reader has to say while it reads.
class EpsReadEvents {
 public:
  virtual ~EpsReadEvents() = default;
  /// The file is of an earlier version of the program. False gives up reading.
  virtual bool ContinueWithEarlierVersion() = 0;
  /// The first segment of episode `ep` had another activity than the episode; it has been repaired.
  virtual void FirstSegmentRepaired(int ep) = 0;

  /// For a reader that takes the episodes one by one. The header says that so many will follow.
  virtual void EpisodesToCome(int /*count*/) {}
  /// Whether the question counts that the file states are wanted: they must fit 16 bits then.
  virtual bool WantsCounts() const { return false; }
  /// Episode `ep` has been read to its last question. `stated` are its counts, when wanted.
  virtual void EpisodeRead(int /*ep*/, const Episode& /*episode*/,
                           const QuestionCounts& /*stated*/) {}
  /// Everything is read that the file states, and there is more `text`, which begins in `line`.
  virtual void TextAfterLastQuestion(int /*line*/, std::string_view /*text*/) {}
};

/// The reader was told not to go on with a file of an earlier version.
struct ReadingDeclined {};

/// Reads the bytes of an episode file. Throws FormatError, or ReadingDeclined.
EpsObservation ParseEps(std::string bytes, EpsReadEvents& events);
/// The same from a file. Throws FileError as well.
EpsObservation ReadEpsFile(const std::filesystem::path& path, EpsReadEvents& events);

/// The bytes of the episode file of an observation.
std::string FormatEps(const EpsHeader& header, const EpisodeList& episodes);
/// Replaces the file at `path` by the observation. Throws FileError; the old file then stays.
void WriteEpsFile(Storage& storage, const std::filesystem::path& path, const EpsHeader& header,
                  const EpisodeList& episodes);

/// The counts of `episode`, as they are written.
QuestionCounts EpisodeQuestionCounts(const Episode& episode);

/// Cuts the marker "(<----- ep ; seg ----->)" off the end of `text` and stores its numbers. Without
/// a good marker all three stay. False when a number does not fit 16 bits.
bool ParseQuestionMarker(std::string& text, std::int16_t& ep, std::int16_t& seg);

}  // namespace orvex
