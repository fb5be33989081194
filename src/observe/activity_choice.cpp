#include <array>
#include <cstddef>
#include <string>

#include "model/prompter.h"
#include "model/screens.h"
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
  const bool firstChoice = curActivity_.empty() || freshSegment_;
  if (!firstChoice && !services_.prompter.AskOkCancel("Revise activity # ?")) {
    FocusCurActivity();
    return false;
  }
  freshSegment_ = false;
  prevActivity_ = curActivity_;
  curActivity_ = std::to_string(activity);
  if (firstChoice) {
    services_.log.LogEpisodeStart(curEpisode_, curSegment_);
  } else {
    schedule_.Stop();
    coding_.aboutVisible = false;
    coding_.presentationVisible = false;
    coding_.ResetPresentation();
    coding_.ResetSeatworkCoding();
    coding_.ResetGroupTypes();
    services_.log.LogRevisedActivity(curEpisode_, curSegment_, curActivity_);
  }
  return true;
}

void LiveObservation::ApplyActivity(int activity) {
  FocusCurActivity();
  estimateKind_ = kEstimateKinds[static_cast<std::size_t>(activity - 1)];
  StartSchedule();
  if (CarriesAbout(activity)) coding_.aboutVisible = true;
  if (IsPresentation(activity)) coding_.presentationVisible = true;
  if (IsSeatwork(activity)) coding_.EnableSeatworkCoding(true);
  if (IsGroupWork(activity)) coding_.EnableGroupTypes(true);
  if (activity == kQuestionAnswer) {
    services_.screens.Show(Screen::questionEntry);
    services_.screens.Hide(Screen::liveObservation);
  }
}

void LiveObservation::AbandonQuestionAnswer() {
  curActivity_ = prevActivity_;
  freshSegment_ = true;
  estimateKind_ = -1;
  schedule_.Stop();
  if (curSegment_ == 1) TypeDescription("");
  services_.log.LogRevisedActivity(curEpisode_, curSegment_, curActivity_);
  if (curSegment_ == 1) {
    FocusDescription();
  } else {
    FocusCurActivity();
  }
}

}  // namespace orvex
