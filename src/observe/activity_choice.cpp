#include <string>

#include "desk/prompter.h"
#include "desk/screens.h"
#include "observe/live_observation.h"
#include "store/session_log.h"

namespace orvex {
void LiveObservation::ChooseActivity(int activity) {
  if (!IsActivity(activity) || activity == SelectedActivity()) return;
  if (SetActivity(activity)) ApplyActivity(activity);
}

bool LiveObservation::SetActivity(int activity) {
  const bool firstChoice = run_.curActivity == kNoActivity || run_.freshSegment;
  if (!firstChoice && !services_.prompter.AskOkCancel("Revise activity # ?")) {
    FocusCurActivity();
    return false;
  }
  run_.freshSegment = false;
  run_.prevActivity = run_.curActivity;
  run_.curActivity = activity;
  if (firstChoice) {
    services_.log.LogEpisodeStart(run_.curEpisode, run_.curSegment);
  } else {
    run_.schedule.Stop();
    run_.coding.ResetForNewActivity();
    services_.log.LogRevisedActivity(run_.curEpisode, run_.curSegment, run_.curActivity);
  }
  return true;
}

void LiveObservation::ApplyActivity(int activity) {
  FocusCurActivity();
  run_.choice = ActivityChoice::made;
  StartSchedule();
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
  run_.choice = ActivityChoice::abandoned;
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
