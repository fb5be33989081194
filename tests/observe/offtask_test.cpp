// Off-task estimates: when they are due, how they are made, and where they end up.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "model/time_of_day.h"
#include "observe/live_observation.h"
#include "observe/offtask_dialog.h"
#include "observe/offtask_indicator.h"
#include "support/desk.h"

namespace orvex {
namespace {

struct OfftaskTest : testing::Test, test::Desk {
  /// A class of 25 students. The first segment gets its activity at `hour`.
  void Begin(int activity, int hour = 9) {
    clock.Set(hour, 0, 0);
    OpenLog();
    live.emplace(services);
    live->KeyInDescription();
    live->TypeDescription("Poems");
    live->ChooseActivity(activity);
    logRead = 0;
    NewLogText();
  }
  /// Runs the schedule's timer for `seconds`. Returns when each countdown began and when each
  /// estimate became pending, in minutes and seconds of the segment.
  std::string Run(double seconds) {
    std::string seen;
    for (double passed = 0; passed < seconds; passed += 0.5) {
      clock.Advance(0.5);
      const OfftaskSchedule before = live->Running().schedule;
      live->Estimates().Tick();
      const OfftaskSchedule& now = live->Running().schedule;
      if (now.OfftaskCountdown() > before.OfftaskCountdown()) seen += At() + " due, ";
      if (now.OfftaskPending() != before.OfftaskPending()) {
        seen += At() + " pending " + std::to_string(now.OfftaskPending()) + ", ";
      }
    }
    return seen;
  }
  std::string At() const {
    const float since = SecondsSince(live->Running().segmentStart, clock.SecondsSinceMidnight());
    const int whole = static_cast<int>(since);
    return std::to_string(whole / 60) + ":" + TwoDigits(whole % 60) +
           (since > static_cast<float>(whole) ? ".5" : "");
  }
  /// Waits for a pending estimate and presses the button.
  void Take() {
    const float now = clock.SecondsSinceMidnight();
    while (live->Running().schedule.OfftaskPending() == 0) Run(0.5);
    clock.Advance(static_cast<double>(now - clock.SecondsSinceMidnight()));
    live->Estimates().TakePending();
  }
  void NewSegment(int activity) {
    prompter.Expect("Start New Segment?", Answer::yes);
    live->AskToStartSegment();
    live->ChooseActivity(activity);
  }
  const std::vector<float>& EstimatesIn(int activity) const {
    return program.OfftaskByCat.at(OfftaskPosition(activity).value());
  }

