#include "observe/live_observation.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "desk/elapsed_time.h"
#include "desk/prompter.h"
#include "desk/proof.h"
#include "desk/screens.h"
#include "model/clock.h"
#include "model/time_of_day.h"
#include "model/validation.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

using Kind = LiveObservation::Control::Kind;

}  // namespace

LiveObservation::LiveObservation(const Services& services)
    : services_(services),
      episodes_(services.program.Episodes),
      run_(RunningClass::Begun()),
      header_(services, run_.typedNumbers),
      caption_("Class Activity Menu - File opened at " + services.clock.TimeText()) {
  run_.episodeStart = run_.segmentStart = Now();
  episodes_.assign(1, Episode{});
  for (auto& estimates : services.program.OfftaskByCat) estimates.clear();
  FocusDescription();
}

LiveObservation::LiveObservation(const Services& services, RunningClass running)
    : services_(services),
      episodes_(services.program.Episodes),
      run_(std::move(running)),
      header_(services, run_.typedNumbers),
      caption_("Class Activity Menu - File opened at " + services.clock.TimeText()) {
  run_.awaitsSurvey = ClassStored();
  if (AwaitsSurvey()) {
    focus_.Set({.kind = Kind::survey}, Caret::stay);
    return;
  }
  // It was about to be stored: the segment runs on as if the end had not been asked for.
  if (static_cast<int>(CurrentEpisode().segments.size()) == run_.curSegment) {
    CurrentEpisode().segments.pop_back();
    StartSchedule();
  }
  CatchUpSchedule();
  FocusCurActivity();
  EnterDescription();
  // A number that was half typed is not the class's yet: it waits for its observer.
  if (const auto box = header_.Disagreeing()) {
    focus_.Set({.kind = Kind::header, .box = *box}, Caret::selectAll);
  }
}

