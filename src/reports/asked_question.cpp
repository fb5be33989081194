#include "reports/asked_question.h"

#include <cstddef>

#include "reports/class_log.h"

namespace orvex {
namespace {

/// The questions of one segment in their order, while they are put in their places.
struct SegmentQuestions {
  double begin = 0;
  double end = 0;
  std::vector<std::size_t> positions = {};  ///< among all questions
};

/// Spreads the questions from one position in their segment to another over a time.
void Spread(const SegmentQuestions& segment, std::size_t from, std::size_t to, double begin,
            double end, std::vector<AskedQuestion>& asked) {
  const auto count = static_cast<double>(to - from);
  for (std::size_t i = from; i < to; ++i) {
    const double before = static_cast<double>(i - from) + 0.5;
    asked[segment.positions[i]].second = begin + (end - begin) * before / count;
  }
}

void Place(const SegmentQuestions& segment, const QuestionTimes& times,
           std::vector<AskedQuestion>& asked) {
  double begin = segment.begin;
  std::size_t from = 0;
  for (std::size_t i = 0; i < segment.positions.size() && !times.empty(); ++i) {
    const auto told = times[segment.positions[i]];
    const auto time = told ? TimeWithin(*told, segment.begin, segment.end) : std::nullopt;
    if (!time || *time < begin) continue;
    Spread(segment, from, i, begin, *time, asked);
    AskedQuestion& question = asked[segment.positions[i]];
    question.second = begin = *time;
    question.isTimed = true;
    from = i + 1;
  }
  Spread(segment, from, segment.positions.size(), begin, segment.end, asked);
}

}  // namespace

std::vector<AskedQuestion> QuestionsOf(const EpisodeList& episodes, const QuestionTimes& times) {
  std::vector<AskedQuestion> asked;
  double end = 0;
  int episodeNumber = 0;
  for (const Episode& episode : episodes) {
    ++episodeNumber;
    const double episodeBegin = end;
    std::vector<SegmentQuestions> segments;
    segments.reserve(episode.segments.size());
    for (const SegmentData& segment : episode.segments) {
      const double begin = end;
      end += TimeOf(segment);
      segments.push_back({.begin = begin, .end = end});
    }
    int number = 0;
    for (const questionInfo& question : episode.questions) {
      if (const SegmentData* segment = SegmentOf(episode, question)) {
        segments[static_cast<std::size_t>(segment - episode.segments.data())].positions.push_back(
            asked.size());
      }
      asked.push_back({&question, episodeNumber, ++number, episodeBegin});
    }
    for (const SegmentQuestions& segment : segments) Place(segment, times, asked);
  }
  return asked;
}

}  // namespace orvex
