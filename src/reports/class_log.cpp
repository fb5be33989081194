#include "reports/class_log.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "model/activities.h"
#include "store/numbers.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

constexpr std::size_t kTimeLength = 8;  // "hh:mm:ss"
constexpr int kSecondsOfDay = 24 * 60 * 60;

/// Takes `start` off the line, if it is there.
bool Take(std::string_view& line, std::string_view start) {
  if (!line.starts_with(start)) return false;
  line.remove_prefix(start.size());
  return true;
}

/// Takes everything up to `separator`, and the separator, off the line; all of it where there is no
/// separator.
std::string_view TakeUpTo(std::string_view& line, std::string_view separator) {
  const std::size_t at = line.find(separator);
  const std::string_view taken = line.substr(0, at);
  line.remove_prefix(at == std::string_view::npos ? line.size() : at + separator.size());
  return taken;
}

/// The number at the start of the text; 0 where there is none.
int NumberAt(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// The activity of a caption as the log has it; kNoActivity if it is of none.
int ActivityOfCaption(std::string_view caption) {
  const auto found = std::ranges::find_if(kActivities, [caption](const Activity& activity) {
    return ActivityCaption(activity.number) == caption;
  });
  return found == kActivities.end() ? kNoActivity : found->number;
}

/// Takes in a log line by line.
class LogReader {
 public:
  void TakeLine(std::string_view line) {
    // What the observer wrote is not the log's.
    if (line.starts_with("************* FIELDNOTE BEGINS")) inNote_ = true;
    if (line.starts_with("************* FIELDNOTE ENDS")) inNote_ = false;
    if (inNote_) return;
    if (question_ && line.starts_with(" SRC: ")) return TakeCodes(line);
    question_.reset();
    if (Take(line, "REVISE ? ")) {
      TakeUpTo(line, " = ");
      question_ = line;
    } else if (Take(line, "OFFTASK: ")) {
      TakeEstimate(line);
    } else if (Take(line, "Ep. ")) {
      TakeUpTo(line, " Sg. ");
      TakeUpTo(line, " ");
      TakeCourse(line);
    } else if (line.starts_with("REVISED ACTIVITY") || line.starts_with("***** CHANGE") ||
               line.starts_with("***** CLASS TAKEN UP")) {
      running_.isSteady = false;
    } else if (Take(line, "ADJUST TIME OF EP. ")) {
      TakeUpTo(line, " : ");
      TakeCorrection(NumberAt(line));
    } else if (line.starts_with("***** CLASS NOT ENDED")) {
      TakeSegmentEndBack();
    } else if (Take(line, "LOG OFF: ")) {
      log_.ended = true;
    } else if (Take(line, "LOG ON: ")) {
      TakeBegin(line);
    } else if (log_.start.empty()) {
      TakeObserver(line);
    }
  }

  ClassLog Log() && { return std::move(log_); }

 private:
  /// Takes the observer and the date from "5-12-3.bak     AB     03-14-01".
  void TakeObserver(std::string_view line) {
    constexpr std::string_view kGap = "     ";
    constexpr std::string_view kShortDate = "mm-dd-yy";
    const std::size_t date = line.rfind(kGap);
    const std::size_t initials = line.find(kGap);
    if (date == std::string_view::npos || date < initials + kGap.size()) return;
    log_.initials = line.substr(initials + kGap.size(), date - initials - kGap.size());
    log_.date = line.substr(date + kGap.size());
    if (log_.date.size() == kShortDate.size()) log_.date.insert(kShortDate.find("yy"), "20");
  }

  void TakeBegin(std::string_view time) {
    if (!log_.start.empty()) return;
    log_.start = time.substr(0, kTimeLength);
    log_.begin = ParseTimeOfDay(log_.start);
  }

  /// The second of the class of a line that ends with a time of day.
  std::optional<double> SecondOf(std::string_view line) const {
    const auto time = ParseTimeOfDay(line.substr(line.size() - std::min(line.size(), kTimeLength)));
    if (!time || !log_.begin) return std::nullopt;
    // A class that goes on past midnight, but no clock that was set back an hour.
    const int second = *time - *log_.begin;
    return correction_ + (second < -kSecondsOfDay / 2 ? second + kSecondsOfDay : second);
  }

  LoggedEvent EventOf(std::string_view line) const {
    return {.second = SecondOf(line), .segment = log_.segments.size()};
  }

  /// Takes the codes of a question, which end with its time.
  void TakeCodes(std::string_view line) {
    log_.questions.push_back({EventOf(line), *std::exchange(question_, std::nullopt)});
  }

  /// Takes "0.2 [ 5 / 25 ] Act # 5 Question/Answer 10:23:45".
  void TakeEstimate(std::string_view line) {
    LoggedEstimate& estimate = log_.estimates.emplace_back(LoggedEstimate{EventOf(line)});
    estimate.share = std::max(0.0, ParseNumber(TakeUpTo(line, " ")).value_or(0));
    TakeUpTo(line, "] Act # ");
    estimate.activity = NumberAt(line);
  }

  /// Takes "started at 10:23:45" or "Question/Answer 240".
  void TakeCourse(std::string_view line) {
    if (Take(line, "started at ")) return TakeChoice(line);
    TakeSegmentEnd(line);
  }

  void TakeChoice(std::string_view time) {
    if (const auto second = SecondOf(time)) running_.chosen = *second - running_.begin;
  }

  void TakeSegmentEnd(std::string_view line) {
    const std::size_t gap = line.rfind(' ');
    if (gap == std::string_view::npos) return;
    running_.activity = ActivityOfCaption(line.substr(0, gap));
    running_.end = running_.begin + std::clamp(NumberAt(line.substr(gap + 1)), 0, kSecondsOfDay);
    log_.segments.push_back(running_);
    running_ = {.begin = running_.end};
  }

  /// The class could not be stored, and its last segment goes on.
  void TakeSegmentEndBack() {
    if (log_.segments.empty()) return;
    running_ = log_.segments.back();
    log_.segments.pop_back();
    for (auto* event : Unended()) event->segment = log_.segments.size();
  }

  /// The running segment, and what was logged in it, began `seconds` later in the class than the
  /// clock says.
  void TakeCorrection(int seconds) {
    correction_ += seconds;
    running_.isSteady = false;
    for (auto* event : Unended()) {
      if (event->second) *event->second += seconds;
    }
  }

  /// What was logged since the last segment ended.
  std::vector<LoggedEvent*> Unended() {
    std::vector<LoggedEvent*> events;
    const auto add = [&](auto& logged) {
      for (auto event = logged.rbegin(); event != logged.rend(); ++event) {
        if (event->segment < log_.segments.size()) break;
        events.push_back(&*event);
      }
    };
    add(log_.questions);
    add(log_.estimates);
    return events;
  }

  ClassLog log_;
  bool inNote_ = false;
  std::optional<std::string> question_;  ///< whose codes are in the next line
  LoggedSegment running_;
  double correction_ = 0;  ///< what the observer has added to the times since
};

}  // namespace

ClassLog ClassLogOf(std::string bytes) {
  const std::string text = Decode(std::move(bytes)).text;
  LogReader reader;
  std::string_view rest = text;
  while (!rest.empty()) {
    std::string_view line = TakeUpTo(rest, "\n");
    while (line.ends_with('\r')) line.remove_suffix(1);
    reader.TakeLine(line);
  }
  return std::move(reader).Log();
}

std::optional<double> TimeWithin(double second, double begin, double end) {
  constexpr double kSlack = 5;
  if (begin > end || second < begin - kSlack || second > end + kSlack) return std::nullopt;
  return std::clamp(second, begin, end);
}

}  // namespace orvex
