#include "observe/session_clocks.h"

#include <cstdint>
#include <utility>

#include "desk/elapsed_time.h"
#include "model/clock.h"
#include "model/time_of_day.h"
#include "observe/live_observation.h"
#include "recovery/recovery_file.h"
#include "store/session_log.h"

namespace orvex {

SessionClocks::SessionClocks(const Services& services, LiveObservation& live)
    : services_(services),
      live_(live),
      tick_(services.prompter, "timerEpisode"),
      timeOfDay_(services.clock.SpacedTimeText()),
      offtask_(live) {}

std::string SessionClocks::EpisodeCaption() const {
  return "Episode " + std::to_string(live_.Running().curEpisode) + " Time: ";
}

std::string SessionClocks::SegmentCaption() const {
  return "Segment " + std::to_string(live_.Running().curSegment) + " Time: ";
}

std::string SessionClocks::LogTrouble() const {
  const std::pair<const char*, std::string> files[] = {
      {"session log", services_.log.File().Trouble()},
      {"recovery file", services_.recovery.Trouble()},
  };
  for (const auto& [name, trouble] : files) {
    if (trouble.empty()) continue;
    return std::string("Trouble with the ") + name + " (" + trouble +
           "). What it lacks is kept and tried again.";
  }
  return "";
}

std::string SessionClocks::TimeSince(float start) const {
  const std::int32_t seconds =
      ElapsedSeconds(start, services_.clock.SecondsSinceMidnight(), services_.prompter);
  return TwoDigits(seconds / 60) + " : " + TwoDigits(seconds % 60);
}

void SessionClocks::Tick() {
  tick_.Run([this] {
    episodeTime_ = TimeSince(live_.Running().episodeStart);
    timeOfDay_ = " " + services_.clock.SpacedTimeText();
    segmentTime_ = TimeSince(live_.Running().segmentStart);
    offtask_.Tick();
    services_.log.File().Retry();
    services_.recovery.Retry();
  });
}

}  // namespace orvex
