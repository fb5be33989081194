#include "store/eps_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/version.h"
#include "store/content_kind.h"
#include "store/durable_file.h"
#include "store/eps_trace.h"
#include "store/field_reader.h"
#include "store/format_error.h"
#include "store/numbers.h"

namespace orvex {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// True when a file's first line names a version earlier than this program's. A line without a
/// version counts as current.
bool IsOfEarlierVersion(std::string_view banner) {
  constexpr std::string_view kProgram = "Orvex";
  const std::size_t program = banner.find(kProgram);
  if (program == kNone) return false;
  const std::size_t start = program + kProgram.size();
  const std::size_t end = banner.find("EPS", start);
  if (end == kNone) return false;
  const auto version = ParseNumber(WithoutBlanks(banner.substr(start, end - start)));
  return version && *version < ParseNumber(VersionText());
}

constexpr std::string_view kMarkerOpen = "(<-----";

/// Where a question was asked, according to its marker.
struct Marker {
  std::size_t position = kNone;  ///< where it begins in the line; kNone when there is no valid one
  std::int16_t ep = 0;
  std::int16_t sg = 0;
};

/// The last marker in a question's line. Nothing when one of its numbers does not fit 16 bits.
std::optional<Marker> FindMarker(std::string_view line) {
  constexpr std::string_view kClose = "----->)";
  std::size_t open = line.rfind(kMarkerOpen.front());
  while (open != kNone && !line.substr(open).starts_with(kMarkerOpen)) {
    open = open == 0 ? kNone : line.rfind(kMarkerOpen.front(), open - 1);
  }
  if (open == kNone) return Marker{};
  const std::string_view marker = line.substr(open + kMarkerOpen.size());
  const std::size_t middle = marker.find(';');
  if (middle == kNone) return Marker{};
  const std::size_t close = marker.find(kClose, middle + 1);
  if (close == kNone) return Marker{};
  const auto ep = ParseNumber(WithoutBlanks(marker.substr(0, middle)));
  const auto sg = ParseNumber(WithoutBlanks(marker.substr(middle + 1, close - middle - 1)));
  if (!ep || !sg) return Marker{};
  const auto shortEp = ToInt16(*ep);
  const auto shortSg = ToInt16(*sg);
  if (!shortEp || !shortSg) return std::nullopt;
  return Marker{open, *shortEp, *shortSg};
}

/// What a file states about an episode's questions.
struct Summary {
  int questions = 0;
  QuestionCounts counts;
};

class EpsReader {
 public:
  EpsReader(const DecodedText& file, EpsReadEvents& events) : fields_(file.text), events_(events) {
    observation_.header.encoding = file.encoding;
  }

  void Trace(std::vector<ReadField>& trace) { fields_.Trace(trace); }
  EpsObservation Read() {
    const int episodes = ReadHeader();
    events_.EpisodesToCome(episodes);
    for (int ep = 1; ep <= episodes; ++ep) ReadEpisode(ep);
    for (std::size_t i = 0; i < observation_.Episodes.size(); ++i) ReadSummary(i);
    for (std::size_t i = 0; i < observation_.Episodes.size(); ++i) {
      ReadQuestions(observation_.Episodes[i], summaries_[i].questions);
      events_.EpisodeRead(static_cast<int>(i + 1), observation_.Episodes[i], summaries_[i].counts);
    }
    const std::string_view left = fields_.UnreadText();
    if (!left.empty()) events_.TextAfterLastQuestion(fields_.LineOf(left), left);
    return std::move(observation_);
  }

 private:
  /// Reads the header. Returns the number of episodes.
  int ReadHeader() {
    EpsHeader& header = observation_.header;
    Identity& identity = header.identity;
    std::string_view first = fields_.Field("the banner or the school number");
    if (!ParseNumber(first)) {
      if (IsOfEarlierVersion(first) && !events_.ContinueWithEarlierVersion()) {
        throw ReadingDeclined{};
      }
      first = fields_.Field("the school number");
    }
    identity.SchoolNum = first;
    identity.ClassNum = fields_.Field("the class number");
    identity.ObservNum = fields_.Field("the observation number");
    identity.NumStudents = fields_.Field("the number of students");
    identity.Initials = fields_.Field("the observer's initials");
    header.ObservDate = fields_.Field("the date");
    header.StartTime = fields_.Field("the start time");
    const int episodes = fields_.Integer("the number of episodes");
    for (float& average : header.ActivityOfftask) {
      average = fields_.Single("the off-task average");
    }
    return episodes;
  }

