#include "running/running_class.h"

#include <charconv>
#include <random>
#include <utility>

#include "model/time_of_day.h"

namespace orvex {

RunningClass RunningClass::Begun(float now) {
  constexpr int kHexadecimal = 16;
  RunningClass begun;
  begun.episodeStart = begun.segmentStart = now;
  std::random_device random;
  for (int i = 0; i < 4; ++i) {
    char digits[kHexadecimal];
    const auto end = std::to_chars(digits, digits + kHexadecimal, random(), kHexadecimal).ptr;
    begun.token.append(digits, end).append(i < 3 ? "-" : "");
  }
  return begun;
}

questionInfo RunningClass::DraftAsStored() const {
  questionInfo question;
  question.SetValue(draft.question, draft.fields.Texts(), static_cast<std::int16_t>(curEpisode),
                    static_cast<std::int16_t>(curSegment));
  return question;
}

AllowedActions RunningClass::Allowed(const EpisodeList& episodes) const {
  if (awaitsSurvey) return {.survey = true, .end = true};
  const bool divide = ChosenActivity() != kNoActivity && !episodes.back().Descript.empty();
  AllowedActions allowed = {.segment = divide && RoomForSegment(),
                            .episode = divide && RoomForEpisode(),
                            .review = divide,
                            .proof = divide && AnyQuestions(episodes),
                            .survey = divide,
                            .end = divide || nothingEntered};
  if (curSegment >= 2) {
    if (RoomForEpisode()) allowed.conversion = Conversion::toEpisode;
  } else if (curEpisode >= 2) {
    allowed.conversion = Conversion::toSegment;
  }
  return allowed;
}

// Activities.

void RunningClass::ChooseActivity(int activity, const EpisodeList& episodes, float now) {
  if (!AwaitsActivity()) {
    schedule.Stop();
    coding.ResetForNewActivity();
  }
  freshSegment = false;
  prevActivity = std::exchange(curActivity, activity);
  choice = ActivityChoice::made;
  StartSchedule(now);
  if (activity != kQuestionAnswer) return;
  draft = {};
  history.ForgetDrafts();
  questionsBefore = episodes.back().nQAs();
}

void RunningClass::AbandonQuestionAnswer(EpisodeList& episodes) {
  curActivity = prevActivity;
  freshSegment = true;
  choice = ActivityChoice::abandoned;
  schedule.Stop();
  if (curSegment == 1) episodes.back().Descript.clear();
}

// Segments and episodes.

void RunningClass::EndSegment(Episode& episode, float now) {
  schedule.Stop();
  episode.segments.push_back(Segment(now - segmentStart));
}

void RunningClass::StartSegment(EpisodeList& episodes, float now) {
  EndSegment(episodes.back(), now);
  choice = ActivityChoice::awaited;
  freshSegment = true;
  coding.ResetForNewSegment();
  ++curSegment;
  segmentStart = now;
}

/// Records what an episode takes from its end: its last activity and its off-task mean.
void RunningClass::CloseEpisode(Episode& episode) {
  episodeActivity = curActivity;
  if (!episode.questions.empty()) episode.offtask = AverageOf(offtaskEstimates);
}

BeforeEnd RunningClass::EndEpisode(EpisodeList& episodes, float now) {
  Episode& episode = episodes.back();
  BeforeEnd before = {
      .schedule = schedule, .episodeActivity = episodeActivity, .offtask = episode.offtask};
  EndSegment(episode, now);
  CloseEpisode(episode);
  return before;
}

void RunningClass::GoOn(EpisodeList& episodes, const BeforeEnd& before) {
  episodes.back().segments.pop_back();
  episodes.back().offtask = before.offtask;
  episodeActivity = before.episodeActivity;
  schedule = before.schedule;
}

void RunningClass::AppendEpisode(EpisodeList& episodes) {
  prevOfftaskEstimates = std::exchange(offtaskEstimates, {});
  episodes.emplace_back();
  ++curEpisode;
  curSegment = 1;
  prevEpisodeStart = episodeStart;
}

void RunningClass::StartEpisode(EpisodeList& episodes, float now) {
  EndEpisode(episodes, now);
  AppendEpisode(episodes);
  episodeStart = segmentStart = now;
  coding.choicesVisible = false;
  coding.ResetForNewSegment();
  choice = ActivityChoice::awaited;
  curActivity = kNoActivity;
  freshSegment = true;
}

void RunningClass::ConvertToEpisode(EpisodeList& episodes) {
  CloseEpisode(episodes.back());
  AppendEpisode(episodes);
  episodeStart = segmentStart;
  if (ChosenActivity() == kNoActivity) coding.choicesVisible = false;
}

void RunningClass::ConvertToSegment(EpisodeList& episodes) {
  episodes.pop_back();
  history.ForgetEpisode(curEpisode);
  --curEpisode;
  curSegment = static_cast<int>(episodes.back().segments.size()) + 1;
  offtaskEstimates = prevOfftaskEstimates;
  episodeStart = prevEpisodeStart;
  // A chosen activity stays as it is, so that the class stores what the form shows.
  if (ChosenActivity() == kNoActivity) curActivity = episodeActivity;
  coding.choicesVisible = true;
}

void RunningClass::TakeUp(EpisodeList& episodes, float now) {
  std::vector<SegmentData>& segments = episodes.back().segments;
  if (static_cast<int>(segments.size()) == curSegment) {
    segments.pop_back();
    StartSchedule(now);
  }
  const float cadence = ActivityOf(ChosenActivity()).cadence;
  if (cadence == 0 || !schedule.Running()) return;
  const float seconds = SecondsSince(segmentStart, now);
  if (schedule.IsBehind(seconds, cadence)) schedule.Restart(seconds, cadence);
}

// Times and estimates.

float RunningClass::CorrectTime(float now, float seconds) {
  const float moved = SecondsSince(segmentStart, now) - seconds;
  episodeStart += moved;
  segmentStart += moved;
  return moved;
}

void RunningClass::StartSchedule(float now) {
  const float cadence = ActivityOf(ChosenActivity()).cadence;
  if (cadence > 0) schedule.Start(SecondsSince(segmentStart, now), cadence);
}

void RunningClass::TickSchedule(float now) {
  const float cadence = ActivityOf(curActivity).cadence;
  if (cadence > 0) schedule.Tick(now, segmentStart, cadence);
}

void RunningClass::RecordEstimate(float proportion, EstimatesByCategory& estimates) {
  const int activity = ChosenActivity();
  if (activity == kQuestionAnswer) offtaskEstimates.push_back(proportion);
  if (const auto position = OfftaskPosition(activity)) estimates[*position].push_back(proportion);
}

void RunningClass::ShiftTimes(float seconds) {
  episodeStart += seconds;
  segmentStart += seconds;
  prevEpisodeStart += seconds;
  schedule.ShiftTimes(seconds);
}

}  // namespace orvex
