#include <string>

#include "desk/prompter.h"
#include "model/clock.h"
#include "model/time_of_day.h"
#include "observe/live_observation.h"
#include "observe/offtask_dialog.h"
#include "store/session_log.h"

namespace orvex {
void LiveObservation::StartSchedule() {
  const float cadence = ActivityOf(SelectedActivity()).cadence;
  if (cadence > 0) run_.schedule.Start(SecondsSince(run_.segmentStart, Now()), cadence);
}

/// The estimates that fell due while nobody was there can no longer be made.
void LiveObservation::CatchUpSchedule() {
  const float cadence = ActivityOf(SelectedActivity()).cadence;
  if (cadence == 0 || !run_.schedule.Running()) return;
  const float seconds = SecondsSince(run_.segmentStart, Now());
  if (run_.schedule.IsBehind(seconds, cadence)) run_.schedule.Restart(seconds, cadence);
}

void LiveObservation::OfftaskTick() {
  run_.schedule.Tick(services_.clock, services_.prompter, run_.segmentStart,
                     run_.curActivity == kQuestionAnswer);
}

void LiveObservation::TakeEstimate() {
  if (run_.schedule.OfftaskPending() < 1) return;
  AskEstimate();
  run_.schedule.TakeEstimate();
}

void LiveObservation::AskEstimate() {
  const std::string& students = header_.Text(HeaderBox::numStudents);
  if (!run_.estimateDialog) {
    run_.estimateDialog = {.prompt = {.students = students}, .studentsBefore = students};
  }
  if (!services_.prompter.AskOfftask(run_.estimateDialog->prompt)) return;
  const EstimateDialog accepted = *std::exchange(run_.estimateDialog, std::nullopt);
  RecordEstimate(accepted.prompt, accepted.studentsBefore);
}

void LiveObservation::RecordEstimate(const OfftaskPrompt& estimate,
                                     const std::string& studentsBefore) {
  const float proportion = ProportionOf(estimate);
  const int activity = SelectedActivity();
  if (activity == kQuestionAnswer) run_.offtaskEstimates.push_back(proportion);
  if (const auto position = OfftaskPosition(activity)) {
    services_.program.OfftaskByCat[*position].push_back(proportion);
  }
  services_.log.LogBlankLine();
  services_.log.LogOfftask(proportion, estimate.offtask, estimate.students, run_.curActivity);
  services_.log.LogBlankLine();
  if (estimate.students != studentsBefore) header_.CorrectStudents(estimate.students);
}

}  // namespace orvex
