#include "reports/question_list.h"

#include <algorithm>

#include "model/activities.h"
#include "model/dimensions.h"
#include "reports/class_picture.h"
#include "reports/time_axis.h"

namespace orvex {
namespace {

/// When a question was asked: by the clock, which a log has that has the question.
std::string TimeText(const ClassPicture::QuestionTick& tick, const ClassPicture& picture) {
  return tick.isTimed && picture.begin ? ClockText(*picture.begin + tick.second) : "";
}

std::string ActivityText(const Episode& episode, const questionInfo& question) {
  const SegmentData* const segment = SegmentOf(episode, question);
  return segment ? ActivityName(segment->activityNum) : "";
}

}  // namespace

QuestionList MakeQuestionList(const EpisodeList& episodes, const ClassPicture& picture) {
  QuestionList list;
  const bool hasTimes =
      std::ranges::any_of(picture.questions, [](const auto& tick) { return tick.isTimed; });
  list.columns = {{"No."}, {"Activity"}, {"Question"}};
  if (hasTimes) list.columns.insert(list.columns.begin() + 1, {"Time"});
  for (const DimensionScheme& scheme : kDimensionSchemes) {
    list.columns.push_back({scheme.label, scheme.HasLetters()});
  }
  for (const ClassPicture::QuestionTick& tick : picture.questions) {
    const Episode& episode = episodes[static_cast<std::size_t>(tick.episode - 1)];
    const questionInfo& question = episode.questions[static_cast<std::size_t>(tick.number - 1)];
    auto& row = list.rows.emplace_back();
    row = {std::to_string(tick.episode) + "." + std::to_string(tick.number)};
    if (hasTimes) row.push_back(TimeText(tick, picture));
    row.push_back(ActivityText(episode, question));
    row.push_back(question.question);
    for (const std::string_view code : question.Texts().values) row.emplace_back(code);
  }
  return list;
}

}  // namespace orvex
