#include "editor/episode_view.h"

#include <cstddef>

#include "model/activities.h"
#include "model/texts.h"
#include "model/wording.h"

namespace orvex {
namespace {

std::string SegmentRow(std::size_t number, const SegmentData& segment) {
  return std::to_string(number) + ". " + ActivityName(segment.activityNum);
}

/// "0 Segment", "1 Segment", "2 Segments".
std::string CountText(std::size_t count, Text atMostOne, Text several) {
  return Say(count > 1 ? several : atMostOne, {count});
}

}  // namespace

EpisodeView ViewOf(const EpisodeList& episodes, Place current, bool saysReview) {
  const Episode* const found = ItemAt(episodes, current.episode);
  const Episode none;
  const Episode& episode = found ? *found : none;
  const SegmentData* const segment = ItemAt(episode.segments, current.segment);
  EpisodeView view;
  view.total = CountText(episodes.size(), Text::totalEpisode, Text::totalEpisodes);
  view.hasEpisode = found != nullptr;
  view.hasSegment = segment != nullptr;
  view.hasQuestions = !episode.questions.empty();
  view.description = episode.Descript;
  view.activity = ActivityLabel(episode, saysReview);
  view.spells = Say(Text::spells, {FindDialogicSpells(episode.questions).size()});
  view.duration = DurationInWords(episode.duration());
  view.segmentCount = CountText(episode.segments.size(), Text::segmentCount, Text::segmentsCount);
  view.segmentDurationLabel = Say(Text::notAvailable);
  view.segmentDuration = Say(Text::notAvailable);
  if (segment) {
    view.segmentDurationLabel = Say(Text::durationOfSegment, {current.segment});
    view.segmentDuration = WholeSecondsText(static_cast<double>(segment->duration));
  }
  return view;
}

std::vector<std::string> EpisodeRowsOf(const EpisodeList& episodes) {
  std::vector<std::string> rows;
  rows.reserve(episodes.size());
  for (const Episode& episode : episodes) {
    rows.push_back(std::to_string(rows.size() + 1) + ". " + Shortened(episode.Descript));
  }
  return rows;
}

std::vector<std::string> SegmentRowsOf(const Episode& episode) {
  std::vector<std::string> rows;
  rows.reserve(episode.segments.size());
  for (const SegmentData& segment : episode.segments) {
    rows.push_back(SegmentRow(rows.size() + 1, segment));
  }
  return rows;
}

PossibleEdits PossibleEditsOf(const EpisodeList& episodes, const ListSelection& selection) {
  const Episode* const episode = ItemAt(episodes, selection.episode);
  const SegmentData* const segment =
      episode ? ItemAt(episode->segments, selection.segment) : nullptr;
  const bool isOneSegment = selection.segments.size() == 1;
  const bool isOneEpisode = selection.episodes.size() == 1;
  PossibleEdits possible;
  possible.splitSegment = isOneSegment;
  possible.mergeSegments = !isOneSegment;
  possible.splitEpisode = isOneEpisode && episode && episode->segments.size() >= 2;
  possible.mergeEpisodes = !isOneEpisode;
  if (isOneSegment && segment) {
    possible.splitSegmentHint = Say(
        Text::splitsSegment, {SegmentRow(static_cast<std::size_t>(selection.segment), *segment)});
  }
  return possible;
}

}  // namespace orvex
