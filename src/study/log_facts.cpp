#include "study/log_facts.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "store/content_kind.h"
#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
int LogFacts::Estimates() const {
  return std::accumulate(estimates.begin(), estimates.end(), 0);
}

LogFacts FactsOf(const ClassLog& log) {
  LogFacts facts = {
      .initials = log.initials, .date = log.date, .start = log.start, .ended = log.ended};
  for (const LoggedEstimate& estimate : log.estimates) {
    if (const auto position = OfftaskPosition(estimate.activity)) ++facts.estimates[*position];
  }
  return facts;
}

std::optional<ClassLog> ReadClassLog(const std::filesystem::path& path) try {
  std::string bytes = ReadFile(path);
  if (KindOfContent(bytes) != ContentKind::sessionLog) return std::nullopt;
  return ClassLogOf(std::move(bytes));
} catch (const FileError&) {
  return std::nullopt;
}

std::optional<LogFacts> ReadLogFacts(const std::filesystem::path& path) {
  const auto log = ReadClassLog(path);
  return log ? std::optional(FactsOf(*log)) : std::nullopt;
}

std::optional<ClassLog> ReadLogStart(const std::filesystem::path& path) try {
  constexpr std::size_t kEnough = 4096;
  std::string bytes = ReadFileStart(path, kEnough);
  if (KindOfContent(bytes) != ContentKind::sessionLog) return std::nullopt;
  // The end of the third line; what follows may have been cut within a character.
  constexpr std::string_view kLogOn = "\nLOG ON: ";
  const std::size_t logOn = bytes.find(kLogOn);
  if (logOn != std::string::npos) bytes.resize(std::min(bytes.find('\n', logOn + 1), bytes.size()));
  return ClassLogOf(std::move(bytes));
} catch (const FileError&) {
  return std::nullopt;
}

std::string_view TroubleOf(const std::optional<ClassLog>& log) {
  if (!log) return "the session log could not be read, or is none";
  return log->begin ? "" : "the session log does not say when it began";
}

}  // namespace orvex
