// The three reports of whole observations, beside what another program says of them.

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>
#include <string>

#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using Line = StatisticsLine;

struct NothingToSay : EpsReadEvents {
  bool ContinueWithEarlierVersion() override { return false; }
  void FirstSegmentRepaired(int) override {}
};

const std::pair<const char*, Line> kBars[] = {
    {"Normal", Line::normal},
    {"Source", Line::source},
    {"AuthTQ", Line::authenticTeacher},
    {"AuthSQ", Line::authenticStudent},
    {"HLevQ", Line::higherLevel},
    {"NoRespT", Line::nonresponse},
    {"Uptake1", Line::uptake},
    {"ELAB", Line::elaborated},
    {"TResponse1", Line::teacherResponse},
    {"PFMany", Line::relatedToPrevious},
};
const std::pair<const char*, Line> kHeadings[] = {
    {"Label31", Line::source},
    {"Label19", Line::uptake},
    {"Label6", Line::elaborated},
    {"Label9", Line::teacherResponse},
};
const std::pair<const char*, Line> kCounts[] = {
    {"0", Line::total},       {"6", Line::authenticTeacher}, {"7", Line::authenticStudent},
    {"8", Line::higherLevel}, {"11", Line::nonresponse},     {"4", Line::relatedToPrevious},
};

std::string Text(const QJsonValue& value) {
  return value.toString().toStdString();
}

/// Reads a member that must be there.
QJsonValue Get(const QJsonObject& object, const char* name) {
  EXPECT_TRUE(object.contains(QLatin1String(name))) << name;
  return object.value(QLatin1String(name));
}

void ExpectBars(const QJsonObject& expected, const QuestionStatistics& statistics) {
  const QJsonObject bars = Get(expected, "bars").toObject();
  EXPECT_EQ(bars.size(), std::ssize(kBars));
  for (const auto& [name, line] : kBars) {
    SCOPED_TRACE(name);
    const QJsonArray segments = Get(bars, name).toArray();
    const auto& bar = statistics.Row(line).bar;
    ASSERT_GE(std::ssize(bar), segments.size());
    for (int i = 0; i < segments.size(); ++i) {
      const QJsonArray segment = segments.at(i).toArray();
      const BarSegment& drawn = bar[static_cast<std::size_t>(i)];
      EXPECT_NEAR(drawn.left, segment.at(0).toDouble(), 1e-9);
      EXPECT_NEAR(drawn.width, segment.at(1).toDouble(), 1e-9);
      EXPECT_EQ(drawn.caption, Text(segment.at(2)));
    }
  }
  const BarSegment& rest = statistics.Row(Line::nonresponse).bar.at(1);
  const QJsonObject yellow = Get(expected, "NoRespT1").toObject();
  EXPECT_EQ(rest.coding == Coding::no, Get(yellow, "yellow").toBool());
  EXPECT_EQ(rest.caption, Text(Get(yellow, "caption")));
  EXPECT_EQ(rest.width, kBarLength);
}

void ExpectStatistics(const QJsonObject& expected, const QuestionStatistics& statistics) {
  EXPECT_EQ(statistics.title, Text(Get(expected, "Label14")));
  const QJsonObject counts = Get(expected, "Label1").toObject();
  for (const auto& [index, line] : kCounts) {
    EXPECT_EQ(statistics.Row(line).count, Text(counts.value(QLatin1String(index)))) << index;
  }
  const QJsonArray messages = Get(expected, "messages").toArray();
  EXPECT_EQ(statistics.message, Text(messages.at(0)));
  EXPECT_EQ(statistics.pace, Text(expected.value(QLatin1String("Label13"))));
  EXPECT_EQ(statistics.offtask, Text(expected.value(QLatin1String("Label15"))));
  if (!expected.contains(QLatin1String("bars"))) return;
  for (const auto& [label, line] : kHeadings) {
    EXPECT_EQ(statistics.Row(line).heading, Text(Get(expected, label)));
  }
  ExpectBars(expected, statistics);
}

void ExpectPlot(const QJsonObject& expected, const QuestionPlot& plot) {
  for (std::size_t row = 0; row < kPlotRows; ++row) {
    EXPECT_EQ(plot.PlotRows[row], Text(Get(expected, std::to_string(row).c_str()))) << row;
  }
}

void ExpectTimeSummary(const QJsonObject& expected, const TimeSummary& summary) {
  EXPECT_EQ(summary.title, Text(Get(expected, "Label53")));
  EXPECT_EQ(summary.nonInstructional, Text(Get(expected, "nonInstructional")));
  EXPECT_EQ(summary.instructional, Text(Get(expected, "instructional")));
  EXPECT_EQ(summary.total, Text(Get(expected, "total")));
  std::map<int, std::pair<int, TimeSummaryRow>> rows;  // by activity, with the block
  for (std::size_t block = 0; block < summary.blocks.size(); ++block) {
    for (const TimeSummaryRow& row : summary.blocks[block].rows) {
      rows[row.activity] = {static_cast<int>(block + 1), row};
    }
  }
  const QJsonArray expectedRows = Get(expected, "rows").toArray();
  ASSERT_EQ(expectedRows.size(), std::ssize(rows));
  for (const QJsonValue& value : expectedRows) {
    const QJsonArray row = value.toArray();
    const auto& [block, shown] = rows[row.at(1).toInt()];
    EXPECT_EQ(block, row.at(0).toInt());
    EXPECT_EQ(shown.name, Text(row.at(2)));
    EXPECT_EQ(shown.time, Text(row.at(3)));
    EXPECT_EQ(shown.offtask, Text(row.at(4)));
  }
}

TEST(Reports, SayOfEverySampleWhatAnotherProgramSays) {
  int observations = 0;
  int episodes = 0;
  for (const char* folder : {"class", "odd"}) {
    const auto files = test::SamplesFolder() / folder;
    for (const auto& entry : std::filesystem::directory_iterator(files / "expected")) {
      if (entry.path().extension() != ".json") continue;
      SCOPED_TRACE(entry.path().string());
      const std::string json = test::FileBytes(entry.path());
      const QJsonObject expected =
          QJsonDocument::fromJson(QByteArray::fromStdString(json)).object();
      NothingToSay events;
      const auto eps = files / entry.path().filename().replace_extension(".eps");
      const EpsObservation observation = ReadEpsFile(eps, events);
      const Identity& identity = observation.header.identity;
      ++observations;
      ExpectTimeSummary(Get(expected, "timeSummary").toObject(),
                        MakeTimeSummary(observation.header, observation.Episodes));
      const QJsonArray list = Get(expected, "episodes").toArray();
      ASSERT_EQ(list.size(), std::ssize(observation.Episodes));
      for (int i = 0; i < list.size(); ++i) {
        SCOPED_TRACE(i + 1);
        ++episodes;
        const QJsonObject episode = list.at(i).toObject();
        const Episode& of = observation.Episodes[static_cast<std::size_t>(i)];
        ExpectStatistics(Get(episode, "statistics").toObject(),
                         MakeQuestionStatistics(identity, i + 1, of));
        ExpectPlot(Get(episode, "plot").toObject(), MakeQuestionPlot(identity, i + 1, of));
      }
    }
  }
  EXPECT_GE(observations, 10);
  RecordProperty("observations", observations);
  RecordProperty("episodes", episodes);
}

}  // namespace
}  // namespace orvex
