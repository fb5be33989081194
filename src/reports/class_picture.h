#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/activities.h"
#include "model/episode.h"
#include "reports/question_statistics.h"
#include "store/eps_file.h"

namespace orvex {

struct ClassLog;

/// A time of the class from one second to another, counted from the class's begin.
struct Stretch {
  double begin = 0;
  double end = 0;

  bool operator==(const Stretch&) const = default;
  double Length() const { return end - begin; }
};

/// Everything that one page shows of a class, in seconds and shares, as a painter needs it.
struct ClassPicture {
  /// A line of the heading: what it is, and what it says.
  struct Heading {
    std::string_view caption;  ///< "School"
    std::string text;
  };

  struct EpisodeBand {
    Stretch time;
    int number = 0;  ///< from 1
    std::string description;
  };

  struct SegmentBlock {
    Stretch time;
    int episode = 0;
    int segment = 0;   ///< in its episode, from 1
    int activity = 0;  ///< may be none that is known
    std::optional<ActivityGroup> group;
    std::string_view shortName;  ///< "" for an activity that is not known
  };

  /// Who asked. A question whose Source is not coded stands with the students', hollow or not.
  enum class Asker { teacher, student };

  struct QuestionTick {
    double second = 0;
    int episode = 0;
    int number = 0;  ///< in its episode, from 1
    Asker asker = Asker::teacher;
    bool isAuthentic = false;
    bool isUptake = false;       ///< test or authentic uptake
    bool isHigherLevel = false;  ///< analysis and generalization, as the statistics count it
    bool isUnanswered = false;   ///< no response: drawn hollow
    bool isTimed = false;        ///< where the log says; otherwise spread over its segment
    std::string text;
  };

  struct SpellBracket {
    Stretch time;  ///< from its first question to its last
    int episode = 0;
    DialogicSpell spell;
  };

  /// An estimate of the students off task, of those that the log tells of.
  struct EstimateDot {
    double second = 0;
    std::optional<double> share;  ///< 0 to 1, above 1 possible; nothing for a missed one
    int activity = 0;
  };

  /// A mark of the axis. There are about a dozen at most, on round minutes.
  struct AxisMark {
    double second = 0;
    std::string text;  ///< "10:25" where the clock is known, otherwise "25 min"
  };

  /// A line of what stands beneath the picture.
  struct Figure {
    std::string caption;  ///< "Direct instruction"
    std::string value;    ///< "21:35 (48 %)"
  };
  struct FigureBlock {
    std::string heading;
    std::vector<Figure> figures;
  };

  std::string title;  ///< "5-12-3"
  std::vector<Heading> heading;
  double seconds = 0;  ///< the length of the class
  /// The second of the day at which it began, where the log says. The file's time is that of the
  /// program's start.
  std::optional<int> begin;
  std::vector<EpisodeBand> episodes;
  std::vector<SegmentBlock> segments;
  std::vector<QuestionTick> questions;  ///< in the order of the file
  std::vector<SpellBracket> spells;
  bool hasLog = false;  ///< without it there are no estimates, and questions are spread
  std::vector<EstimateDot> estimates;
  std::array<double, kActivityGroupCount> groupSeconds{};
  std::vector<FigureBlock> figures;

  /// The axis of the class.
  Stretch Whole() const { return {0, seconds}; }
  /// The marks of the axis while a part of it is shown.
  std::vector<AxisMark> Axis(const Stretch& shown) const;
};

/// The picture of a class. `log` is what its session log says; null where there is none, and one
/// that does not say when it began counts as none. A question stands at its time in the log, but
/// never outside its segment nor before the one ahead of it there (see QuestionsOf): segments may
/// have been moved since.
ClassPicture MakeClassPicture(const EpsHeader& header, const EpisodeList& episodes,
                              const ClassLog* log);

}  // namespace orvex
