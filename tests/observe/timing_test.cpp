// Correcting the start times.

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
  struct Case {
    double elapsed;
    double open;  ///< how many seconds the dialog stays open
    int maximum;
    int start;
    std::optional<int> seconds;
    std::string episode, segment, log;
  };
  const std::string adjusted = "ADJUST TIME OF EP. 1 SG. 2 : ";
  const Case cases[] = {
      {90, 0, 180, 90, 120, "12 : 00", "02 : 00", adjusted + "30\n"},
      {90, 0, 180, 90, 0, "10 : 00", "00 : 00", adjusted + "-90\n"},
      {90.4, 0, 180, 90, 90, "11 : 30", "01 : 30", adjusted + "0\n"},
      {90, 0, 180, 90, std::nullopt, "11 : 30", "01 : 30", ""},
      {20000, 0, 32767, 20000, 32767, "556 : 07", "546 : 07", adjusted + "12767\n"},
      // The segment continues while the dialog is open.
      {90, 60, 180, 90, 90, "12 : 30", "02 : 30", adjusted + "0\n"},
      {90, 60, 180, 90, 120, "12 : 00", "02 : 00", adjusted + "-30\n"},
      {40000, 60, 32767, 32767, 32767, "677 : 40", "667 : 40", adjusted + "0\n"},
  };
  for (const auto& [elapsed, open, maximum, start, seconds, episode, segment, log] : cases) {
    SCOPED_TRACE(std::to_string(elapsed) + " " + std::to_string(open));
    test::Desk desk;
    desk.clock.Set(23, 49, 30);
    desk.OpenLog();
    LiveObservation live(desk.services);
    SessionClocks clocks(desk.services, live);
    live.KeyInDescription();
    live.TypeDescription("Poems");
    live.ChooseActivity(1);
    desk.clock.Advance(600);
    live.StartSegment();  // half a minute before midnight
    desk.NewLogText();
    desk.clock.Advance(elapsed);
    desk.prompter.ExpectSeconds(seconds, [&desk, idle = open] { desk.clock.Advance(idle); });
    live.CorrectTime();
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
