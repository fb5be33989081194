#include "recovery/class_keeper.h"

#include <cstdlib>
#include <utility>

#include "desk/prompter.h"
#include "model/clock.h"
#include "recovery/kept_class.h"
#include "recovery/recovery_file.h"
#include "store/file_error.h"
#include "store/session_log.h"

namespace orvex {

void ClassKeeper::Keep(const Services& services, const RunningClass& running) {
  AppendLog& log = services.log.File();
  if (services.recovery.IsOn()) {
    log.HoldEntries();
    HandOver(services, running);
  }
  services.recovery.WhenWritten([&log, end = log.End()] { log.LetThrough(end); });
}

void ClassKeeper::HandOver(const Services& services, const RunningClass& running) {
  const Clock& clock = services.clock;
  const std::int64_t now = clock.UnixSeconds();
  constexpr std::int64_t kLongest = 10;
  std::string text = FormatRunning(services.program, running);
  if (text == kept_ && std::abs(now - keptAt_) < kLongest) return;
  kept_ = std::move(text);
  keptAt_ = now;
  services.recovery.Keep(FormatMoment({.dateText = clock.DateText(),
                                       .timeText = clock.TimeText(),
                                       .secondsSinceMidnight = clock.SecondsSinceMidnight(),
                                       .unixSeconds = now}) +
                         kept_);
}

void ForgetKept(const Services& services) {
  try {
    services.recovery.Remove();
  } catch (const FileError& error) {
    services.prompter.Tell(
        "The class is stored, but its recovery file could not be removed. The class will be "
        "offered again.",
        error.what());
  }
}

}  // namespace orvex
