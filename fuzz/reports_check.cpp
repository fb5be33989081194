#include <cstddef>

#include "fuzz/checks.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "store/eps_reader.h"
#include "store/text_encoding.h"
#include "study/reading_with_warnings.h"
#include "tables/episode_rows.h"
#include "tables/observation_json.h"
#include "tables/tidy_tables.h"

namespace orvex::fuzz {
namespace {

/// Reads as the export does: with the counts that the file states, and a row for each episode.
class Rows : public ReadingWithWarnings {
 public:
  Rows() : ReadingWithWarnings(nullptr) {}

  bool WantsCounts() const override { return true; }
  void EpisodeRead(int ep, const Episode& episode, const QuestionCounts& stated) override {
    AppendEpisodeRow({"5", "12", "3"}, ep, episode, stated, text);
  }

  std::string text;
};

/// The reports of an observation as the user reads them.
std::string ReportsOf(const EpsObservation& observation) {
  std::string text = TextOf(MakeTimeSummary(observation.header, observation.Episodes));
  int number = 0;
  for (const Episode& episode : observation.Episodes) {
    ++number;
    const Identity& identity = observation.header.identity;
    text += TextOf(MakeQuestionStatistics(identity, number, episode));
    text += TextOf(MakeQuestionPlot(identity, number, episode));
  }
  return text;
}

/// The observation's rows in the tables for statistics programs.
std::string TablesOf(const ObservationContent& observation) {
  std::string rows;
  for (const TidyTable table : kTidyTables) AppendTidyRows(table, observation, rows);
  return rows;
}

std::ptrdiff_t Lines(std::string_view text) {
  return std::ranges::count(text, '\n');
}

}  // namespace

/// Checks that whatever an episode file holds can be reported. Returns the rows of the export.
std::optional<std::string> CheckReports(std::string_view bytes) {
  Rows rows;
  ObservationContent observation = {.name = "5-12-3.eps"};
  observation.episodes =
      Accepted(bytes, [&](std::string_view file) { return ParseEps(std::string(file), rows); });
  if (!observation.episodes) return std::nullopt;
  const EpisodeList& episodes = observation.episodes->Episodes;
  std::ptrdiff_t records = std::ssize(episodes);
  Require(Lines(rows.text) == records, "an episode has one row");
  for (const Episode& episode : episodes) {
    records += std::ssize(episode.segments) + std::ssize(episode.questions);
  }
  const std::string tables = TablesOf(observation);
  constexpr std::ptrdiff_t kRowOfTheClass = 1;
  Require(Lines(tables) == records + kRowOfTheClass,
          "whatever a row holds, it is one line of a table");
  const std::string json = ObservationJson(observation);
  Require(std::ranges::none_of(json, [](char c) { return c >= 0 && c < ' '; }),
          "JSON has no control characters");
  Require(Decode(ReportsOf(*observation.episodes) + tables + json).encoding == Encoding::utf8,
          "reports are UTF-8");
  return rows.text;
}

}  // namespace orvex::fuzz
