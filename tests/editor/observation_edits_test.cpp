#include "editor/observation_edits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>
#include <string>

#include "editor/edit_history.h"
#include "editor/editor_desk.h"

namespace orvex {
namespace {

using test::Question;
using test::Segment;

/// Builds episodes from a short spelling. "a b c|q1 q2; d e" is two episodes. Segments are named by
/// their about texts ("name:seconds"; 10 seconds by default), questions by their texts.
EpisodeList Spelled(const std::string& spelling) {
  EpisodeList episodes;
  std::istringstream list(spelling);
  for (std::string one; std::getline(list, one, ';');) {
    Episode& episode = episodes.emplace_back();
    const std::size_t bar = std::min(one.find('|'), one.size());
    std::istringstream segments(one.substr(0, bar));
    for (std::string word; segments >> word;) {
      const std::size_t colon = std::min(word.find(':'), word.size());
      const std::string seconds = colon < word.size() ? word.substr(colon + 1) : "10";
      episode.segments.push_back(Segment(6, std::stoi(seconds)));
      episode.segments.back().aboutdata = word.substr(0, colon);
    }
    std::istringstream questions(bar < one.size() ? one.substr(bar + 1) : "");
    for (std::string word; questions >> word;) {
      episode.questions.push_back(Question(std::stoi(word)));
      episode.questions.back().question = word;
    }
  }
  return episodes;
}

std::string SpellingOf(const EpisodeList& episodes) {
  std::string spelling;
  for (const Episode& episode : episodes) {
    if (!spelling.empty()) spelling += "; ";
    for (const SegmentData& segment : episode.segments) {
      if (!spelling.empty() && spelling.back() != ' ') spelling += ' ';
      spelling += segment.aboutdata;
      const int seconds = static_cast<int>(segment.duration);
      if (seconds != 10) spelling += ":" + std::to_string(seconds);
    }
    if (!episode.questions.empty()) spelling += "|";
    for (const questionInfo& question : episode.questions) {
      if (spelling.back() != '|') spelling += ' ';
      spelling += question.question;
    }
  }
  return spelling;
}

/// Applies one edit: "MoveSegments 1 1,3 3" is MoveSegments(episodes, 1, {1, 3}, 3).
std::optional<Place> Edited(EpisodeList& e, const std::string& edit) {
  std::istringstream words(edit);
  std::string name;
  words >> name;
  std::vector<Positions> lists;
  for (std::string word; words >> word;) {
    std::istringstream numbers(word == "-" ? "" : word);
    lists.emplace_back();
    for (std::string number; std::getline(numbers, number, ',');) {
      lists.back().push_back(std::stoi(number));
    }
  }
  const auto number = [&lists](std::size_t i) { return lists.at(i).at(0); };
  const auto place = [&lists](std::size_t i) {
    return Place{lists.at(i).at(0), lists.at(i).at(1)};
  };
  if (name == "MoveSegments") return MoveSegments(e, number(0), lists.at(1), number(2));
  if (name == "ReorderSegments") return ReorderSegments(e, number(0), lists.at(1), number(2));
  if (name == "InsertSegments") return InsertSegments(e, number(0), lists.at(1), place(2));
  if (name == "SplitSegment") return SplitSegment(e, place(0), number(1));
  if (name == "MergeSegments") return MergeSegments(e, number(0), lists.at(1));
  if (name == "SplitEpisode") return SplitEpisode(e, number(0), lists.at(1), lists.at(2));
  return MergeEpisodes(e, lists.at(0));
}

TEST(ObservationEdits, RestructureAsTheyShould) {
  struct Case {
    const char* before;
    const char* edit;
    const char* after;  ///< the same pointer as `before` when nothing should change
    Place next;
  };
  const char* const kFive = "a b c d e|1 2 3 4 5";
  const char* const kThree = "a b c|1; d e|2; f g h|3";
  const Case cases[] = {
      {kThree, "MoveSegments 1 1,3 3", "b|1; d e|2; a c f g h|3", {1, 0}},
      {kThree, "MoveSegments 3 2,3 1", "a b c g h|1; d e|2; f|3", {3, 1}},
      {kThree, "MoveSegments 1 1,2,3 3", "d e|2; a b c f g h|3 1", {2, 0}},
      {kThree, "MoveSegments 2 1,2 1", "a b c d e|1 2; f g h|3", {1, 0}},
      {kThree, "MoveSegments 2 1 2", kThree, {}},
      {kThree, "MoveSegments 2 - 1", kThree, {}},
      {kThree, "MoveSegments 2 3 1", kThree, {}},
      {kFive, "ReorderSegments 1 1,3 4", "b d a c e|1 2 3 4 5", {1, 3}},
      {kFive, "ReorderSegments 1 3,5 2", "a c e b d|1 2 3 4 5", {1, 2}},
      {kFive, "ReorderSegments 1 1,4 2", kFive, {}},
      {kThree, "InsertSegments 1 2,3 3,2", "a|1; d e|2; f b c g h|3", {3, 2}},
      {kThree, "InsertSegments 1 2 3,1", "a c|1; d e|2; b f g h|3", {3, 1}},
      {kThree, "InsertSegments 1 1,2,3 2,2", "d a b c e|2 1; f g h|3", {1, 2}},
      {kThree, "InsertSegments 3 1,3 1,3", "a b f h c|1; d e|2; g|3", {1, 3}},
      {kFive, "InsertSegments 1 1,2 1,5", "c d a b e|1 2 3 4 5", {1, 3}},
      {kFive, "InsertSegments 1 4,5 1,1", "d e a b c|1 2 3 4 5", {1, 1}},
      {kFive, "InsertSegments 1 1,3 1,4", "b a c d e|1 2 3 4 5", {1, 2}},
      {kFive, "InsertSegments 1 2,4 1,6", "a c e b d|1 2 3 4 5", {1, 4}},
      {kFive, "InsertSegments 1 2 1,3", kFive, {}},
      {"x a:100", "SplitSegment 1,2 30", "x a:70 a:30", {1, 3}},
      {"a:100", "SplitSegment 1,1 0", "a:100 a:0", {1, 2}},
      {"a:100 b", "SplitSegment 1,1 100", "a:0 a:100 b", {1, 2}},
      {kFive, "SplitSegment 1,1 11", kFive, {}},
      {"a b:20 c d:40 e", "MergeSegments 1 2,4", "a b:60 c e", {1, 2}},
      {kFive, "MergeSegments 1 2", kFive, {}},
      {kFive, "SplitEpisode 1 2,5 5,1", "a c d|2 3 4; b e|1 5", {1, 0}},
      {kThree, "SplitEpisode 2 1 -", "a b c|1; e|2; d; f g h|3", {2, 0}},
      {kThree, "SplitEpisode 2 1,2 -", kThree, {}},
      {kThree, "SplitEpisode 2 - 1", kThree, {}},
      {kThree, "MergeEpisodes 1,3", "a b c f g h|1 3; d e|2", {1, 0}},
      {kThree, "MergeEpisodes 2", kThree, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.edit);
    EpisodeList episodes = Spelled(c.before);
    const auto next = Edited(episodes, c.edit);
    EXPECT_EQ(SpellingOf(episodes), c.after);
    EXPECT_EQ(next.has_value(), c.after != c.before);
    EXPECT_EQ(next.value_or(Place{}), c.next);
  }
}

TEST(ObservationEdits, CarryDescriptionsOfftaskAndCodesAlong) {
  EpisodeList episodes = Spelled("a b|1; c; d");
  for (int i = 0; i < 3; ++i) {
    Episode& episode = episodes[static_cast<std::size_t>(i)];
    episode.Descript = "Part " + std::to_string(i + 1);
    episode.offtask = static_cast<float>(10 * (i + 1));
  }
  episodes[0].bReview = "Y";
  episodes[0].segments[0].src = 3;
  SplitSegment(episodes, {1, 1}, 4);
  EXPECT_EQ(episodes[0].segments[1].src, 3);
  MergeEpisodes(episodes, {1, 2, 3});
  EXPECT_EQ(episodes[0].Descript, "Part 1Part 2Part 3");
  EXPECT_EQ(episodes[0].offtask, 20.0F);
  EXPECT_EQ(episodes[0].bReview, "Y");
  SplitEpisode(episodes, 1, {1}, {1});
  EXPECT_EQ(episodes[1].Descript, "Part 1Part 2Part 3");
  EXPECT_EQ(episodes[1].offtask, 0.0F);
  EXPECT_EQ(episodes[1].bReview, "");
}

TEST(ObservationEdits, TypedDurationsAreTakenModulo20000) {
  const std::pair<const char*, float> cases[] = {
      {"20005", 5.0F}, {"19999", 19999.0F}, {"0", 0.0F}, {" 12.5 ", 12.0F}, {"13.5", 14.0F},
      {"", 77.0F},     {"-5", 77.0F},       {"1e3", 77}, {"abc", 77.0F},
  };
  for (const auto& [typed, seconds] : cases) {
    SegmentData segment = Segment(5, 77);
    SetSegmentDuration(segment, typed);
    EXPECT_EQ(segment.duration, seconds) << typed;
  }
}

/// Random edits, and what must hold for the whole observation after each.
struct RandomEdits {
  int Up(int most) { return std::uniform_int_distribution<int>(1, std::max(most, 1))(random); }
  Positions Some(std::size_t count) {
    Positions some;
    for (int i = 1; i <= static_cast<int>(count); ++i) {
      if (Up(3) == 1) some.push_back(i);
    }
    return some;
  }

