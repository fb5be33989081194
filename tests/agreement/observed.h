#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "agreement/observed_class.h"
#include "agreement/question_pairs.h"

namespace orvex::test {

/// A question, and its letters of Source, Response and Authenticity; "-" for one left out.
struct Wrote {
  Wrote(std::string wording, std::string codes = "TYN")
      : text(std::move(wording)), letters(std::move(codes)) {}
  Wrote(const char* wording) : Wrote(std::string(wording)) {}
  std::string text;
  std::string letters;
};

/// A class of one segment of question/answer, as the observer `initials` wrote it down: 5-12-3 by
/// AB, 5-12-4 by anyone else. The questions were asked at intervals of 10 seconds.
inline ObservedClass Observed(const std::string& initials, const std::vector<Wrote>& questions) {
  const std::string number = initials == "AB" ? "3" : "4";
  ObservedClass observed{.file = "5-12-" + number + ".eps"};
  observed.observation.header.identity = {initials, "5", "12", number, "25"};
  observed.observation.header.ObservDate = "03-02-2026";
  Episode& episode = observed.observation.Episodes.emplace_back();
  SegmentData& segment = episode.segments.emplace_back();
  segment.activityNum = 5;
  segment.duration = 10.0F * static_cast<float>(questions.size());
  for (const Wrote& wrote : questions) {
    questionInfo& question = episode.questions.emplace_back();
    DimensionTexts texts;
    texts[Dimension::source] = std::string_view(wrote.letters).substr(0, 1);
    texts[Dimension::response] = std::string_view(wrote.letters).substr(1, 1);
    texts[Dimension::authenticity] = std::string_view(wrote.letters).substr(2, 1);
    question.SetValue(wrote.text, texts, 1, 1);
  }
  return observed;
}

/// The pairs as text, "1-1 2- -2".
inline std::string InShort(const QuestionPairs& pairs) {
  const auto number = [](std::optional<std::size_t> question) {
    return question ? std::to_string(*question + 1) : std::string();
  };
  std::string text;
  for (const QuestionPair& pair : pairs) {
    text += (text.empty() ? "" : " ") + number(pair.first) + "-" + number(pair.second);
  }
  return text;
}

}  // namespace orvex::test
