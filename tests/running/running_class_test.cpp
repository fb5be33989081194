#include "running/running_class.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "model/time_of_day.h"

namespace orvex {
namespace {

/// A class that starts shortly before midnight and follows a script of letters and numbers.
struct Played {
  explicit Played(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) Do(word[0], std::stoi("0" + word.substr(1)));
  }

  void Do(char letter, int number) {
    switch (letter) {
      case '+':  // the given number of seconds passes
        now += static_cast<float>(number);
        if (now >= kSecondsPerDay) now -= kSecondsPerDay;
        break;
      case 'd':  // types a description
        episodes.back().Descript = "Poems";
        run.coding.choicesVisible = true;
        run.nothingEntered = false;
        break;
      case 'a':
        run.ChooseActivity(number, episodes, now);
        break;
      case 'x':
        run.AbandonQuestionAnswer(episodes);
        break;
      case 's':
        run.StartSegment(episodes, now);
        break;
      case 'e':
        run.StartEpisode(episodes, now);
        break;
      case 'E':
        before = run.EndEpisode(episodes, now);
        break;
      case 'G':
        run.GoOn(episodes, before);
        break;
      case 'U':
        run.TakeUp(episodes, now);
        break;
      case '>':
        run.ConvertToEpisode(episodes);
        break;
      case '<':
        run.ConvertToSegment(episodes);
        break;
      case 't':  // the segment began this many seconds ago
        run.CorrectTime(now, static_cast<float>(number));
        break;
      case 'q':
        episodes.back().questions.emplace_back();
        break;
      case 'o':  // an estimate in percent
        run.RecordEstimate(static_cast<float>(number) / 100, estimates);
        break;
    }
  }

  /// "Ep. 2 Sg. 1 of 4, 40 s 40 s: 1 60, / (1 of 0.5)": the running segment, its activity, and how
  /// long episode and segment have run; then each episode's segments, questions and estimate.
  std::string State() const {
    std::ostringstream state;
    state << "Ep. " << run.curEpisode << " Sg. " << run.curSegment << " of " << run.ChosenActivity()
          << ", " << SecondsSince(run.episodeStart, now) << " s "
          << SecondsSince(run.segmentStart, now) << " s:";
    for (const Episode& episode : episodes) {
      if (&episode != episodes.data()) state << " /";
      for (const SegmentData& segment : episode.segments) {
        state << " " << segment.activityNum << " " << segment.duration << ",";
      }
      if (episode.nQAs() > 0) state << " (" << episode.nQAs() << " of " << episode.offtask << ")";
    }
    return state.str();
  }
  /// What the observer can do, out of "segment episode review proof survey end" and ">" or "<".
  std::string Allowed() const {
    const AllowedActions allowed = run.Allowed(episodes);
    std::string text;
    for (const auto& [action, can] : {std::pair{"segment ", allowed.segment},
                                      {"episode ", allowed.episode},
                                      {"review ", allowed.review},
                                      {"proof ", allowed.proof},
                                      {"survey ", allowed.survey},
                                      {"end ", allowed.end},
                                      {">", allowed.conversion == Conversion::toEpisode},
                                      {"<", allowed.conversion == Conversion::toSegment}}) {
      if (can) text += action;
    }
    return text;
  }

