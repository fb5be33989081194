#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "study/observation_summary.h"
#include "tables/observation_content.h"
#include "tables/tidy_tables.h"

namespace orvex {

/// What a row is about. Anything its table does not cover is null or 0.
struct TidyRow {
  const ObservationContent& content;
  int number = 0;  ///< the number of the question or segment
  int episodeNumber = 0;
  const Episode* episode = nullptr;
  const std::vector<DialogicSpell>* spells = nullptr;  ///< the episode's
  const questionInfo* question = nullptr;
  const SegmentData* segment = nullptr;
  const ObservationSummary* summary = nullptr;

  /// What the episode file says of the observation as a whole.
  const EpsHeader& Header() const { return content.episodes->header; }
};

/// Hands over the rows of an observation, in their order. They last no longer than the call. There
/// are none where `files` lacks the file that the table is made from.
void ForEachRow(TidyTable table, const ObservationContent& content,
                const std::function<void(const TidyRow&)>& take);

}  // namespace orvex