void LiveObservation::ShowForms() {
  services_.screens.Show(Screen::liveObservation);
  if (AwaitsSurvey() || SelectedActivity() != kQuestionAnswer) return;
  services_.screens.Show(Screen::questionEntry);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::Keep() {
  const bool worthKeeping =
      !NothingEntered() || !FieldNotes().empty() || AreNotesOpen() || keeper_.HasBegun();
  if (worthKeeping) keeper_.Keep(services_, run_);
}

float LiveObservation::Now() const {
  return services_.clock.SecondsSinceMidnight();
}

Episode& LiveObservation::CurrentEpisode() {
  return episodes_[static_cast<std::size_t>(run_.curEpisode - 1)];
}

const Episode& LiveObservation::CurrentEpisode() const {
  return episodes_[static_cast<std::size_t>(run_.curEpisode - 1)];
}

// What the form shows.

bool LiveObservation::CanDivide() const {
  return !AwaitsSurvey() && !Description().empty() && SelectedActivity() != kNoActivity;
}

bool LiveObservation::ProofVisible() const {
  return CanDivide() && AnyQuestions(episodes_);
}

bool LiveObservation::CanEndClass() const {
  return AwaitsSurvey() || CanDivide() || run_.nothingEntered;
}

bool LiveObservation::ConversionVisible() const {
  if (AwaitsSurvey()) return false;
  return run_.curSegment >= 2 ? RoomForEpisode() : run_.curEpisode >= 2;
}

std::string LiveObservation::ConversionCaption() const {
  if (conversionBlank_) return "";
  return run_.curSegment >= 2 ? "Sg. &to Ep." : "Ep. &to Sg.";
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
  if (run_.curActivity == kNoActivity) return FocusDescription();
  focus_.Set({.kind = Kind::activity, .activity = run_.curActivity});
}

void LiveObservation::TypeDescription(const std::string& text) {
  CurrentEpisode().Descript = OneLine(text);
}

void LiveObservation::KeyInDescription() {
  run_.coding.choicesVisible = true;
  run_.nothingEntered = false;
}

void LiveObservation::LeaveDescription() {
  if (Description() == savedDescription_) return;
  services_.log.LogRevisedDescription(Description());
  savedDescription_ = Description();
}

void LiveObservation::TypeAbout(const std::string& text) {
  run_.coding.about = OneLine(text);
}

// Segments.

void LiveObservation::cmdStartNewSg_Click() {
  if (!CanStartSegment() || !services_.prompter.AskYesNo("Start New Segment?")) return;
  run_.skipEstimate = false;
  StartNewSeg();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::cmdStartNewQASg_Click() {
  if (!CanStartSegment()) return;
  run_.skipEstimate = true;
  StartNewSeg();
  ChooseActivity(kQuestionAnswer);
}

void LiveObservation::StartNewSeg() {
  EndSeg();
  run_.choice = ActivityChoice::awaited;
  run_.freshSegment = true;
  run_.coding.ResetForNewSegment();
  ++run_.curSegment;
  run_.segmentStart = Now();
  // The button just used is gone now; the next thing the observer does is to choose the activity.
  FocusCurActivity();
}

void LiveObservation::EndSeg() {
  if (ActivityOf(SelectedActivity()).TakesEstimates() && !run_.skipEstimate) AskEstimate();
  const float now = Now();
  services_.log.LogSegmentEnd(run_.curEpisode, run_.curSegment, run_.curActivity,
                              ElapsedSeconds(run_.segmentStart, now, services_.prompter),
                              run_.coding.about);
  run_.schedule.Stop();
  CurrentEpisode().segments.push_back(run_.Segment(now - run_.segmentStart));
}

// Episodes.

void LiveObservation::cmdStartNewEp_Click() {
  if (CanStartEpisode() && services_.prompter.AskYesNo("Start New Episode?")) StartNewEpi();
}

void LiveObservation::EndEpisode() {
  EndSeg();
  run_.episodeActivity = run_.curActivity;
  services_.log.LogEpisode(run_.curEpisode, Description(),
                           ElapsedSeconds(run_.episodeStart, Now(), services_.prompter));
  if (CurQuestions().empty()) return;
  StoreOfftaskMean();
  services_.log.LogBlankLine();
  LogOfftaskMean();
}

void LiveObservation::StoreOfftaskMean() {
  CurrentEpisode().offtask = AverageOf(run_.offtaskEstimates);
}

void LiveObservation::LogOfftaskMean() {
  services_.log.LogEpisodeOfftask(run_.curEpisode, CurrentEpisode().offtask,
                                  static_cast<int>(run_.offtaskEstimates.size()));
}

void LiveObservation::AppendEpisode() {
  run_.prevOfftaskEstimates = std::exchange(run_.offtaskEstimates, {});
  episodes_.emplace_back();
  ++run_.curEpisode;
  run_.curSegment = 1;
  run_.prevEpisodeStart = run_.episodeStart;
}

void LiveObservation::StartNewEpi() {
  EndEpisode();
  AppendEpisode();
  run_.episodeStart = Now();
  run_.segmentStart = run_.episodeStart;
  run_.coding.choicesVisible = false;
  run_.coding.ResetForNewSegment();
  run_.choice = ActivityChoice::awaited;
  run_.curActivity = kNoActivity;
  run_.freshSegment = true;
  FocusDescription();
  services_.screens.Show(Screen::liveObservation);
}

// Between segment and episode.

void LiveObservation::cmdBailout_Click() {
  // Blank until the next refresh, so that a second click does not undo the first.
  if (std::exchange(conversionBlank_, true) || !ConversionVisible()) return;
  if (run_.curSegment >= 2) {
    StartNewEpi2();
  } else {
    RevertNewEpisode();
  }
}

void LiveObservation::CloseEpisodeForSegment() {
  run_.episodeActivity = run_.curActivity;
  services_.log.LogSegmentToEpisode();
  services_.log.LogEpisode(run_.curEpisode, Description(), CurrentEpisode().duration());
  if (CurQuestions().empty()) return;
  StoreOfftaskMean();
  services_.log.LogBlankLine();
  services_.log.LogActiveEstimates(run_.curEpisode);
  LogOfftaskMean();
}

void LiveObservation::StartNewEpi2() {
  CloseEpisodeForSegment();
  AppendEpisode();
  run_.episodeStart = run_.segmentStart;
  if (SelectedActivity() == kNoActivity) run_.coding.choicesVisible = false;
  FocusDescription();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::RevertNewEpisode() {
  episodes_.pop_back();
  run_.history.ForgetEpisode(run_.curEpisode);
  --run_.curEpisode;
  run_.curSegment = static_cast<int>(CurrentEpisode().segments.size()) + 1;
  run_.offtaskEstimates = run_.prevOfftaskEstimates;
  run_.episodeStart = run_.prevEpisodeStart;
  // The running segment keeps the activity it has; what is on the form is what is stored.
  if (SelectedActivity() == kNoActivity) run_.curActivity = run_.episodeActivity;
  run_.coding.choicesVisible = true;
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
  if (!FindNextGap(services_.program, services_.prompter)) return;
  services_.screens.ShowQuestionEditor(EditorCaller::liveObservation, true);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::Command7_Click() {
  if (!CanOpenSurvey()) return;
  services_.screens.ShowSurvey(SurveyCaller::liveObservation);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::cmdFieldNote_Click() {
  const auto notes = services_.prompter.AskNotes(
      {.notes = run_.fieldNotes,
       .draft = run_.draftNotes,
       .typed = [this](const std::string& text) { run_.draftNotes = text; }});
  if (notes) {
    services_.log.LogFieldNote(run_.curEpisode, run_.curSegment, *notes);
    run_.fieldNotes = *notes;
  }
  // When the program ends meanwhile, what was typed stays a draft.
  if (notes || run_.draftNotes == run_.fieldNotes) run_.draftNotes.reset();
}

void LiveObservation::Command1_Click() {
  const std::int32_t elapsed = ElapsedSeconds(run_.segmentStart, Now(), services_.prompter);
  const int maximum = std::min(2 * elapsed, kMostNumber);
  const int preset = std::min(elapsed, maximum);
  const auto seconds = services_.prompter.AskSeconds({.maximum = maximum, .seconds = preset});
  if (!seconds) return;
  // The segment has gone on while the dialog was open: a number that nobody has changed moves
  // nothing.
  const float moved = *seconds == preset
                          ? 0.0F
                          : SecondsSince(run_.segmentStart, Now()) - static_cast<float>(*seconds);
  run_.episodeStart += moved;
  run_.segmentStart += moved;
  services_.log.LogAdjustTime(run_.curEpisode, run_.curSegment, moved);
}

}  // namespace orvex
