#include "agreement/agreement_reading.h"

#include <utility>

#include "model/texts.h"

namespace orvex {

AgreementReading::AgreementReading(std::vector<std::filesystem::path> files,
                                   const ComparisonOptions& options)
    : files_(std::move(files)), options_(options), thread_([this] { Work(); }) {}

AgreementReading::~AgreementReading() {
  Stop();
  thread_.join();
}

void AgreementReading::Work() {
  try {
    study_ = CompareAll(
        files_, options_, [this] { return stopped_.load(); },
        [this](const StudyProgress& now) {
          const std::lock_guard lock(mutex_);
          progress_ = now;
        });
  } catch (...) {
    error_ = std::current_exception();
  }
  done_ = true;
}

StudyProgress AgreementReading::Progress() const {
  const std::lock_guard lock(mutex_);
  return progress_;
}

std::string AgreementReading::ProgressText() const {
  const StudyProgress now = Progress();
  if (now.step == StudyProgress::Step::finding) {
    return stopped_ ? Say(Text::readingStopped) : Say(Text::readingProgress, {now.done, now.of});
  }
  return Say(stopped_ ? Text::comparingStopped : Text::comparingProgress, {now.done, now.of});
}

std::optional<AgreementStudy> AgreementReading::TakeIfReady() {
  if (!done_) return std::nullopt;
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
  return std::exchange(study_, std::nullopt);
}

}  // namespace orvex
