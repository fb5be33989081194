#include "reports/asked_question.h"

#include <cstddef>

namespace orvex {

std::vector<AskedQuestion> QuestionsOf(const EpisodeList& episodes) {
  std::vector<AskedQuestion> asked;
  double episodeBegin = 0;
  int episodeNumber = 0;
  for (const Episode& episode : episodes) {
    ++episodeNumber;
    // How many questions each segment has, and how many of them have been placed.
    std::vector<std::size_t> counts(episode.segments.size());
    std::vector<std::size_t> placed(episode.segments.size());
    std::vector<double> begins;
    double end = episodeBegin;
    for (const SegmentData& segment : episode.segments) {
      begins.push_back(end);
      end += segment.duration;
    }
    const auto positionOf = [&](const questionInfo& question) {
      return static_cast<std::size_t>(SegmentOf(episode, question) - episode.segments.data());
    };
    for (const questionInfo& question : episode.questions) {
      if (SegmentOf(episode, question)) ++counts[positionOf(question)];
    }
    int number = 0;
    for (const questionInfo& question : episode.questions) {
      AskedQuestion& place =
          asked.emplace_back(AskedQuestion{&question, episodeNumber, ++number, episodeBegin});
      if (const SegmentData* segment = SegmentOf(episode, question)) {
        const std::size_t position = positionOf(question);
        const auto before = static_cast<double>(placed[position]++) + 0.5;
        place.second =
            begins[position] + segment->duration * before / static_cast<double>(counts[position]);
      }
    }
    episodeBegin = end;
  }
  return asked;
}

}  // namespace orvex
