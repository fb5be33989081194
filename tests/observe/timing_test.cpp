// The correction of the start times.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/desk.h"

namespace orvex {
namespace {

TEST(TimeAdjustment, MovesBothStartTimes) {
  const std::tuple<double, int, int, std::optional<int>, const char*, const char*, const char*>
      cases[] = {
          {90, 180, 90, 120, "12 : 00", "02 : 00", "ADJUST TIME OF EP. 1 SG. 2 : 30\n"},
          {90, 180, 90, 0, "10 : 00", "00 : 00", "ADJUST TIME OF EP. 1 SG. 2 : -90\n"},
          {90.4, 180, 90, 90, "11 : 30", "01 : 30", "ADJUST TIME OF EP. 1 SG. 2 : 0\n"},
          {90, 180, 90, std::nullopt, "11 : 30", "01 : 30", ""},
          {20000, 32767, 20000, 32767, "556 : 07", "546 : 07",
           "ADJUST TIME OF EP. 1 SG. 2 : 12767\n"},
      };
  for (const auto& [elapsed, maximum, start, seconds, episode, segment, log] : cases) {
    SCOPED_TRACE(elapsed);
    test::Desk desk;
    desk.clock.Set(23, 49, 30);
    desk.OpenLog();
    LiveObservation live(desk.services);
    SessionClocks clocks(desk.services, live);
    live.KeyInDescription();
    live.TypeDescription("Poems");
    live.ChooseActivity(1);
    desk.clock.Advance(600);
    live.StartNewSeg();  // half a minute before midnight
    desk.NewLogText();
    desk.clock.Advance(elapsed);
    desk.prompter.ExpectSeconds(seconds);
    live.Command1_Click();
    EXPECT_EQ(desk.prompter.askedSeconds.back().maximum, maximum);
    EXPECT_EQ(desk.prompter.askedSeconds.back().seconds, start);
    clocks.Tick();
    EXPECT_EQ(clocks.EpisodeTime(), episode);
    EXPECT_EQ(clocks.SegmentTime(), segment);
    EXPECT_EQ(desk.NewLogText(), log);
  }
}

}  // namespace
}  // namespace orvex
