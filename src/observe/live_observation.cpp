#include "observe/live_observation.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "model/clock.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "model/time_of_day.h"
#include "model/validation.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

using Kind = LiveObservation::Control::Kind;

/// The activity number of `CurActivity` and its like; 0 for "".
int ActivityNumber(const std::string& text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

LiveObservation::LiveObservation(const Services& services)
    : services_(services),
      episodes_(services.program.Episodes),
      header_(services),
      caption_("Class Activity Menu - File opened at " + services.clock.TimeText()),
      episodeStart_(services.clock.SecondsSinceMidnight()),
      segmentStart_(episodeStart_) {
  episodes_.assign(1, Episode{});
  for (auto& estimates : services.program.OfftaskByCat) estimates.clear();
  FocusDescription();
}

float LiveObservation::Now() const {
  return services_.clock.SecondsSinceMidnight();
}

Episode& LiveObservation::CurrentEpisode() {
  return episodes_[static_cast<std::size_t>(curEpisode_ - 1)];
}

const Episode& LiveObservation::CurrentEpisode() const {
  return episodes_[static_cast<std::size_t>(curEpisode_ - 1)];
}

int LiveObservation::SelectedActivity() const {
  return estimateKind_ >= 1 ? ActivityNumber(curActivity_) : 0;
}

// What the form shows.

bool LiveObservation::CanDivide() const {
  return !AwaitsSurvey() && !Description().empty() && estimateKind_ >= 1 && estimateKind_ <= 8;
}

bool LiveObservation::ProofVisible() const {
  return CanDivide() && AnyQuestions(episodes_);
}

bool LiveObservation::CanEndClass() const {
  return AwaitsSurvey() || CanDivide() || nothingEntered_;
}

bool LiveObservation::ConversionVisible() const {
  if (AwaitsSurvey()) return false;
  return curSegment_ >= 2 ? RoomForEpisode() : curEpisode_ >= 2;
}

std::string LiveObservation::ConversionCaption() const {
  if (conversionBlank_) return "";
  return curSegment_ >= 2 ? "Sg. &to Ep." : "Ep. &to Sg.";
}

// The header.

bool LiveObservation::LeaveHeader(HeaderBox box) {
  if (header_.Leave(box)) return true;
  focus_.Set({.kind = Kind::header, .box = box}, Caret::selectAll);
  return false;
}

void LiveObservation::HeaderEnterOrDown(HeaderBox box) {
  focus_.Set({.kind = Kind::header, .box = ObservationHeader::Next(box)});
}

void LiveObservation::HeaderUp(HeaderBox box) {
  focus_.Set({.kind = Kind::header, .box = ObservationHeader::Previous(box)});
}

// The description.

void LiveObservation::FocusDescription() {
  focus_.Set({.kind = Kind::description});
  EnterDescription();
}

void LiveObservation::FocusCurActivity() {
  if (curActivity_.empty()) return FocusDescription();
  focus_.Set({.kind = Kind::activity, .activity = ActivityNumber(curActivity_)});
}

void LiveObservation::TypeDescription(const std::string& text) {
  CurrentEpisode().Descript = OneLine(text);
}

void LiveObservation::KeyInDescription() {
  coding_.ShowActivityChoices(true);
  nothingEntered_ = false;
}

void LiveObservation::LeaveDescription() {
  if (Description() == savedDescription_) return;
  services_.log.LogRevisedDescription(Description());
  savedDescription_ = Description();
}

void LiveObservation::TypeAbout(const std::string& text) {
  coding_.about = OneLine(text);
}

// Segments.

void LiveObservation::cmdStartNewSg_Click() {
  if (!CanStartSegment() || !services_.prompter.AskYesNo("Start New Segment?")) return;
  skipEstimate_ = false;
  StartNewSeg();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::cmdStartNewQASg_Click() {
  if (!CanStartSegment()) return;
  skipEstimate_ = true;
  StartNewSeg();
  ChooseActivity(kQuestionAnswer);
}

void LiveObservation::StartNewSeg() {
  EndSeg();
  estimateKind_ = 0;
  freshSegment_ = true;
  coding_.ResetForNewSegment();
  ++curSegment_;
  segmentStart_ = Now();
  // The button just used is gone now; the next thing the observer does is to choose the activity.
  FocusCurActivity();
}

std::string_view LiveObservation::CurActivityCaption() const {
  return ActivityNames[static_cast<std::size_t>(ActivityNumber(curActivity_) - 1)];
}

void LiveObservation::EndSeg() {
  const bool takesEstimates = estimateKind_ >= 1 && estimateKind_ != kNoEstimates;
  if (takesEstimates && !skipEstimate_) AskEstimate();
  const int activity = ActivityNumber(curActivity_);
  const float length = Now() - segmentStart_;
  services_.log.LogSegmentEnd(curEpisode_, curSegment_, CurActivityCaption(),
                              SecondsOfDay(length, services_.prompter), coding_.about);
  schedule_.Stop();
  SegmentData segment;
  segment.SetData(static_cast<std::int16_t>(activity), length, coding_.Codes(activity));
  CurrentEpisode().segments.push_back(std::move(segment));
}

// Episodes.

void LiveObservation::cmdStartNewEp_Click() {
  if (CanStartEpisode() && services_.prompter.AskYesNo("Start New Episode?")) StartNewEpi();
}

void LiveObservation::EndEpisode() {
  EndSeg();
  episodeActivity_ = curActivity_;
  services_.log.LogEpisode(curEpisode_, Description(),
                           SecondsOfDay(Now() - episodeStart_, services_.prompter));
  if (CurQuestions().empty()) return;
  StoreOfftaskMean();
  services_.log.LogBlankLine();
  LogOfftaskMean();
}

void LiveObservation::StoreOfftaskMean() {
  CurrentEpisode().offtask = AverageOf(offtaskEstimates_);
}

void LiveObservation::LogOfftaskMean() {
  services_.log.LogEpisodeOfftask(curEpisode_, CurrentEpisode().offtask,
                                  static_cast<int>(offtaskEstimates_.size()));
}

void LiveObservation::AppendEpisode() {
  prevOfftaskEstimates_ = std::exchange(offtaskEstimates_, {});
  episodes_.emplace_back();
  ++curEpisode_;
  curSegment_ = 1;
  prevEpisodeStart_ = episodeStart_;
}

void LiveObservation::StartNewEpi() {
  EndEpisode();
  AppendEpisode();
  episodeStart_ = Now();
  segmentStart_ = episodeStart_;
  coding_.ShowActivityChoices(false);
  coding_.ResetForNewSegment();
  estimateKind_ = 0;
  curActivity_.clear();
  freshSegment_ = true;
  FocusDescription();
  services_.screens.Show(Screen::liveObservation);
}

// Between segment and episode.

void LiveObservation::cmdBailout_Click() {
  // Blank until the next refresh, so that a second click does not undo the first.
  if (std::exchange(conversionBlank_, true) || !ConversionVisible()) return;
  if (curSegment_ >= 2) {
    StartNewEpi2();
  } else {
    RevertNewEpisode();
  }
}

void LiveObservation::CloseEpisodeForSegment() {
  episodeActivity_ = curActivity_;
  services_.log.LogSegmentToEpisode();
  services_.log.LogEpisode(curEpisode_, Description(), CurrentEpisode().duration());
  if (CurQuestions().empty()) return;
  StoreOfftaskMean();
  services_.log.LogBlankLine();
  services_.log.LogActiveEstimates(curEpisode_);
  LogOfftaskMean();
}

void LiveObservation::StartNewEpi2() {
  CloseEpisodeForSegment();
  AppendEpisode();
  episodeStart_ = segmentStart_;
  if (SelectedActivity() == 0) coding_.ShowActivityChoices(false);
  FocusDescription();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::RevertNewEpisode() {
  episodes_.pop_back();
  --curEpisode_;
  curSegment_ = static_cast<int>(CurrentEpisode().segments.size()) + 1;
  offtaskEstimates_ = prevOfftaskEstimates_;
  episodeStart_ = prevEpisodeStart_;
  // The running segment keeps the activity it has; what is on the form is what is stored.
  if (SelectedActivity() == 0) curActivity_ = episodeActivity_;
  coding_.ShowActivityChoices(true);
  FocusDescription();
  services_.log.LogEpisodeToSegment();
}

// The other forms.

void LiveObservation::Command9_Click() {
  services_.screens.Show(Screen::aboutText);
}

void LiveObservation::cmdReview_Click() {
  services_.screens.ShowQuestionEditor(EditorCaller::liveObservation, false);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::cmdProof_Click() {
  Program& program = services_.program;
  if (FindUncodedQuestion(episodes_, program.ProofEp, program.ProofQ, services_.prompter) == -1) {
    return;
  }
  services_.screens.ShowQuestionEditor(EditorCaller::liveObservation, true);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::Command7_Click() {
  if (!CanOpenSurvey()) return;
  services_.screens.ShowSurvey(SurveyCaller::liveObservation);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::cmdFieldNote_Click() {
  const auto notes = services_.prompter.AskNotes(fieldNotes_);
  if (!notes) return;
  services_.log.LogFieldNote(curEpisode_, curSegment_, *notes);
  fieldNotes_ = *notes;
}

void LiveObservation::Command1_Click() {
  const std::int32_t elapsed = SecondsOfDay(Now() - segmentStart_, services_.prompter);
  const int maximum = std::min(2 * elapsed, kMost);
  const auto seconds =
      services_.prompter.AskSeconds({.maximum = maximum, .seconds = std::min(elapsed, maximum)});
  if (!seconds) return;
  const float moved = SecondsSince(segmentStart_, Now()) - static_cast<float>(*seconds);
  episodeStart_ += moved;
  segmentStart_ += moved;
  services_.log.LogAdjustTime(curEpisode_, curSegment_, moved);
}

}  // namespace orvex
