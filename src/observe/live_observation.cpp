#include "observe/live_observation.h"

#include <algorithm>
#include <utility>

#include "desk/elapsed_time.h"
#include "desk/prompter.h"
#include "desk/proof.h"
#include "desk/screens.h"
#include "model/clock.h"
#include "model/limits.h"
#include "model/texts.h"
#include "observe/end_of_class.h"
#include "store/numbers.h"
#include "store/paths.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

using Kind = LiveObservation::Control::Kind;

std::string CaptionAt(const Clock& clock) {
  return Say(Text::liveCaption, {clock.TimeText()});
}

/// The question entry takes the live form's place.
void ShowQuestionEntry(Screens& screens) {
  screens.Show(Screen::questionEntry);
  screens.Hide(Screen::liveObservation);
}

}  // namespace

LiveObservation::LiveObservation(const Services& services)
    : services_(services),
      episodes_(services.program.Episodes),
      run_(RunningClass::Begun(Now())),
      header_(services, run_.typedNumbers),
      estimates_(services, run_, header_),
      questions_(services, run_),
      caption_(CaptionAt(services.clock)) {
  episodes_.assign(1, Episode{});
  services.program.OfftaskByCat = {};
  FocusDescription();
}

LiveObservation::LiveObservation(const Services& services, RunningClass running)
    : services_(services),
      episodes_(services.program.Episodes),
      run_(std::move(running)),
      header_(services, run_.typedNumbers),
      estimates_(services, run_, header_),
      questions_(services, run_),
      caption_(CaptionAt(services.clock)) {
  run_.awaitsSurvey = ClassStored();
  if (run_.awaitsSurvey) {
    focus_.Set({.kind = Kind::survey}, Caret::stay);
    return;
  }
  run_.TakeUp(episodes_, Now());
  FocusCurActivity();
  EnterDescription();
  // A half-typed number has not been accepted yet, so let the observer finish it.
  if (const auto box = header_.Disagreeing()) {
    focus_.Set({.kind = Kind::header, .box = *box}, Caret::selectAll);
  }
}

void LiveObservation::ShowForms() {
  services_.screens.Show(Screen::liveObservation);
  if (run_.awaitsSurvey || run_.ChosenActivity() != kQuestionAnswer) return;
  ShowQuestionEntry(services_.screens);
}

void LiveObservation::Keep() {
  const bool worthKeeping =
      !run_.nothingEntered || !run_.fieldNotes.empty() || run_.draftNotes || keeper_.HasBegun();
  if (worthKeeping) keeper_.Keep(services_, run_);
}

