#pragma once

#include <cstddef>
#include <random>
#include <string>

#include "model/activities.h"
#include "model/episode.h"
#include "reports/class_log.h"

namespace orvex {

/// A class with so many questions, every fifth of them "Why?", and its log. One question in
/// `changed` was reworded or dropped afterwards.
struct LongClass {
  LongClass(std::size_t count, unsigned changed) {
    std::mt19937 random(16);
    log.begin = 9 * 3600;
    constexpr std::size_t kEpisodes = 10;
    constexpr std::size_t kSeconds = 600;
    episodes.resize(kEpisodes);
    for (Episode& episode : episodes) {
      episode.segments.emplace_back().SetData(kQuestionAnswer, static_cast<float>(kSeconds));
    }
    for (std::size_t i = 0; i < count; ++i) {
      const std::string text =
          i % 5 == 0 ? "Why?"
                     : "What does the author mean in line " + std::to_string(random()) + "?";
      const double second = static_cast<double>(kSeconds * kEpisodes * i / count);
      log.questions.push_back({{.second = second}, text});
      const bool isChanged = random() % changed == 0;
      if (isChanged && i % 2 == 0) continue;
      questionInfo& asked = episodes[i * kEpisodes / count].questions.emplace_back();
      asked.SetNormal();
      asked.iSgQ = 1;
      asked.question = isChanged ? text + " And why?" : text;
    }
  }

  EpisodeList episodes;
  ClassLog log;
};

}  // namespace orvex
