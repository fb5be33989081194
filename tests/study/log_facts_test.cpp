#include "study/log_facts.h"

#include <gtest/gtest.h>

namespace orvex {
namespace {

TEST(LogFacts, StartAndEstimatesComeFromTheLogButNotFromFieldNotes) {
  const LogFacts facts =
      FactsOf(ClassLogOf("********* Orvex 4.10 BAK file *********\r\n"
                         "5-12-3.bak     AB     03-14-01\r\n"
                         "LOG ON: 09:05:12     28 Students\r\n"
                         "OFFTASK: 0.2 [ 5 / 25 ] Act # 5 Question/Answer 10:23:45\r\n"
                         "************* FIELDNOTE BEGINS ***********\r\n"
                         "LOG OFF: 11:00:00\r\n"
                         "OFFTASK: 0.2 [ 5 / 25 ] Act # 5 Question/Answer 10:23:45\r\n"
                         "************* FIELDNOTE ENDS ***********\r\n"
                         "OFFTASK: 0 [ 0 / 25 ] Act # 16 Unsupervised 10:25:45\r\n"
                         "LOG ON: 10:40:00     28 Students\r\n"));
  EXPECT_EQ(facts.start, "09:05:12");
  EXPECT_EQ(facts.initials, "AB");
  EXPECT_EQ(facts.date, "03-14-2001");
  EXPECT_FALSE(facts.ended);
  EXPECT_EQ(facts.estimates, (std::array<int, 7>{0, 0, 0, 1, 1, 0, 0}));
  EXPECT_TRUE(FactsOf(ClassLogOf("LOG OFF: 11:00:00")).ended);
  EXPECT_EQ(FactsOf(ClassLogOf("\xFF\x80 nothing\n\n")).start, "");
}

}  // namespace
}  // namespace orvex
