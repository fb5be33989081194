#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "model/episode.h"
#include "reports/class_picture.h"

namespace orvex::test {

/// Checks that a picture shows each question of the class once, inside its segment and in the order
/// of its segment, and each segment with the length that it has.
inline void CheckPicture(const ClassPicture& picture, const EpisodeList& episodes) {
  std::size_t question = 0;
  std::size_t block = 0;
  double end = 0;
  double seconds = 0;
  for (std::size_t i = 0; i < episodes.size(); ++i) {
    EXPECT_EQ(picture.episodes.at(i).time.begin, end);
    const std::size_t firstBlock = block;
    for (const SegmentData& segment : episodes[i].segments) {
      const Stretch& time = picture.segments.at(block++).time;
      EXPECT_EQ(time.begin, end) << "segments follow each other";
      EXPECT_EQ(time.Length(), std::max(0.0, static_cast<double>(segment.duration)));
      end = time.end;
    }
    EXPECT_EQ(picture.episodes[i].time.end, end);
    std::map<int, double> latest;  // by segment
    for (const questionInfo& asked : episodes[i].questions) {
      const auto& tick = picture.questions.at(question++);
      EXPECT_EQ(tick.text, asked.question);
      const bool hasSegment =
          asked.iSgQ >= 1 && static_cast<std::size_t>(asked.iSgQ) <= episodes[i].segments.size();
      if (!hasSegment) continue;
      const Stretch& time =
          picture.segments[firstBlock + static_cast<std::size_t>(asked.iSgQ) - 1].time;
      EXPECT_GE(tick.second, time.begin) << tick.text;
      EXPECT_LE(tick.second, time.end) << tick.text;
      EXPECT_GE(tick.second, std::exchange(latest[asked.iSgQ], tick.second)) << tick.text;
    }
  }
  EXPECT_EQ(question, picture.questions.size());
  EXPECT_EQ(block, picture.segments.size());
  EXPECT_EQ(picture.seconds, end);
  for (const double ofGroup : picture.groupSeconds) seconds += ofGroup;
  EXPECT_LE(seconds, end * (1 + 1e-9));
}

}  // namespace orvex::test
