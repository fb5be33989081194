#include "observe/session_clocks.h"

#include <cstdint>
#include <utility>

#include "desk/elapsed_time.h"
#include "model/clock.h"
#include "model/texts.h"
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
  return Say(Text::episodeTime, {live_.Running().curEpisode});
}

std::string SessionClocks::SegmentCaption() const {
  return Say(Text::segmentTime, {live_.Running().curSegment});
}

std::string SessionClocks::LogTrouble() const {
  const std::pair<Text, std::string> troubles[] = {
      {Text::logTrouble, services_.log.File().Trouble()},
      {Text::recoveryTrouble, services_.recovery.Trouble()},
  };
  for (const auto& [text, trouble] : troubles) {
    if (!trouble.empty()) return Say(text, {trouble});
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