  std::optional<LiveObservation> live;
};

TEST_F(OfftaskTest, FallDueAtTheActivitysCadenceForAWholeHour) {
  for (int activity = 1; activity <= kActivityCount; ++activity) {
    SCOPED_TRACE(activity);
    const bool often = activity == 4 || activity == 8 || (activity >= 14 && activity <= 16);
    const int cadence = often ? 2 : activity == kQuestionAnswer ? 5 : 100;
    std::string expected;
    int pending = 0;
    for (int minute = often ? 1 : cadence == 5 ? 2 : 60; minute < 60; minute += cadence) {
      expected += std::to_string(minute) + ":00 due, ";
      // The remaining time is rounded, so the countdown ends half a second early.
      expected += std::to_string(minute) + ":59.5 pending " + std::to_string(++pending) + ", ";
    }
    Begin(activity);
    EXPECT_EQ(live->Running().schedule.Running(), !expected.empty());
    EXPECT_EQ(Run(3600), expected);
  }
}

TEST_F(OfftaskTest, FallDueAtTheNextPointAfterARevision) {
  const std::tuple<double, int, double, const char*> revisions[] = {
      {59.5, 16, 60, "1:00 due, 1:59.5 pending 1, "},
      {60, 16, 1, "1:00.5 due, "},
      {150, 16, 60, "3:00 due, "},
      {180, 16, 124, "5:00 due, "},  // half a minute rounds to the even point
      {119.5, 5, 59, "2:00 due, "},
      {250, 5, 200, "7:00 due, "},
      {150, 17, 600, ""},
  };
  for (const auto& [when, activity, seconds, expected] : revisions) {
    SCOPED_TRACE(when);
    Begin(4);
    Run(when);
    prompter.Expect("Revise activity # ?", Answer::ok);
    live->ChooseActivity(activity);
    EXPECT_EQ(live->Running().schedule.OfftaskPending(), 0);
    EXPECT_EQ(live->Running().schedule.OfftaskCountdown(), 0);
    EXPECT_EQ(Run(seconds), expected);
  }
}

TEST_F(OfftaskTest, FallDueAsBeforeWhenTheStartOfTheSegmentIsCorrected) {
  Begin(4);
  EXPECT_EQ(Run(210), "1:00 due, 1:59.5 pending 1, 3:00 due, ");
  prompter.ExpectSeconds(150);
  live->CorrectTime();
  EXPECT_EQ(live->Running().schedule.OfftaskPending(), 1);
  EXPECT_EQ(live->Running().schedule.OfftaskCountdown(), 30);
  EXPECT_EQ(Run(151), "2:59.5 pending 2, 5:00 due, ") << "each minute of the segment counts once";
}

TEST_F(OfftaskTest, FallDueAcrossMidnightAndWhileTheDialogIsOpen) {
  Begin(3, 23);
  clock.Set(23, 59, 30);
  NewSegment(8);
  OfftaskIndicator prompt(*live);
  EXPECT_EQ(Run(60), "1:00 due, ");
  EXPECT_EQ(prompt.CountdownText(), "Offtask in     :            00 : 60");
  Run(53);
  EXPECT_EQ(prompt.CountdownText(), "Offtask in     :            00 : 07");
  prompt.Tick();
  EXPECT_FALSE(prompt.ButtonVisible());
  EXPECT_EQ(Run(7), "1:59.5 pending 1, ");
  EXPECT_EQ(prompt.CountdownText(), "");
  for (const bool blank : {true, false, true}) {
    prompt.Tick();
    EXPECT_TRUE(prompt.ButtonVisible());
    EXPECT_EQ(prompt.ButtonBlank(), blank);
  }

  std::string meanwhile;
  prompter.ExpectEstimate({.offtask = "5", .students = "25"}, true, [&] { meanwhile = Run(180); });
  prompt.TakeEstimate();
  EXPECT_EQ(meanwhile, "3:00 due, 3:59.5 pending 2, 5:00 due, ");
  EXPECT_EQ(live->Running().schedule.OfftaskPending(), 1);
  EXPECT_FALSE(prompt.ButtonVisible());
  prompt.Tick();
  EXPECT_TRUE(prompt.ButtonVisible());
  NewLogText();
  prompter.ExpectEstimate({.offtask = "1", .students = "25"}, false);
  prompt.TakeEstimate();
  Run(120);
  prompt.Tick();
  EXPECT_TRUE(prompt.ButtonVisible());
  prompter.Expect("Revise activity # ?", Answer::ok);
  live->ChooseActivity(17);
  EXPECT_FALSE(prompt.ButtonVisible()) << "it goes with its schedule, before the next tick";
}

TEST_F(OfftaskTest, AreLoggedAndKeptUnderTheirKind) {
  Begin(kQuestionAnswer);
  clock.Set(10, 23, 45);
  prompter.ExpectEstimate({.offtask = "5", .students = "25"});
  Take();
  EXPECT_EQ(NewLogText(), "\nOFFTASK: 0.2 [ 5 / 25 ] Act # 5 Question/Answer 10:23:45\n\n");
  EXPECT_EQ(EstimatesIn(5), std::vector<float>{0.2F});

  prompter.ExpectEstimate({.offtask = "8", .students = "24"});
  Take();
  EXPECT_EQ(NewLogText(),
            "\nOFFTASK: 0.3333333 [ 8 / 24 ] Act # 5 Question/Answer 10:23:45\n\n"
            "REVISED N= 24 10:23:45\n");
  EXPECT_EQ(live->Header().Text(HeaderBox::numStudents), "24");

  // The end of the segment asks as well, before it is logged; the mean is that of the episode.
  program.Episodes.back().questions.emplace_back();
  prompter.ExpectEstimate({.offtask = "-1", .students = "24"});
  prompter.Expect("Start New Episode?", Answer::yes);
  live->AskToStartEpisode();
  const std::string lines = NewLogText();
  EXPECT_LT(lines.find("\nOFFTASK: -0.0416667 [ -1 / 24 ]"),
            lines.find("Ep. 1 Sg. 1 Question/Answer"));
  EXPECT_NE(lines.find("episode 1 = 1.638889E-1 [number of estimates = 3 ]"), std::string::npos)
      << lines;

  live->KeyInDescription();
  live->TypeDescription("Drama");
  live->ChooseActivity(16);
  prompter.ExpectEstimate({.offtask = "12", .students = "24"});
  Take();
  EXPECT_EQ(EstimatesIn(16), std::vector<float>{0.5F});
  EXPECT_EQ(EstimatesIn(5).size(), 3U);
  EXPECT_EQ(prompter.askedEstimates.back().students, "24");
}

TEST_F(OfftaskTest, AreAskedForAtTheEndOfASegmentThatTakesThem) {
  for (int activity = 1; activity <= kActivityCount; ++activity) {
    SCOPED_TRACE(activity);
    const bool takes = activity == 4 || activity == 5 || activity == 8 || activity >= 14;
    Begin(activity);
    if (takes) prompter.ExpectEstimate({.offtask = "0", .students = "25"});
    live->StartSegment();
  }
  // "&Q/A" does not ask, and neither do later ends of segments until "&SEGMENT" is used.
  Begin(4);
  live->StartQuestionAnswer();
  live->StartSegment();
  live->ChooseActivity(16);
  prompter.Expect("Start New Episode?", Answer::yes);
  live->AskToStartEpisode();
  live->KeyInDescription();
  live->TypeDescription("Drama");
  live->ChooseActivity(16);
  prompter.ExpectEstimate({}, false);
  NewSegment(4);
  prompter.ExpectEstimate({}, false);
  live->StartSegment();
}

TEST_F(OfftaskTest, SkippedComeBackWithTheTextsAsTheyWereLeft) {
  Begin(4);
  live->Estimates().TakePending();  // none is pending
  prompter.ExpectEstimate({.offtask = "7", .students = "26"}, false);
  Take();
  live->TypeHeader(HeaderBox::numStudents, "26");
  prompter.ExpectEstimate({.offtask = "7", .students = "26"});
  Take();
  EXPECT_EQ(prompter.askedEstimates[1].offtask, "7");
  EXPECT_EQ(prompter.askedEstimates[1].students, "26");
  // The change is measured against the number the dialog first opened with.
  EXPECT_NE(NewLogText().find("REVISED N= 26"), std::string::npos);
  prompter.ExpectEstimate({}, false);
  Take();
  EXPECT_EQ(prompter.askedEstimates[2].offtask, "0");
}

TEST(OfftaskDialogTest, GivesABoxItsTextBackThatIsNoNumber) {
  using Control = OfftaskDialog::Control;
  const std::tuple<Control, const char*, bool> typed[] = {
      {Control::offtask, "", false},       {Control::offtask, "5x", false},
      {Control::offtask, "-3", true},      {Control::offtask, "40", true},
      {Control::offtask, "2.5", true},     {Control::offtask, "1e3", false},
      {Control::students, "0", false},     {Control::students, "0.4", false},
      {Control::students, "-3", false},    {Control::students, "24", true},
      {Control::students, "40000", false},
  };
  for (const auto& [box, text, accepted] : typed) {
    SCOPED_TRACE(text);
    OfftaskPrompt prompt = {.students = "25"};
    OfftaskDialog dialog(prompt);
    const std::string before = dialog.Text(box);
    dialog.Enter(box);
    dialog.Type(box, text);
    EXPECT_EQ(dialog.Leave(box), accepted);
    EXPECT_EQ(dialog.Text(box), accepted ? text : before);
    EXPECT_EQ(dialog.TakeFocus().has_value(), !accepted);
  }
  // A proportion with more digits than a float can hold.
  EXPECT_EQ(ProportionOf({.offtask = "1" + std::string(30, '0'), .students = "3"}), 3.3333333e29F);
}

}  // namespace
}  // namespace orvex