float LiveObservation::Now() const {
  return services_.clock.SecondsSinceMidnight();
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

void LiveObservation::TypeDescription(const std::string& text) {
  episodes_.back().Descript = OneLine(text);
}

void LiveObservation::KeyInDescription() {
  run_.coding.choicesVisible = true;
  run_.nothingEntered = false;
}

void LiveObservation::LeaveDescription() {
  const std::string& description = CurrentEpisode().Descript;
  if (description == savedDescription_) return;
  services_.log.LogRevisedDescription(description);
  savedDescription_ = description;
}

// Activities.

void LiveObservation::FocusCurActivity() {
  if (run_.curActivity == kNoActivity) return FocusDescription();
  focus_.Set({.kind = Kind::activity, .activity = run_.curActivity});
}

void LiveObservation::TypeAbout(const std::string& text) {
  run_.coding.about = OneLine(text);
}

void LiveObservation::ChooseActivity(int activity) {
  if (!IsActivity(activity) || activity == run_.ChosenActivity()) return;
  const bool revises = !run_.AwaitsActivity();
  if (revises && !services_.prompter.AskOkCancel(Say(Text::askReviseActivity)))
    return FocusCurActivity();
  run_.ChooseActivity(activity, episodes_, Now());
  if (revises) {
    services_.log.LogRevisedActivity(run_.curEpisode, run_.curSegment, run_.curActivity);
  } else {
    services_.log.LogEpisodeStart(run_.curEpisode, run_.curSegment);
  }
  FocusCurActivity();
  if (activity != kQuestionAnswer) return;
  ShowQuestionEntry(services_.screens);
}

void LiveObservation::AbandonQuestionAnswer() {
  run_.AbandonQuestionAnswer(episodes_);
  services_.log.LogRevisedActivity(run_.curEpisode, run_.curSegment, run_.curActivity);
  if (run_.curSegment == 1) {
    FocusDescription();
  } else {
    FocusCurActivity();
  }
}

// Segments.

void LiveObservation::AskToStartSegment() {
  if (!Allowed().segment || !services_.prompter.AskYesNo(Say(Text::askNewSegment))) return;
  run_.skipEstimate = false;
  StartSegment();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::StartQuestionAnswer() {
  if (!Allowed().segment) return;
  run_.skipEstimate = true;
  StartSegment();
  ChooseActivity(kQuestionAnswer);
}

void LiveObservation::StartSegment() {
  AskFinalEstimate();
  const float now = Now();
  LogSegmentEnd(now);
  run_.StartSegment(episodes_, now);
  // The button just used is now gone, and the observer's next step is to choose the activity.
  FocusCurActivity();
}

void LiveObservation::AskFinalEstimate() {
  if (run_.EndsWithEstimate()) estimates_.Ask();
}

void LiveObservation::LogSegmentEnd(float now) {
  services_.log.LogSegmentEnd(run_.curEpisode, run_.curSegment, run_.curActivity,
                              ElapsedSeconds(run_.segmentStart, now, services_.prompter),
                              run_.coding.about);
}

// Episodes.

void LiveObservation::AskToStartEpisode() {
  if (Allowed().episode && services_.prompter.AskYesNo(Say(Text::askNewEpisode))) StartEpisode();
}

void LiveObservation::StartEpisode(std::optional<bool> wasReview) {
  if (wasReview) episodes_.back().bReview = *wasReview ? "Y" : "N";
  AskFinalEstimate();
  const float now = Now();
  LogEpisodeEnd(now);
  run_.StartEpisode(episodes_, now);
  FocusDescription();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::LogEpisodeEnd(float now) {
  LogSegmentEnd(now);
  services_.log.LogEpisode(run_.curEpisode, CurrentEpisode().Descript,
                           ElapsedSeconds(run_.episodeStart, now, services_.prompter));
  if (CurrentEpisode().questions.empty()) return;
  services_.log.LogBlankLine();
  LogOfftaskMean();
}

void LiveObservation::LogOfftaskMean() {
  services_.log.LogEpisodeOfftask(run_.curEpisode, AverageOf(run_.offtaskEstimates),
                                  static_cast<int>(run_.offtaskEstimates.size()));
}

void LiveObservation::Convert() {
  switch (Allowed().conversion) {
    case Conversion::none:
      break;
    case Conversion::toEpisode:
      ConvertToEpisode();
      break;
    case Conversion::toSegment:
      ConvertToSegment();
      break;
  }
}

void LiveObservation::ConvertToEpisode() {
  const Episode& episode = CurrentEpisode();
  services_.log.LogSegmentToEpisode();
  services_.log.LogEpisode(run_.curEpisode, episode.Descript, episode.duration());
  if (!episode.questions.empty()) {
    services_.log.LogBlankLine();
    services_.log.LogActiveEstimates(run_.curEpisode);
    LogOfftaskMean();
  }
  run_.ConvertToEpisode(episodes_);
  FocusDescription();
  services_.screens.Show(Screen::liveObservation);
}

void LiveObservation::ConvertToSegment() {
  run_.ConvertToSegment(episodes_);
  FocusDescription();
  services_.log.LogEpisodeToSegment();
}

void LiveObservation::CorrectTime() {
  const std::int32_t elapsed = ElapsedSeconds(run_.segmentStart, Now(), services_.prompter);
  const int maximum = std::min(2 * elapsed, kMostNumber);
  const int preset = std::min(elapsed, maximum);
  const auto seconds = services_.prompter.AskSeconds({.maximum = maximum, .seconds = preset});
  if (!seconds) return;
  // The segment went on while the dialog was open, so an unchanged number must not move anything.
  const float moved =
      *seconds == preset ? 0.0F : run_.CorrectTime(Now(), static_cast<float>(*seconds));
  services_.log.LogAdjustTime(run_.curEpisode, run_.curSegment, moved);
}

// Other forms and dialogs.

void LiveObservation::OpenAbout() {
  services_.screens.Show(Screen::aboutText);
}

void LiveObservation::ReviewQuestions() {
  OpenQuestionEditor(false);
}

void LiveObservation::ProofQuestions() {
  if (FindNextGap(services_.program, services_.prompter)) OpenQuestionEditor(true);
}

void LiveObservation::OpenQuestionEditor(bool proofMode) {
  services_.screens.ShowQuestionEditor(EditorCaller::liveObservation, proofMode);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::OpenSurvey() {
  if (!Allowed().survey) return;
  services_.screens.ShowSurvey(SurveyCaller::liveObservation);
  services_.screens.Hide(Screen::liveObservation);
}

void LiveObservation::EditFieldNotes() {
  const auto notes = services_.prompter.AskNotes(
      {.notes = run_.fieldNotes,
       .draft = run_.draftNotes,
       .typed = [this](const std::string& text) { run_.draftNotes = text; }});
  if (notes) {
    services_.log.LogFieldNote(run_.curEpisode, run_.curSegment, *notes);
    run_.fieldNotes = *notes;
  }
  // If the program ends while the dialog is open, the typed text stays a draft.
  if (notes || run_.draftNotes == run_.fieldNotes) run_.draftNotes.reset();
}

// The end of the class.

void LiveObservation::EndClass() {
  if (run_.nothingEntered) {
    if (LeaveWithNotes(services_, run_)) services_.screens.EndProgram();
    return;
  }
  if (!run_.awaitsSurvey) {
    if (!MayEnd() || !StoreOrGoOn()) return;
    // One Enter too many must not end the program before the survey is filled in.
    run_.awaitsSurvey = services_.prompter.Ask({.text = Say(Text::askMatrices),
                                                .buttons = Buttons::yesNo,
                                                .defaultAnswer = Answer::no}) != Answer::yes;
    if (run_.awaitsSurvey) return focus_.Set({.kind = Kind::survey}, Caret::stay);
  }
  LeaveWithSurvey(services_, run_);
}

void LiveObservation::ShowPicture() {
  if (!run_.awaitsSurvey) return;
  const Program& program = services_.program;
  const std::filesystem::path file = run_.storedElsewhere.empty()
                                         ? EpsPath(program.DataPath, program.identity)
                                         : run_.storedElsewhere;
  if (!services_.screens.ShowReport(file, Screen::classPicture)) return;
  services_.screens.Hide(Screen::liveObservation);
}

bool LiveObservation::MayEnd() {
  return run_.curActivity != kNoActivity && HeaderNamesFiles() &&
         services_.prompter.Ask({.text = Say(Text::askEndOfClass),
                                 .buttons = Buttons::yesNo,
                                 .defaultAnswer = Answer::no}) == Answer::yes;
}

/// True when the numbers that name the files are valid and agree with the log. Otherwise moves the
/// focus to the box that is wrong.
bool LiveObservation::HeaderNamesFiles() {
  for (const HeaderBox box : kNumberBoxes) {
    if (IdentityNumber(header_.Text(box))) continue;
    services_.prompter.Tell(Say(Text::numbersNeeded));
    focus_.Set({.kind = Kind::header, .box = box}, Caret::selectAll);
    return false;
  }
  const auto box = header_.Disagreeing();
  return !box || LeaveHeader(*box);
}

/// Ends the last episode and stores the class. If that fails, the class goes on; returns false.
bool LiveObservation::StoreOrGoOn() {
  AskFinalEstimate();
  const float now = Now();
  LogEpisodeEnd(now);
  const BeforeEnd before = run_.EndEpisode(episodes_, now);
  if (!StoreEpisodes(services_, run_)) {
    run_.GoOn(episodes_, before);
    services_.log.LogClassGoesOn();
    return false;
  }
  CompleteLog(services_);
  services_.program.ClassStored = true;
  services_.screens.Close(Screen::aboutText);
  return true;
}

bool LiveObservation::RequestClose() {
  if (run_.nothingEntered) return LeaveWithNotes(services_, run_);
  // EndClass stores what is still missing, and the survey too, before it closes the window itself.
  if (Allowed().end) EndClass();
  return false;
}

}  // namespace orvex
