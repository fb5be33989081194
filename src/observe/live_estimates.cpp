#include "observe/live_estimates.h"

#include <string>
#include <utility>

#include "desk/prompter.h"
#include "model/clock.h"
#include "model/program.h"
#include "observe/observation_header.h"
#include "observe/offtask_dialog.h"
#include "store/session_log.h"

namespace orvex {

void LiveEstimates::Tick() {
  running_.TickSchedule(services_.clock.SecondsSinceMidnight());
}

void LiveEstimates::TakePending() {
  if (running_.schedule.OfftaskPending() < 1) return;
  Ask();
  running_.schedule.TakeEstimate();
}

void LiveEstimates::Ask() {
  const std::string& students = header_.Text(HeaderBox::numStudents);
  if (!running_.estimateDialog) {
    running_.estimateDialog = {.prompt = {.students = students}, .studentsBefore = students};
  }
  if (!services_.prompter.AskOfftask(running_.estimateDialog->prompt)) return;
  Record(*std::exchange(running_.estimateDialog, std::nullopt));
}

void LiveEstimates::Record(const EstimateDialog& accepted) {
  const OfftaskPrompt& estimate = accepted.prompt;
  const float proportion = ProportionOf(estimate);
  running_.RecordEstimate(proportion, services_.program.OfftaskByCat);
  services_.log.LogBlankLine();
  services_.log.LogOfftask(proportion, estimate.offtask, estimate.students, running_.curActivity);
  services_.log.LogBlankLine();
  if (estimate.students != accepted.studentsBefore) header_.CorrectStudents(estimate.students);
}

}  // namespace orvex
