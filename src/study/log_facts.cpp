#include "study/log_facts.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <numeric>
#include <utility>

#include "store/content_kind.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

constexpr std::size_t kTimeLength = 8;  // "hh:mm:ss"

/// The activity in "OFFTASK: 0.2 [ 5 / 25 ] Act # 5 Question/Answer 10:23:45"; kNoActivity if the
/// line has none.
int ActivityIn(std::string_view line) {
  constexpr std::string_view kBefore = "] Act # ";
  const std::size_t at = line.find(kBefore);
  if (at == std::string_view::npos) return kNoActivity;
  line.remove_prefix(at + kBefore.size());
  int activity = kNoActivity;
  std::from_chars(line.data(), line.data() + line.size(), activity);
  return activity;
}

}  // namespace

int LogFacts::Estimates() const {
  return std::accumulate(estimates.begin(), estimates.end(), 0);
}

LogFacts FactsOfLog(std::string bytes) {
  const std::string text = Decode(std::move(bytes)).text;
  LogFacts facts;
  bool inNote = false;  // what the observer wrote is not the log's
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.starts_with("************* FIELDNOTE BEGINS")) inNote = true;
    if (line.starts_with("************* FIELDNOTE ENDS")) inNote = false;
    if (inNote) continue;
    constexpr std::string_view kLogOn = "LOG ON: ";
    if (line.starts_with(kLogOn)) {
      if (facts.start.empty()) facts.start = line.substr(kLogOn.size(), kTimeLength);
    } else if (line.starts_with("OFFTASK: ")) {
      const auto position = OfftaskPosition(ActivityIn(line));
      if (position) ++facts.estimates[*position];
    } else if (line.starts_with("LOG OFF: ")) {
      facts.ended = true;
    }
  }
  return facts;
}

std::optional<LogFacts> ReadLogFacts(const std::filesystem::path& path) {
  try {
    std::string bytes = ReadFile(path);
    if (KindOfContent(bytes) != ContentKind::sessionLog) return std::nullopt;
    return FactsOfLog(std::move(bytes));
  } catch (const FileError&) {
    return std::nullopt;
  }
}

}  // namespace orvex
