#include "store/session_log.h"

#include <gtest/gtest.h>

#include "store/storage.h"
#include "support/fake_clock.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

TEST(SessionLog, WritesEveryEntryAsItHasAlwaysBeen) {
  const test::TestFolder folder;
  test::FakeClock clock(9, 5, 12);
  Storage storage;
  SessionLog log(storage, clock);
  log.File().Open(folder / "7-12-3.bak");

  questionInfo question;
  question.SetValue("Why, then?", "s", "y", "n", "a", "h", "Zo\u00eb", "", "o", "e", 1, 2);
  log.LogOn("7-12-3.bak", "AB", "28");
  log.LogEpisodeStart(1, 1);
  log.LogEpisodeStart(1, 2);
  clock.Advance(90);
  log.LogSegmentEnd(1, 1, "Procedures && directions", 90, "");
  log.LogSegmentEnd(1, 2, "Discussion", 75, "fate");
  log.LogRevisedActivity(1, 2, "14");
  log.LogRevisedN("24");
  log.LogRevisedQuestion(1, 3, question);
  log.LogRevisedQuestion(1, 4, questionInfo{});
  log.LogRevisedDescription("Intro to Macbeth");
  log.LogEpisode(1, "Intro to Macbeth", 1320.5);
  log.LogBlankLine();
  log.LogActiveEstimates(1);
  log.LogEpisodeOfftask(1, 0.16F, 2);
  log.LogEpisodeOfftask(2, 0, 0);
  log.LogSegmentToEpisode();
  log.LogEpisodeToSegment();
  log.LogAdjustTime(2, 1, -30.4F);
  log.LogAdjustTime(2, 1, 0.5F);
  log.LogFieldNote(2, 1, "warm\r\nloud");
  log.LogOff();
  log.File().Close();

  EXPECT_EQ(test::FileBytes(folder / "7-12-3.bak"),
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
            "REVISE ? 1 : 4 = \n"
            " SRC: ; RSP: ; AUTH: ; UP: ; COG: ; RSPNAME: ; MANY: ; TRSP: ; COG: ; 09:06:42\r\n"
            "REVISED EP.Description: Intro to Macbeth 09:06:42\r\n"
            "Episode 1 : Intro to Macbeth, 1320, 09:06:42\r\n"
            "\r\n"
            "                    ACTIVE ESTIMATES FOR EPISODE 1 :\r\n"
            "Prop. students offtask in episode 1 = 1.6E-1 [number of estimates = 2 ]\r\n"
            "Prop. students offtask in episode 2 = 0.E0 [number of estimates = 0 ]\r\n"
            "***** CHANGE A NEW SEGMENT TO NEW EPISODE ***** 09:06:42\r\n"
            "***** CHANGE A NEW EPISODE TO NEW SEGMENT ***** 09:06:42\r\n"
            "ADJUST TIME OF EP. 2 SG. 1 : 30\r\n"
            "ADJUST TIME OF EP. 2 SG. 1 : 0\r\n"
            "REVISED FIELDNOTE2 SG. 1 :  09:06:42\r\n"
            "************* FIELDNOTE BEGINS ***********\r\n"
            "warm\r\nloud\r\n"
            "************* FIELDNOTE ENDS ***********\r\n"
            "\r\n"
            "LOG OFF: 09:06:42\r\n");
}

}  // namespace
}  // namespace orvex
