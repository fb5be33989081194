#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "model/wording.h"
#include "reports/class_log.h"
#include "reports/class_picture.h"
#include "reports/question_list.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"

namespace orvex {
namespace {

const Identity kIdentity = {"AB", "7", "12", "3", "25"};

SegmentData Segment(std::int16_t activity, float seconds) {
  SegmentData segment;
  segment.SetData(activity, seconds);
  return segment;
}

/// An episode of 480 seconds. Its questions have these sources and are otherwise answered, normal
/// questions.
Episode Asked(std::string_view sources) {
  Episode episode;
  episode.segments.push_back(Segment(kQuestionAnswer, 480));
  for (const char source : sources) {
    questionInfo& question = episode.questions.emplace_back();
    question.SetNormal();
    question.codes[Dimension::source] = CodeOf(Dimension::source, std::string_view(&source, 1));
  }
  return episode;
}

TEST(QuestionStatistics, DrawNoAnswersWhereTheTeacherAskedNothing) {
  const auto statistics = MakeQuestionStatistics(kIdentity, 2, Asked("SS"));
  EXPECT_EQ(statistics.Row(StatisticsLine::nonresponse).bar.at(1).meaning, BarMeaning::none);
}

TEST(QuestionStatistics, PasteAsFieldsAndSayWhatIsMissing) {
  Episode episode = Asked("TTTTTTTTTSSS");
  episode.offtask = 0.125F;
  EXPECT_EQ(TextOf(MakeQuestionStatistics(kIdentity, 1, episode)),
            "Questions/Answer Statistics\t7-12-3 Episode 1\n\n"
            "QUESTIONS\tOf\tCount\n"
            "Total Number of Questions\t\t12\n"
            "Normal Questions\t12\t9\n"
            "Teacher 9 / Student Questions 3\t12\t9\t3\n"
            "Authentic Teacher Questions\t9\t0\n"
            "Authentic Student Questions\t3\t0\n"
            "Higher-Level Questions\t9\t0\n\n"
            "RESPONSE\tOf\tCount\n"
            "Nonresponses to Teacher Questions\t9\t0\t9\n"
            "Uptake (None 12, Test 0, Authentic 0)\t12\t12\t0\t0\n"
            "Elaborated 0 / Unelaborated 12\t12\t0\t12\n"
            "Answering 0 / Closing down 0 / Opening up 0\t3\t0\t0\t0\n"
            "Response Related to Previous Responses\t9\t0\n\n"
            "PACE\t(questions per minute) 1.5\n"
            "STUDENT OFFTASK\t12.5%\n");
  episode.segments.clear();
  const auto unclean = MakeQuestionStatistics(kIdentity, 1, episode);
  EXPECT_EQ(unclean.message, "Questions need to be cleaned up first.");
  EXPECT_EQ(unclean.Row(StatisticsLine::normal).bar[0].caption, "9") << "filled as far as it goes";
  EXPECT_EQ(unclean.pace + unclean.offtask, "");
}

TEST(QuestionStatistics, CountAWholeClassAndSeveral) {
  // An episode without questions takes time, but has no share of students off task.
  EpsObservation first = {{}, {Asked("TT"), Asked("S"), Asked("")}};
  first.header.identity = kIdentity;
  first.Episodes[0].offtask = 0.1F;
  first.Episodes[1].offtask = 0.3F;
  first.Episodes[1].segments[0].duration = 960;
  first.Episodes[2].offtask = 0.9F;
  EpsObservation second = {{}, {Asked("TSSSS")}};
  second.Episodes[0].offtask = 0.5F;
  const EpsObservation none = {{}, {Asked("")}};
  const struct {
    std::vector<EpsObservation> classes;
    const char* texts;
    int total;
    int ofStudents;
  } cases[] = {
      {{first}, "7-12-3 | (questions per minute) 0.09 | 23.3%", 3, 1},
      {{first, second}, "2 classes | (questions per minute) 0.2 | 36.7%", 8, 5},
      {{first, second, none}, "3 classes | (questions per minute) 0.17 | 36.7%", 8, 5},
      {{none, none}, "2 classes |  | ", 0, 0},
  };
  for (const auto& [classes, texts, total, ofStudents] : cases) {
    const QuestionStatistics statistics = MakeQuestionStatistics(classes);
    EXPECT_EQ(statistics.title + " | " + statistics.pace + " | " + statistics.offtask, texts);
    EXPECT_EQ(statistics.counts.Total, total);
    EXPECT_EQ(statistics.counts.StudentQ, ofStudents);
  }
}

TEST(QuestionLists, HaveARowForEveryQuestionAndTheTimesThatAreKnown) {
  EpisodeList episodes = {Asked("T"), Asked("ST")};
  for (Episode& episode : episodes) {
    for (questionInfo& question : episode.questions) question.iSgQ = 1;
  }
  episodes[1].questions[1].question = "Why\tnot?";
  ClassLog log;
  log.begin = 32400;
  log.questions = {{{.second = 900}, "Why\tnot?"}};
  const QuestionList logged = MakeQuestionList(episodes, MakeClassPicture({}, episodes, &log));
  ASSERT_EQ(logged.rows.size(), 3U);
  for (const auto& row : logged.rows) EXPECT_EQ(row.size(), logged.columns.size());
  EXPECT_EQ(logged.rows[2][0], "2.2");
  EXPECT_EQ(logged.rows[2][1], "09:15");
  EXPECT_EQ(logged.rows[2][3], "Why\tnot?");
  EXPECT_EQ(logged.rows[0][1], "");
  EXPECT_EQ(logged.rows[1][4], "S");
  const QuestionList unlogged = MakeQuestionList(episodes, MakeClassPicture({}, episodes, nullptr));
  EXPECT_EQ(unlogged.rows[2][1], "Question/Answer") << "no column of times";
}

TEST(TimeSummary, AddsUpWhatAClassDidHoweverLong) {
  const std::pair<double, const char*> texts[] = {
      {0, "0:00"},       {59, "0:59"},   {60, "1:00"},   {125, "2:05"},  {3600, "60:00"},
      {32768, "546:08"}, {59.5, "1:00"}, {-65, "-1:05"}, {-0.2, "0:00"}, {6e12, "100000000000:00"},
  };
  for (const auto& [seconds, text] : texts) EXPECT_EQ(FormatMinSec(seconds), text);

  EpisodeList episodes(2);
  episodes[0].segments = {Segment(6, 90), Segment(1, 32000)};
  episodes[1].segments = {Segment(6, 45), Segment(3, 32000), Segment(18, 77)};
  EpsHeader header;
  header.identity = kIdentity;
  header.ObservDate = "03-14-2001";
  const TimeSummary summary = MakeTimeSummary(header, episodes);
  EXPECT_EQ(summary.nonInstructional, "1066:40");
  EXPECT_EQ(summary.instructional, "2:15");
  EXPECT_EQ(summary.total, "1068:55");
  const std::string text = TextOf(summary);
  for (const char* part :
       {"Time Summary for School 7, Class 12, Observation 3\nDate of Observation: 03-14-2001\n"
        "Observer: AB\n\nCLASSROOM MANAGMENT\tMIN:SEC\tOFFTASK\nProcedures & "
        "directions\t533:20\t\n",
        "\nDiscussion\t2:15\t\n", "\nUnsupervised\t0:00\t0.000\n",
        "\nNON-INSTRUCTIONAL TIME:\t1066:40\nSUMMARY: INSTRUCTIONALTIME:\t2:15\n"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
  }
}

TEST(QuestionPlot, ShowsWhereStudentsAskInARow) {
  const std::tuple<const char*, const char*, int> cases[] = {
      {"TTSSS", " |___|", 6},  // no question above the closing bar
      {"TTSSSTTT", " |___|", 8},
      {"SSSTTT", "___|", 6},
      {"TSSSTTT", "___|", 7},  // no room for the opening bar
      {"TTT", "", 3},
      {"", "", 0},
  };
  for (const auto& [sources, spells, columns] : cases) {
    SCOPED_TRACE(sources);
    const auto plot = MakeQuestionPlot(kIdentity, 1, Asked(sources));
    EXPECT_EQ(plot.PlotRows[16], spells);
    EXPECT_EQ(plot.columns, columns);
  }
}

TEST(QuestionPlot, PastesWithItsRowsUnderEachOther) {
  Episode episode = Asked("TTSTTTTTTTTT");
  episode.questions[1].codes[Dimension::response] = CodeOf(Dimension::response, "N");
  const std::string text = TextOf(MakeQuestionPlot(kIdentity, 1, episode));
  EXPECT_TRUE(text.starts_with("QPLOT\t7-12-3 Episode 1\nTotal Number of Questions: 12\n\n"));
  for (const char* part :
       {"\nSource            \tS\t  \u2588         \n                  \tT\t\u2591",
        "\nRESPONSE          \tN\t \u2591          \n", "\nQUESTIONS         \t\t123456789012\n"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
  }
}

}  // namespace
}  // namespace orvex