  void Edit() {
    const int ep = Up(static_cast<int>(episodes.size()));
    const int other = Up(static_cast<int>(episodes.size()));
    Episode& episode = *ItemAt(episodes, ep);
    const Positions segments = Some(episode.segments.size());
    const int sg = Up(static_cast<int>(episode.segments.size()));
    SegmentData* const segment = ItemAt(episode.segments, sg);
    switch (Up(12)) {  // split more often than merge, so that there is always something to edit
      case 1:
        return void(MoveSegments(episodes, ep, segments, other));
      case 2:
        return void(ReorderSegments(episodes, ep, segments, sg));
      case 3:
        return void(InsertSegments(episodes, ep, segments, {other, Up(5)}));
      case 4:
      case 10:
      case 11:
        return void(SplitSegment(episodes, {ep, sg}, Up(100) - 1));
      case 5:
        return void(MergeSegments(episodes, ep, segments));
      case 6:
      case 12:
        return void(SplitEpisode(episodes, ep, segments, Some(episode.questions.size())));
      case 7:
        return void(MergeEpisodes(episodes, {std::min(ep, other), std::max(ep, other)}));
      case 8:
        return RecodeSegment(*segment, Up(17));
      default:
        const float before = segment->duration;
        SetSegmentDuration(*segment, std::to_string(Up(900)));
        typedSeconds += static_cast<double>(segment->duration - before);
    }
  }

