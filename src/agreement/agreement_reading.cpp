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
        [this](std::size_t compared, std::size_t found) {
          found_ = found;
          compared_ = compared;
        });
  } catch (...) {
    error_ = std::current_exception();
  }
  done_ = true;
}

std::string AgreementReading::ProgressText() const {
  const std::string found = std::to_string(found_);
  const std::string compared = std::to_string(compared_);
  return Say(stopped_ ? Text::comparingStopped : Text::comparingProgress, {compared, found});
}

std::optional<AgreementStudy> AgreementReading::TakeIfReady() {
  if (!done_) return std::nullopt;
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
  return std::exchange(study_, std::nullopt);
}

}  // namespace orvex