  void ReadEpisode(int ep) {
    Episode episode;
    fields_.Line("the heading of an episode");
    episode.Descript = fields_.Line("the description of an episode");
    const std::int16_t activity = fields_.Integer("the first segment's activity number");
    fields_.SkipNumber("the duration of the episode");
    const int questions = fields_.Integer("the number of questions");
    episode.bReview = fields_.Field("the review answer");
    fields_.SkipNumber("the number of earlier questions");
    const int segments = fields_.Integer("the number of segments");
    const int spells = fields_.Integer("the number of dialogic spells");
    for (int spell = 1; spell <= spells; ++spell)
      fields_.SkipNumber("the length of a dialogic spell");
    for (int sg = 1; sg <= segments; ++sg) {
      SegmentData& segment = episode.segments.emplace_back(ReadSegment());
      if (sg == 1 && segment.activityNum != activity) {
        segment.activityNum = activity;
        segment.aboutdata.clear();
        events_.FirstSegmentRepaired(ep);
      }
    }
    observation_.Episodes.push_back(std::move(episode));
    summaries_.push_back({.questions = questions, .counts = {}});
  }

  SegmentData ReadSegment() {
    const std::int16_t activity = fields_.Integer("the activity number of a segment");
    const float duration = fields_.Single("the duration of a segment");
    SegmentData segment;
    segment.SetData(activity, duration);
    for (const SubCode code : ActivityOf(activity).subCodes) {
      segment.*SchemeOf(code).stored = fields_.Integer(SchemeOf(code).expected);
    }
    if (ActivityOf(activity).carriesAbout) {
      segment.aboutdata = fields_.Line("what the activity was about");
    }
    return segment;
  }

  void ReadSummary(std::size_t episode) {
    if (summaries_[episode].questions > 0) {
      QuestionCounts& stated = summaries_[episode].counts;
      for (const auto count : kQuestionCounts) ReadCount(stated.*count);
      observation_.Episodes[episode].offtask = fields_.Single("the episode's off-task mean");
    }
    for (int i = 0; i < kActivityCount; ++i) fields_.SkipNumber("the time spent in an activity");
  }

  void ReadCount(int& count) {
    constexpr std::string_view kWhat = "a question count";
    if (events_.WantsCounts()) {
      count = fields_.Integer(kWhat);
    } else {
      fields_.SkipNumber(kWhat);
    }
  }

  void ReadQuestions(Episode& episode, int count) {
    // The file may state any count: never reserve room for more than its bytes can hold.
    constexpr std::size_t kLineEnds = 3;
    constexpr std::size_t kLeastBytes = kLineEnds + kLetteredDimensions.size() - 1;  // with commas
    const auto stated = static_cast<std::size_t>(std::max(count, 0));
    episode.questions.reserve(std::min(stated, fields_.UnreadBytes() / kLeastBytes));
    for (int q = 1; q <= count; ++q) ReadQuestion(episode);
  }

  void ReadQuestion(Episode& episode) {
    const std::string_view line = fields_.Line("the text of a question");
    const auto marker = FindMarker(line);
    if (!marker) {
      fields_.Fail("the question's episode and segment to be from -32768 to 32767",
                   line.substr(line.rfind(kMarkerOpen)));
    }
    DimensionTexts coded;
    coded[Dimension::respondName] = fields_.Line("who answers a question");
    for (const Dimension dimension : kLetteredDimensions) {
      coded[dimension] = fields_.Field("a code letter");
    }
    episode.questions.emplace_back().SetValue(line.substr(0, marker->position), coded, marker->ep,
                                              marker->sg);
  }

  FieldReader fields_;
  EpsReadEvents& events_;
  EpsObservation observation_;
  std::vector<Summary> summaries_;  ///< of the episodes read so far
};

}  // namespace

std::string InconsistentText(int ep) {
  return "An inconsistency is found in activity coding of first segment in episode #" +
         std::to_string(ep) + ".";
}

std::string RepairedText(int ep) {
  return InconsistentText(ep) + "\nIt's been corrected.";
}

bool ParseQuestionMarker(std::string& text, std::int16_t& ep, std::int16_t& seg) {
  const auto marker = FindMarker(text);
  if (!marker) return false;
  if (marker->position != kNone) {
    ep = marker->ep;
    seg = marker->sg;
    text.erase(marker->position);
  }
  return true;
}

std::vector<ReadField> TraceEps(const DecodedText& file, EpsReadEvents& events) {
  std::vector<ReadField> trace;
  EpsReader reader(file, events);
  reader.Trace(trace);
  reader.Read();
  return trace;
}

EpsObservation ParseEps(std::string bytes, EpsReadEvents& events) {
  const DecodedText file = Decode(std::move(bytes));
  try {
    return EpsReader(file, events).Read();
  } catch (const FormatError& error) {
    FailAs(ContentKind::episodes, file.text, error);
  }
}

EpsObservation ReadEpsFile(const std::filesystem::path& path, EpsReadEvents& events) {
  return ParseEps(ReadFile(path), events);
}

}  // namespace orvex
