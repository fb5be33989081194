#include "reports/class_picture.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "reports/class_log.h"
#include "reports/equal_texts.h"
#include "reports/time_axis.h"
#include "support/class_picture_check.h"

namespace orvex {
namespace {

std::vector<std::string> WordsIn(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// A class of two segments of 100 seconds; the question "b/2" was asked in the second.
EpisodeList Stored(const std::string& questions) {
  EpisodeList episodes(1);
  for (int i = 0; i < 2; ++i) episodes[0].segments.emplace_back().SetData(kQuestionAnswer, 100);
  for (const std::string& word : WordsIn(questions)) {
    questionInfo& question = episodes[0].questions.emplace_back();
    const std::size_t end = std::min(word.find('/'), word.size());
    question.question = word.substr(0, end);
    question.iSgQ = end < word.size() ? static_cast<std::int16_t>(word.back() - '0') : 1;
  }
  return episodes;
}

/// A log in which "b@20" was asked at second 20.
ClassLog Logged(const std::string& questions) {
  ClassLog log;
  log.begin = 36000;
  for (const std::string& word : WordsIn(questions)) {
    const std::size_t at = word.find('@');
    log.questions.push_back({{.second = std::stod(word.substr(at + 1))}, word.substr(0, at)});
  }
  return log;
}

TEST(ClassPicture, PutsQuestionsWhereTheyWereAsked) {
  const struct {
    const char* what;
    const char* stored;
    const char* logged;
    const char* seconds;
  } cases[] = {
      {"as logged", "a b c/2", "a@10 b@20 c@130", "10 20 130 "},
      {"reworded", "a B C d", "a@10 b@20 c@30 d@40", "10 20 30 40 "},
      {"dropped in class", "a c", "a@10 slip@15 c@20", "10 20 "},
      {"dropped afterwards, and one reworded", "B d", "a@10 b@20 c@30 d@40", "10 40 "},
      {"added afterwards", "a new b", "a@10 b@30", "10 ~20 30 "},
      {"moved to the front", "c a b", "a@10 b@20 c@30", "~5 10 20 "},
      {"moved to another segment", "a b/2 c/2", "a@10 b@20 c@130", "10 ~115 130 "},
      {"the same again and again", "a a b a a", "a@10 a@20 a@30 b@40 a@50 a@60", "10 20 40 50 60 "},
      {"the clock was set", "a b c d", "a@10 b@3620 c@30 d@20", "10 ~20 30 ~65 "},
      {"seconds are rounded", "a b/2", "a@102 b@98", "100 100 "},
      {"of another class", "a b", "c@10 d@20", "~25 ~75 "},
      {"no segment", "a/9 b", "a@10 b@20", "~0 20 "},
  };
  for (const auto& [what, stored, logged, seconds] : cases) {
    const ClassLog log = Logged(logged);
    const EpisodeList episodes = Stored(stored);
    const ClassPicture picture = MakeClassPicture({}, episodes, &log);
    std::ostringstream shown;
    for (const auto& tick : picture.questions) {
      shown << (tick.isTimed ? "" : "~") << tick.second << " ";
    }
    EXPECT_EQ(shown.str(), seconds) << what;
  }
}

TEST(ClassPicture, ShowsAnyClassWithAnyLog) {
  std::mt19937 random(16);
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int i = 0; i < 300; ++i) {
    EpisodeList episodes(static_cast<std::size_t>(below(4)));
    ClassLog log;
    log.begin = below(86400);
    for (Episode& episode : episodes) {
      const int segments = below(4);
      for (int segment = 0; segment < segments; ++segment) {
        episode.segments.emplace_back().SetData(static_cast<std::int16_t>(below(20)),
                                                static_cast<float>(below(400) - 20));
        for (int question = below(6); question > 0; --question) {
          questionInfo& asked = episode.questions.emplace_back();
          asked.question = std::string(1, static_cast<char>('a' + below(5)));
          asked.iSgQ = static_cast<std::int16_t>(segment + 1 + (below(9) == 0 ? 1 : 0));
          if (below(5) > 0) log.questions.push_back({{1.0 * below(2000), {}}, asked.question});
        }
      }
    }
    test::CheckPicture(MakeClassPicture({}, episodes, below(3) > 0 ? &log : nullptr), episodes);
  }
}

TEST(EqualTexts, AreAsManyAsCanBe) {
  std::mt19937 random(4);
  for (int i = 0; i < 500; ++i) {
    Texts first(random() % 12);
    Texts second(random() % 12);
    for (Texts* texts : {&first, &second}) {
      for (auto& text : *texts) text = std::string_view("abc").substr(random() % 3, 1);
    }
    std::vector most(first.size() + 1, std::vector<std::size_t>(second.size() + 1));
    for (std::size_t a = 0; a < first.size(); ++a) {
      for (std::size_t b = 0; b < second.size(); ++b) {
        most[a + 1][b + 1] =
            first[a] == second[b] ? most[a][b] + 1 : std::max(most[a][b + 1], most[a + 1][b]);
      }
    }
    const auto equal = EqualTextsInOrder(first, second);
    EXPECT_EQ(equal.size(), most[first.size()][second.size()]);
    for (std::size_t pair = 0; pair < equal.size(); ++pair) {
      EXPECT_EQ(first.at(equal[pair].first), second.at(equal[pair].second));
      if (pair == 0) continue;
      EXPECT_GT(equal[pair].first, equal[pair - 1].first);
      EXPECT_GT(equal[pair].second, equal[pair - 1].second);
    }
  }
}

TEST(TimeAxis, HasRoundMinutes) {
  const struct {
    Stretch shown;
    std::optional<int> begin;
    const char* marks;
  } cases[] = {
      {{0, 0}, {}, "0 min@0 "},
      {{0, 150}, {}, "0 min@0 1 min@60 2 min@120 "},
      {{500, 700}, {}, "9 min@540 10 min@600 11 min@660 "},
      {{500, 700}, 35970, "10:08@510 10:09@570 10:10@630 10:11@690 "},
      {{0, 1500}, 35970, "10:00@30 10:05@330 10:10@630 10:15@930 10:20@1230 "},
      {{0, 1200},
       85800,
       "23:50@0 23:52@120 23:54@240 23:56@360 23:58@480 00:00@600 00:02@720 00:04@840 "
       "00:06@960 00:08@1080 00:10@1200 "},
  };
  for (const auto& [shown, begin, expected] : cases) {
    std::ostringstream marks;
    for (const auto& mark : TimeAxis(shown, begin)) marks << mark.text << "@" << mark.second << " ";
    EXPECT_EQ(marks.str(), expected);
  }
  for (const double seconds : {50.0 * 60, 100.0 * 60, 9e4, 3e38}) {
    EXPECT_LE(TimeAxis({0, seconds}, 3599).size(), 13U) << seconds;
  }
}

}  // namespace
}  // namespace orvex
