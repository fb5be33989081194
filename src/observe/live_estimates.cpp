#include <cstddef>
#include <optional>
#include <string>

#include "model/clock.h"
#include "model/prompter.h"
#include "model/time_of_day.h"
#include "observe/live_observation.h"
#include "observe/offtask_dialog.h"
#include "store/session_log.h"

namespace orvex {
namespace {

/// Whether an activity whose estimates are of `kind` is asked for them while it goes on, and how
/// often.
std::optional<float> CadenceOf(int kind) {
  switch (kind) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 7:
      return OfftaskSchedule::kUsualCadence;
    case LiveObservation::kQuestionAnswerEstimates:
      return OfftaskSchedule::kQuestionAnswerCadence;
    default:
      return std::nullopt;
  }
}

}  // namespace

void LiveObservation::StartSchedule() {
  if (const auto cadence = CadenceOf(estimateKind_)) {
    schedule_.Start(SecondsSince(segmentStart_, Now()), *cadence);
  }
}

void LiveObservation::OfftaskTick() {
  schedule_.Tick(services_.clock, services_.prompter, segmentStart_,
                 curActivity_ == std::to_string(kQuestionAnswer));
}

void LiveObservation::TakeEstimate() {
  if (schedule_.OfftaskPending() < 1) return;
  AskEstimate();
  schedule_.TakeEstimate();
}

void LiveObservation::AskEstimate() {
  const std::string& students = header_.Text(HeaderBox::numStudents);
  if (!estimateDialog_) {
    estimateDialog_ = {.prompt = {.students = students}, .studentsBefore = students};
  }
  if (!services_.prompter.AskOfftask(estimateDialog_->prompt)) return;
  const EstimateDialog accepted = *std::exchange(estimateDialog_, std::nullopt);
  RecordEstimate(accepted.prompt, accepted.studentsBefore);
}

void LiveObservation::RecordEstimate(const OfftaskPrompt& estimate,
                                     const std::string& studentsBefore) {
  const float proportion = ProportionOf(estimate);
  if (estimateKind_ == kQuestionAnswerEstimates) offtaskEstimates_.push_back(proportion);
  for (std::size_t i = 0; i < kOfftaskCategories.size(); ++i) {
    if (kOfftaskCategories[i] == estimateKind_) {
      services_.program.OfftaskByCat[i].push_back(proportion);
    }
  }
  services_.log.LogBlankLine();
  services_.log.LogOfftask(proportion, estimate.offtask, estimate.students, curActivity_,
                           CurActivityCaption());
  services_.log.LogBlankLine();
  if (estimate.students != studentsBefore) header_.CorrectStudents(estimate.students);
}

}  // namespace orvex
