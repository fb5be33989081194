#include "store/session_log.h"

#include <gtest/gtest.h>

#include "support/desk.h"

namespace orvex {
namespace {

TEST(SessionLog, WritesEveryEntryAsItHasAlwaysBeen) {
  test::Desk desk;
  SessionLog& log = desk.log;
  desk.clock.Set(9, 5, 12);
  desk.OpenLog();

  questionInfo question;
  question.SetValue("Why, then?", "s", "y", "n", "a", "h", "Zo\u00eb", "", "o", "e", 1, 2);
  log.LogOn("7-12-3.bak", "AB", "28");
  log.LogEpisodeStart(1, 1);
  log.LogEpisodeStart(1, 2);
  desk.clock.Advance(90);
  log.LogSegmentEnd(1, 1, "Procedures && directions", 90, "");
  log.LogSegmentEnd(1, 2, "Discussion", 75, "fate");
  log.LogRevisedActivity(1, 2, "14");
  log.LogRevisedN("24");
  log.LogRevisedQuestion(1, 3, question);
  log.LogRevisedDescription("Intro to Macbeth");
  log.LogEpisode(1, "Intro to Macbeth", 1320.5);
  log.LogActiveEstimates(1);
  log.LogEpisodeOfftask(1, 0.16F, 2);
  log.LogSegmentToEpisode();
  log.LogEpisodeToSegment();
  log.LogAdjustTime(2, 1, -30.4F);
  log.LogFieldNote(2, 1, "warm\r\nloud");
  log.LogOff();

  EXPECT_EQ(test::FileBytes(log.File().Path()),
            "********* Orvex 4.10 BAK file *********\r\n"
            "7-12-3.bak     AB     03-14-01\r\n"
            "LOG ON: 09:05:12     28 Students\r\n"
            "\r\n"
            "***************************** Episode 1 ******************************\r\n"
            "Ep. 1 Sg. 1 started at 09:05:12\r\n"
            "Ep. 1 Sg. 1 Procedures && directions 90\r\n"
            "Ep. 1 Sg. 2 Discussion 75\r\n"
            "\"fate\"\r\n"
            "\r\n"
            "REVISED ACTIVITY # for Ep. 1 Sg. 2 :  14 09:06:42\r\n"
            "REVISED N= 24 09:06:42\r\n"
            "REVISE ? 1 : 3 = Why, then?\n"
            " SRC: S; RSP: Y; AUTH: N; UP: A; COG: H; RSPNAME: Zo\u00eb; MANY: ; TRSP: O; COG: E; "
            "09:06:42\r\n"
            "REVISED EP.Description: Intro to Macbeth 09:06:42\r\n"
            "Episode 1 : Intro to Macbeth, 1320, 09:06:42\r\n"
            "                    ACTIVE ESTIMATES FOR EPISODE 1 :\r\n"
            "Prop. students offtask in episode 1 = 1.6E-1 [number of estimates = 2 ]\r\n"
            "***** CHANGE A NEW SEGMENT TO NEW EPISODE ***** 09:06:42\r\n"
            "***** CHANGE A NEW EPISODE TO NEW SEGMENT ***** 09:06:42\r\n"
            "ADJUST TIME OF EP. 2 SG. 1 : 30\r\n"
            "REVISED FIELDNOTE2 SG. 1 :  09:06:42\r\n"
            "************* FIELDNOTE BEGINS ***********\r\n"
            "warm\r\nloud\r\n"
            "************* FIELDNOTE ENDS ***********\r\n"
            "\r\n"
            "LOG OFF: 09:06:42\r\n");
}

}  // namespace
}  // namespace orvex