  double Seconds() const {
    double seconds = 0;
    for (const Episode& episode : episodes) seconds += episode.duration();
    return seconds;
  }
  std::map<std::string, int> Questions() const {
    std::map<std::string, int> questions;
    for (const Episode& episode : episodes) {
      for (const questionInfo& question : episode.questions) ++questions[question.question];
    }
    return questions;
  }

  std::mt19937 random{20010314};
  EpisodeList episodes;
  double typedSeconds = 0;
};

TEST(ObservationEdits, TenThousandInARowLoseNothingAndAreAllUndone) {
  RandomEdits edits;
  edits.episodes = Spelled("a:90 b:5 c|1 2 3 4 5; d:400 e f|6 7; g h; i j k l|8; m:1200|9 10 11");
  const EpisodeList first = edits.episodes;
  const auto questions = edits.Questions();
  const double seconds = edits.Seconds();
  EditHistory history;
  history.Start(edits.episodes, true);
  int steps = 0;
  for (int i = 0; i < 10000; ++i) {
    edits.Edit();
    if (history.Record(edits.episodes, {.name = std::to_string(i), .before = {}, .after = {}})) {
      ++steps;
    }
    ASSERT_EQ(edits.Seconds(), seconds + edits.typedSeconds) << i;
    ASSERT_TRUE(std::ranges::none_of(
        edits.episodes, [](const Episode& episode) { return episode.segments.empty(); }));
    if (i % 100 != 0) continue;
    ASSERT_EQ(edits.Questions(), questions) << i;
    const std::string bytes = test::FileOf(edits.episodes);
    ASSERT_EQ(test::FileOf(test::ReadBack(bytes)), bytes) << i;
  }
  EXPECT_EQ(edits.Questions(), questions);
  EXPECT_GT(steps, 5000);

  const EpisodeList last = edits.episodes;
  int undone = 0;
  for (; history.NextUndo(); ++undone) history.Undo(edits.episodes);
  EXPECT_EQ(undone, steps);
  EXPECT_EQ(edits.episodes, first);
  EXPECT_TRUE(history.IsSaved());
  while (history.NextRedo()) history.Redo(edits.episodes);
  EXPECT_EQ(edits.episodes, last);
}

}  // namespace
}  // namespace orvex
