#include "reports/class_log.h"

#include <gtest/gtest.h>

#include <sstream>

#include "reports/missed_estimates.h"

namespace orvex {
namespace {

/// What a log tells in a few words, its events with their segments.
std::string Told(const ClassLog& log) {
  std::ostringstream told;
  const auto time = [&](const LoggedEvent& event) {
    event.second ? told << "@" << *event.second : told << "@?";
    told << " in " << event.segment << "; ";
  };
  for (const auto& question : log.questions) time((told << question.text, question));
  for (const auto& estimate : log.estimates) {
    time((told << estimate.share << "/" << estimate.activity, estimate));
  }
  for (const auto& segment : log.segments) {
    told << segment.activity << " " << segment.begin << "-" << segment.end << "; ";
  }
  return told.str();
}

TEST(ClassLog, TellsWhatCameWhen) {
  const struct {
    const char* what;
    const char* lines;
    const char* told;
  } cases[] = {
      {"odd texts", "LOG ON: 09:00:00\nREVISE ? 1 : 1 = a = \"b\"; 09:00:01 \n SRC: T; 09:00:10\n",
       "a = \"b\"; 09:00:01 @10 in 0; "},
      {"line ends of another program",
       "LOG ON: 09:00:00\r\nREVISE ? 1 : 1 = a\r\n SRC: T; 09:00:10", "a@10 in 0; "},
      {"cut off", "LOG ON: 09:00:00\nREVISE ? 1 : 1 = a\n SRC: T; 09:0", "a@? in 0; "},
      {"cut off before the codes", "LOG ON: 09:00:00\nREVISE ? 1 : 1 = a", ""},
      {"no begin", "REVISE ? 1 : 1 = a\n SRC: T; 09:00:10\n", "a@? in 0; "},
      {"past midnight", "LOG ON: 23:59:30\nREVISE ? 1 : 1 = a\n SRC: T; 00:00:10\n", "a@40 in 0; "},
      {"clock set back", "LOG ON: 09:00:00\nREVISE ? 1 : 1 = a\n SRC: T; 08:00:10\n",
       "a@-3590 in 0; "},
      {"segments",
       "LOG ON: 09:00:00\nEp. 1 Sg. 1 started at 09:00:05\n"
       "Ep. 1 Sg. 1 Procedures && directions 60\n"
       "OFFTASK: 0.25 [ 5 / 20 ] Act # 5 Question/Answer 09:02:00\n"
       "Ep. 1 Sg. 2 Question/Answer 60\nEp. 1 Sg. 3 Chess -9\n",
       "0.25/5@120 in 1; 1 0-60; 5 60-120; 0 120-120; "},
      {"a corrected time counts from the segment's begin",
       "LOG ON: 09:00:00\nREVISE ? 1 : 1 = a\n SRC: T; 09:00:50\nEp. 1 Sg. 1 Game 60\n"
       "REVISE ? 1 : 2 = b\n SRC: T; 09:01:10\nADJUST TIME OF EP. 1 SG. 2 : 30\n"
       "REVISE ? 1 : 3 = c\n SRC: T; 09:01:20\nEp. 1 Sg. 2 Game 60\n",
       "a@50 in 0; b@100 in 1; c@110 in 1; 11 0-60; 11 60-120; "},
      {"a class that could not be stored goes on",
       "LOG ON: 09:00:00\nOFFTASK: 0. [ 0 / 20 ] Act # 8 Reading aloud 09:00:59\n"
       "Ep. 1 Sg. 1 Reading aloud 60\n***** CLASS NOT ENDED, IT GOES ON ***** 09:01:00\n"
       "Ep. 1 Sg. 1 Reading aloud 90\n",
       "0/8@59 in 0; 8 0-90; "},
      {"field notes are not the log's",
       "LOG ON: 09:00:00\n************* FIELDNOTE BEGINS ***********\nREVISE ? 1 : 1 = a\n"
       "Ep. 1 Sg. 1 Game 60\n************* FIELDNOTE ENDS ***********\nLOG OFF: 09:30:00\n",
       ""},
  };
  for (const auto& [what, lines, told] : cases) {
    EXPECT_EQ(Told(ClassLogOf(lines)), told) << what;
  }
}

TEST(MissedEstimates, AreToldWhereNothingIsInDoubt) {
  const std::string aloud = "Ep. 1 Sg. 1 Reading aloud ";
  const auto estimate = [](const char* time) {
    return std::string("OFFTASK: 0. [ 0 / 20 ] Act # 8 Reading aloud ") + time + "\n";
  };
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"every two minutes", aloud + "500", "120 240 360 480 "},
      {"every five for questions", "Ep. 1 Sg. 1 Question/Answer 800", "180 480 780 "},
      {"only at the end", "Ep. 1 Sg. 1 Small group and pairwork 800", ""},
      {"never", "Ep. 1 Sg. 1 Game 800", ""},
      {"due as the segment ended", aloud + "123", ""},
      {"not ended", estimate("09:02:00"), ""},
      {"answered in time, and late",
       estimate("09:02:00") + estimate("09:05:00") + estimate("09:07:30") + aloud + "500", "480 "},
      {"the last of two is answered at the end", estimate("09:05:00") + aloud + "300", "120 "},
      {"two are made up for", estimate("09:04:59") + estimate("09:05:00") + aloud + "300", ""},
      {"chosen late", "Ep. 1 Sg. 1 started at 09:02:30\n" + aloud + "500", "240 360 480 "},
      {"chosen very late", "Ep. 1 Sg. 1 started at 09:01:00\n" + aloud + "190", "120 "},
      {"revised", "REVISED ACTIVITY # for Ep. 1 Sg. 1 :  8 09:00:30\n" + aloud + "500", ""},
      {"taken up", "***** CLASS TAKEN UP AGAIN ***** 09:01:00\n" + aloud + "500", ""},
      {"corrected", "ADJUST TIME OF EP. 1 SG. 1 : 20\n" + aloud + "500", ""},
      {"clock set", estimate("08:05:00") + aloud + "300", ""},
  };
  for (const auto& [what, lines, expected] : cases) {
    std::ostringstream missed;
    for (const auto& estimated : MissedEstimates(ClassLogOf("LOG ON: 09:00:00\n" + lines))) {
      missed << estimated.second << " ";
    }
    EXPECT_EQ(missed.str(), expected) << what;
  }
}

}  // namespace
}  // namespace orvex
