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

/// Takes the observer and the date from "5-12-3.bak     AB     03-14-01".
void TakeObserver(std::string_view line, LogFacts& facts) {
  constexpr std::string_view kGap = "     ";
  constexpr std::string_view kShortDate = "mm-dd-yy";
  while (line.ends_with('\r')) line.remove_suffix(1);
  const std::size_t date = line.rfind(kGap);
  const std::size_t initials = line.find(kGap);
  if (date == std::string_view::npos || date < initials + kGap.size()) return;
  facts.initials = line.substr(initials + kGap.size(), date - initials - kGap.size());
  facts.date = line.substr(date + kGap.size());
  if (facts.date.size() == kShortDate.size()) facts.date.insert(kShortDate.find("yy"), "20");
}

}  // namespace

int LogFacts::Estimates() const {
  return std::accumulate(estimates.begin(), estimates.end(), 0);
}

LogFacts FactsOfLog(std::string bytes) {
  const std::string text = Decode(std::move(bytes)).text;
  LogFacts facts;
  bool inNote = false;  // what the observer wrote is not the log's
  bool inHeading = true;
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
      inHeading = false;
    } else if (line.starts_with("OFFTASK: ")) {
      const auto position = OfftaskPosition(ActivityIn(line));
      if (position) ++facts.estimates[*position];
    } else if (line.starts_with("LOG OFF: ")) {
      facts.ended = true;
    } else if (inHeading) {
      TakeObserver(line, facts);
    }
  }
  return facts;
}

std::optional<LogFacts> ReadLogFacts(const std::filesystem::path& path) try {
  std::string bytes = ReadFile(path);
  if (KindOfContent(bytes) != ContentKind::sessionLog) return std::nullopt;
  return FactsOfLog(std::move(bytes));
} catch (const FileError&) {
  return std::nullopt;
}

std::optional<LogFacts> ReadLogStart(const std::filesystem::path& path) try {
  constexpr std::size_t kEnough = 4096;
  std::string bytes = ReadFileStart(path, kEnough);
  if (KindOfContent(bytes) != ContentKind::sessionLog) return std::nullopt;
  // The end of the third line; what follows may have been cut within a character.
  constexpr std::string_view kLogOn = "\nLOG ON: ";
  const std::size_t logOn = bytes.find(kLogOn);
  if (logOn != std::string::npos) bytes.resize(std::min(bytes.find('\n', logOn + 1), bytes.size()));
  return FactsOfLog(std::move(bytes));
} catch (const FileError&) {
  return std::nullopt;
}

}  // namespace orvex
