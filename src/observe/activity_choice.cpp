#include <array>
#include <cstddef>
#include <string>

#include "desk/prompter.h"
#include "desk/screens.h"
#include "observe/live_observation.h"
#include "store/session_log.h"

namespace orvex {
namespace {

/// The kind of off-task estimates that each activity takes, by number.
constexpr std::array<int, kActivityCount> kEstimateKinds = {6, 6, 6, 1, 5, 6, 6, 7, 6,
                                                            6, 6, 6, 6, 2, 3, 4, 8};

}  // namespace

void LiveObservation::ChooseActivity(int activity) {
  if (!IsActivity(activity) || activity == SelectedActivity()) return;
  if (SetActivity(activity)) ApplyActivity(activity);
}

bool LiveObservation::SetActivity(int activity) {
  const bool firstChoice = run_.curActivity.empty() || run_.freshSegment;
  if (!firstChoice && !services_.prompter.AskOkCancel("Revise activity # ?")) {
    FocusCurActivity();
    return false;
  }
  run_.freshSegment = false;
  run_.prevActivity = run_.curActivity;
  run_.curActivity = std::to_string(activity);
  if (firstChoice) {
    services_.log.LogEpisodeStart(run_.curEpisode, run_.curSegment);
  } else {
    run_.schedule.Stop();
    run_.coding.aboutVisible = false;
    run_.coding.presentationVisible = false;
    run_.coding.ResetPresentation();
    run_.coding.ResetSeatworkCoding();
    run_.coding.ResetGroupTypes();
    services_.log.LogRevisedActivity(run_.curEpisode, run_.curSegment, run_.curActivity);
  }
  return true;
}

void LiveObservation::ApplyActivity(int activity) {
  FocusCurActivity();
  run_.estimateKind = kEstimateKinds[static_cast<std::size_t>(activity - 1)];
  StartSchedule();
  if (CarriesAbout(activity)) run_.coding.aboutVisible = true;
  if (IsPresentation(activity)) run_.coding.presentationVisible = true;
  if (IsSeatwork(activity)) run_.coding.EnableSeatworkCoding(true);
  if (IsGroupWork(activity)) run_.coding.EnableGroupTypes(true);
  if (activity == kQuestionAnswer) {
    run_.draft = {};
    run_.history.ForgetDrafts();
    run_.questionsBefore = CurrentEpisode().nQAs();
    services_.screens.Show(Screen::questionEntry);
    services_.screens.Hide(Screen::liveObservation);
  }
}

void LiveObservation::AbandonQuestionAnswer() {
  run_.curActivity = run_.prevActivity;
  run_.freshSegment = true;
  run_.estimateKind = -1;
  run_.schedule.Stop();
  if (run_.curSegment == 1) TypeDescription("");
  services_.log.LogRevisedActivity(run_.curEpisode, run_.curSegment, run_.curActivity);
  if (run_.curSegment == 1) {
    FocusDescription();
  } else {
    FocusCurActivity();
  }
}

}  // namespace orvex