  float now = kSecondsPerDay - 100;
  RunningClass run = RunningClass::Begun(now);
  EpisodeList episodes{Episode{}};
  EstimatesByCategory estimates;
  BeforeEnd before;
};

TEST(RunningClass, GoesFromSegmentToSegment) {
  const std::pair<const char*, const char*> cases[] = {
      {"d a10 +150 s", "Ep. 1 Sg. 2 of 0, 150 s 0 s: 10 150,"},
      {"d a10 +150 s a4 +20 e +5", "Ep. 2 Sg. 1 of 0, 5 s 5 s: 10 150, 4 20, /"},
      {"d a14 +30 a4 +30", "Ep. 1 Sg. 1 of 4, 60 s 60 s:"},
      // A question/answer segment is given up, then what follows.
      {"d a8 +10 s a5 +5 x", "Ep. 1 Sg. 2 of 0, 15 s 5 s: 8 10,"},
      {"d a8 +10 s a5 +5 x a9 +5 s", "Ep. 1 Sg. 3 of 0, 20 s 0 s: 8 10, 9 10,"},
      // A segment becomes an episode with estimates of its own.
      {"d a1 +60 s a4 +30 > +10", "Ep. 2 Sg. 1 of 4, 40 s 40 s: 1 60, /"},
      {"d a5 q o50 o30 +60 s a5 > q o10 e",
       "Ep. 3 Sg. 1 of 0, 0 s 0 s: 5 60, (1 of 0.4) / "
       "5 0, (1 of 0.1) /"},
      // An episode becomes a segment: its questions are dropped, but its activity goes on.
      {"d a10 +100 e q +20 <", "Ep. 1 Sg. 2 of 0, 120 s 20 s: 10 100,"},
      {"d a10 +100 e q +20 < a11 +5 s", "Ep. 1 Sg. 3 of 0, 125 s 0 s: 10 100, 11 25,"},
      {"d a5 e d a4 < s", "Ep. 1 Sg. 3 of 0, 0 s 0 s: 5 0, 4 0,"},
      {"d a5 q o50 e d a5 o10 < o30 e", "Ep. 2 Sg. 1 of 0, 0 s 0 s: 5 0, 5 0, (1 of 0.4) /"},
      // The end of class is refused, or the program quits during it.
      {"d a5 q o50 +600 E G +60", "Ep. 1 Sg. 1 of 5, 660 s 660 s: (1 of 0)"},
      {"d a3 +600 E U +60 s", "Ep. 1 Sg. 2 of 0, 660 s 0 s: 3 660,"},
      {"d a1 +60 s +90 t120", "Ep. 1 Sg. 2 of 0, 180 s 120 s: 1 60,"},
      {"d a1 +60 s +90 t0", "Ep. 1 Sg. 2 of 0, 60 s 0 s: 1 60,"},
  };
  for (const auto& [script, state] : cases) EXPECT_EQ(Played(script).State(), state) << script;
}

TEST(RunningClass, AllowsWhatItsStateHasRoomFor) {
  const std::string all = "segment episode review ";
  const std::pair<const char*, std::string> cases[] = {
      {"", "end "},
      {"d", ""},
      {"d a1", all + "survey end "},
      {"d a1 q", all + "proof survey end "},
      {"d a1 s", ">"},
      {"d a1 s a1", all + "survey end >"},
      {"d a1 e", "<"},
      {"d a5 x", ""},
      {"d a1 s a5 x", ">"},
  };
  for (const auto& [script, allowed] : cases)
    EXPECT_EQ(Played(script).Allowed(), allowed) << script;

  Played full("d a1");
  full.run.curSegment = 40000;  // possible after joining episodes
  EXPECT_EQ(full.Allowed(), "episode review survey end >");
  full.run.curEpisode = 32767;
  EXPECT_EQ(full.Allowed(), "review survey end ");
  full.run.awaitsSurvey = true;
  EXPECT_EQ(full.Allowed(), "survey end ");
}

TEST(RunningClass, KeepsOfItsCodesWhatItsActivityCarries) {
  for (std::int16_t activity = 1; activity <= 17; ++activity) {
    SCOPED_TRACE(activity);
    Played played("d");
    played.Do('a', activity);
    SegmentCoding& coding = played.run.coding;
    coding.about = "a poem";
    coding.Chosen(SubCode::writing) = 0;
    coding.Chosen(SubCode::groupWork) = 4;
    coding.Chosen(SubCode::groupSolo) = 0;
    coding.Chosen(SubCode::preparation) = 1;
    coding.Chosen(SubCode::organization) = 1;
    coding.Typed(SubCode::seatworkSource) = activity == 15 ? "Homework" : "homework";
    coding.Typed(SubCode::seatworkLevel) = "higher order";
    coding.Typed(SubCode::seatworkOrganization) = "S";

    const bool presentation = activity == 7;
    const bool seatwork = activity >= 14 && activity <= 16;
    SegmentData expected;
    expected.activityNum = activity;
    if (activity == 4 || activity == 6 || activity == 12) expected.aboutdata = "a poem";
    if (seatwork || activity == 17) expected.fSubCat = seatwork ? 0 : 4;
    expected.grpSolo = presentation ? 0 : 1;
    if (presentation) expected.prep = 1;
    expected.org = presentation || seatwork ? 1 : 0;
    if (seatwork && activity != 15) expected.src = 2;
    if (seatwork) expected.coglvl = 1;
    EXPECT_EQ(played.run.Segment(0), expected);
    // Another activity resets the codes, but not what the segment is about.
    played.Do('a', activity == 16 ? 15 : 16);
    EXPECT_EQ(played.run.Segment(0).fSubCat, kUncoded);
    played.Do('a', 12);
    EXPECT_EQ(played.run.Segment(0).aboutdata, "a poem");
  }
}

TEST(RunningClass, FilesAnEstimateUnderTheKindOfItsActivity) {
  const std::pair<int, std::size_t> filed[] = {{4, 0}, {14, 1}, {15, 2}, {16, 3},
                                               {5, 4}, {8, 5},  {17, 6}};
  for (const auto& [activity, position] : filed) {
    Played played("d a" + std::to_string(activity) + " o50");
    EXPECT_EQ(played.estimates[position], std::vector<float>{0.5F}) << activity;
    EXPECT_EQ(played.run.offtaskEstimates.size(), activity == kQuestionAnswer ? 1U : 0U);
  }
}

}  // namespace
}  // namespace orvex
