#pragma once

#include <atomic>
#include <exception>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "agreement/agreement_study.h"

namespace orvex {

/// Compares the pairs among episode files in the background.
class AgreementReading {
 public:
  AgreementReading(std::vector<std::filesystem::path> files, const ComparisonOptions& options);
  /// Ends the work.
  ~AgreementReading();
  AgreementReading(const AgreementReading&) = delete;
  AgreementReading& operator=(const AgreementReading&) = delete;

  /// Ends the work early. What has been compared until then can still be taken.
  void Stop() { stopped_ = true; }
  bool IsStopped() const { return stopped_; }
  StudyProgress Progress() const;
  /// "12 of 28 observations read", "3 of 14 pairs compared", or after how many it was stopped.
  std::string ProgressText() const;

  /// The study, once, when the work is done; nothing before and after. Throws what the work threw.
  std::optional<AgreementStudy> TakeIfReady();

 private:
  void Work();

  const std::vector<std::filesystem::path> files_;
  const ComparisonOptions options_;
  // Set by the thread before `done_`, and read only after it.
  std::optional<AgreementStudy> study_;
  std::exception_ptr error_;
  std::atomic<bool> done_ = false;
  std::atomic<bool> stopped_ = false;
  mutable std::mutex mutex_;  ///< guards `progress_`
  StudyProgress progress_;
  std::thread thread_;  // last: it uses all other members
};

}  // namespace orvex
