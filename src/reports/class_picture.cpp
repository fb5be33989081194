#include "reports/class_picture.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "reports/asked_question.h"
#include "reports/class_log.h"
#include "reports/logged_times.h"
#include "reports/missed_estimates.h"
#include "reports/picture_figures.h"
#include "reports/time_axis.h"

namespace orvex {
namespace {

void AddSegment(const SegmentData& segment, int number, ClassPicture& picture) {
  ClassPicture::SegmentBlock block = {.time = {picture.seconds, picture.seconds + TimeOf(segment)},
                                      .episode = static_cast<int>(picture.episodes.size()),
                                      .segment = number,
                                      .activity = segment.activityNum,
                                      .group = {},
                                      .shortName = {}};
  if (IsActivity(block.activity)) {
    const Activity& activity = ActivityOf(block.activity);
    block.group = activity.group;
    block.shortName = activity.shortName;
    picture.groupSeconds[static_cast<std::size_t>(activity.group)] += block.time.Length();
  }
  picture.seconds = block.time.end;
  picture.segments.push_back(block);
}

void AddTimes(const EpisodeList& episodes, ClassPicture& picture) {
  for (const Episode& episode : episodes) {
    picture.episodes.push_back({{picture.seconds, picture.seconds},
                                static_cast<int>(picture.episodes.size()) + 1,
                                episode.Descript});
    int number = 0;
    for (const SegmentData& segment : episode.segments) AddSegment(segment, ++number, picture);
    picture.episodes.back().time.end = picture.seconds;
  }
}

/// The tick of a question. What the statistics count of it is marked.
ClassPicture::QuestionTick TickOf(const AskedQuestion& asked) {
  const questionInfo& question = *asked.question;
  const CodeCounts counts = CountCodes(std::span(&question, 1));
  return {
      .second = asked.second,
      .episode = asked.episode,
      .number = asked.number,
      .asker = counts.TeacherQ > 0 ? ClassPicture::Asker::teacher : ClassPicture::Asker::student,
      .isAuthentic = counts.AuthTeacher + counts.AuthStudent > 0,
      .isUptake = counts.UptakeTest + counts.UptakeAuthentic > 0,
      .isHigherLevel = counts.HigherLevel > 0,
      .isUnanswered = question.strRspns() == "N",
      .isTimed = asked.isTimed,
      .text = question.question};
}

void AddQuestions(const EpisodeList& episodes, const ClassLog* log, ClassPicture& picture) {
  const auto times = log != nullptr ? LoggedTimes(episodes, *log) : QuestionTimes();
  for (const AskedQuestion& asked : QuestionsOf(episodes, times)) {
    picture.questions.push_back(TickOf(asked));
  }
  std::size_t first = 0;  // of the episode
  int number = 0;
  for (const Episode& episode : episodes) {
    ++number;
    const auto secondOf = [&](int question) {
      return picture.questions[first + static_cast<std::size_t>(question) - 1].second;
    };
    for (const DialogicSpell& spell : FindDialogicSpells(episode.questions)) {
      picture.spells.push_back({{secondOf(spell.first), secondOf(spell.last)}, number, spell});
    }
    first += episode.questions.size();
  }
}

/// The activity at a second of the class, or kNoActivity.
int ActivityAt(double second, const ClassPicture& picture) {
  const auto block = std::ranges::upper_bound(picture.segments, second, {},
                                              [](const auto& segment) { return segment.time.end; });
  return block == picture.segments.end() ? kNoActivity : block->activity;
}

/// Where an estimate stands. One whose time is not in its segment stands at the segment's end, when
/// most estimates are made.
std::optional<double> SecondOf(const LoggedEstimate& estimate, const ClassLog& log) {
  if (estimate.segment == log.segments.size()) return estimate.second;
  const LoggedSegment& segment = log.segments[estimate.segment];
  const auto second =
      estimate.second ? TimeWithin(*estimate.second, segment.begin, segment.end) : std::nullopt;
  return second.value_or(segment.end);
}

void AddEstimates(const ClassLog& log, ClassPicture& picture) {
  for (const LoggedEstimate& estimate : log.estimates) {
    if (const auto second = SecondOf(estimate, log)) {
      picture.estimates.push_back(
          {std::clamp(*second, 0.0, picture.seconds), estimate.share, estimate.activity});
    }
  }
  for (const MissedEstimate& missed : MissedEstimates(log)) {
    // A segment that was given another activity afterwards did not call for the estimate.
    if (ActivityAt(missed.second, picture) != missed.activity) continue;
    picture.estimates.push_back({missed.second, std::nullopt, missed.activity});
  }
  std::ranges::stable_sort(picture.estimates, {}, &ClassPicture::EstimateDot::second);
}

}  // namespace

ClassPicture MakeClassPicture(const EpsHeader& header, const EpisodeList& episodes,
                              const ClassLog* log) {
  ClassPicture picture;
  picture.title = header.identity.ClassId();
  picture.hasLog = log != nullptr && log->begin;
  if (picture.hasLog) picture.begin = log->begin;
  AddTimes(episodes, picture);
  AddQuestions(episodes, picture.hasLog ? log : nullptr, picture);
  if (picture.hasLog) AddEstimates(*log, picture);
  picture.heading = PictureHeading(header, picture.begin);
  picture.figures = PictureFigures(header, CountCodes(episodes), picture);
  return picture;
}

std::vector<ClassPicture::AxisMark> ClassPicture::Axis(const Stretch& shown) const {
  return TimeAxis(shown, begin);
}

}  // namespace orvex
