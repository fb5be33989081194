#include "recovery/kept_class.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <string>

#include "recovery/kept_content.h"
#include "store/format_error.h"
#include "support/test_folder.h"

namespace orvex::test {
namespace {

/// A class whose fields all differ from their initial values, and from each other where possible.
KeptClass EveryField() {
  KeptClass kept;
  kept.moment = {"11-23-2026", "09:41:10", 34870.25F, 1795426870};
  kept.program.identity = {"A\\B, \"C\"", "7", "12", "3", "25"};
  kept.program.StartTimeText = "09:00:05";
  kept.program.ClassStored = true;
  float estimate = 0.1F;
  for (auto& estimates : kept.program.OfftaskByCat) estimates = {estimate += 0.01F, 1 / 3.0F};
  Episode& episode = kept.program.Episodes.emplace_back();
  episode.Descript = "Lesson = one, \u00e9";
  episode.bReview = "Y";
  episode.offtask = 0.125F;
  episode.segments = {{4, 300, "about\\r", 1, 2, 3, 4, 5, 6}, {5, 60, "", -1, -1, -1, -1, -1, -1}};
  episode.questions.push_back({"Why = \"so\"?", {0, 1, 2, 3, 4, -1, 5, 6, 7}, "Ann", 1, 2, true});
  episode.questions.push_back({"", {1, 0, 1, 0, 1, -1, 0, 1, 0}, "", 32767, -32768, false});
  kept.program.Episodes.push_back(episode);
  kept.program.Episodes.back().segments.push_back({17, 1, "", 3, -1, -1, -1, -1, -1});

  RunningClass& running = kept.running;
  running.token = "a-b";
  running.typedNumbers = {"8", std::nullopt, "1"};
  running.stored = {7, 8, 18446744073709551615U};
  running.curEpisode = 2;
  running.curSegment = 4;
  running.episodeStart = 32400.5F;
  running.segmentStart = 33000.75F;
  running.prevEpisodeStart = -86000;
  running.offtaskEstimates = {0.5F, 0.25F};
  running.prevOfftaskEstimates = {0.75F};
  running.curActivity = 5;
  running.prevActivity = 17;
  running.episodeActivity = 4;
  running.choice = ActivityChoice::made;
  running.freshSegment = true;
  running.skipEstimate = true;
  running.schedule.Start(100, kUsualCadence);
  running.estimateDialog = {.prompt = {.offtask = "3", .students = "24"}, .studentsBefore = "23"};
  running.coding.choicesVisible = true;
  running.coding.about = "on \\n";
  running.coding.chosen = {1, 2, 3, 4, 5};
  running.coding.typed = {"", "", "", "", "", "a", "b", "c"};
  running.fieldNotes = "one\r\ntwo\\\n=three";
  running.draftNotes = "one\r\ntwo\\\n=three four";
  running.survey.checks[0].set(9);
  running.survey.checks[5].set(0);
  running.survey.other = "other";
  for (auto& rating : running.survey.ratings) rating = 2;
  running.awaitsSurvey = true;
  running.nothingEntered = false;
  running.storedElsewhere = "/media/stick/a \\ b.eps";
  running.draft.question = "Wha";
  running.draft.fields.ShowFirstFields();
  running.draft.fields.Type(Dimension::source, "S");
  running.questionsBefore = 3;
  const questionInfo dropped = {"Gone?", {0, 1, 2, 3, 4, -1, 5, 6, 7}, "Bob", 1, 2, true};
  running.history.Record({.place = {2, 1}, .present = true, .question = dropped}, {});
  running.history.Record({.place = {2, 2}, .question = dropped, .draft = QuestionDraft{}}, {});
  QuestionDraft typed = running.draft;
  running.history.Take(Way::undo, kept.program.Episodes, typed);
  return kept;
}

std::string Content(const KeptClass& kept) {
  return FormatMoment(kept.moment) + FormatRunning(kept.program, kept.running);
}

TEST(KeptClass, ComesBackInEveryField) {
  const KeptClass kept = EveryField();
  const KeptClass back = ParseKept(Content(kept));
  EXPECT_EQ(Content(back), Content(kept));                  // what is written can be read...
  EXPECT_EQ(back.program.Episodes, kept.program.Episodes);  // ...into the right places
  EXPECT_EQ(back.program.identity, kept.program.identity);
  EXPECT_EQ(back.program.OfftaskByCat, kept.program.OfftaskByCat);
  EXPECT_EQ(back.running.survey, kept.running.survey);
  EXPECT_EQ(back.running.fieldNotes, kept.running.fieldNotes);
  EXPECT_EQ(back.running.estimateDialog->prompt.students, "24");
  EXPECT_EQ(back.running.storedElsewhere, kept.running.storedElsewhere);
  EXPECT_EQ(back.running.segmentStart, kept.running.segmentStart);
  EXPECT_EQ(back.moment.unixSeconds, kept.moment.unixSeconds);
  EXPECT_EQ(back.running.draft.fields.Text(Dimension::source), "S");
  EXPECT_EQ(back.running.history.Steps(), 1U);
  EXPECT_EQ(back.Questions(), 5U);
  EXPECT_FALSE(back.SegmentEnded());

  // If the record left out a field, it could not be told apart from its initial value.
  const std::string content = Content(kept);
  const std::string empty = Content(KeptClass{});
  std::size_t differing = 0;
  for (const std::string line :
       {"token=", "stored=", "date=", "time=", "clock=", "QuitRequested=", "running=", "state=",
        "schedule=", "panels=", "coding=", "draftQuestion=", "other=", "visible=",
        "questionsBefore=", "notesOpen="}) {
    const auto of = [&line](const std::string& text) {
      const std::size_t at = text.find("\n" + line);
      return text.substr(at, text.find('\r', at) - at);
    };
    EXPECT_NE(of(content), of(empty)) << line;
    ++differing;
  }
  EXPECT_EQ(differing, 16U);
}

TEST(KeptClass, IsRefusedWhereItBreaksOrCannotHaveRunSo) {
  const std::string good = Content(EveryField());
  // Cutting the last text goes unnoticed here; the seal of the file detects it.
  for (std::size_t size = 0; size < good.find("draftQuestion"); ++size) {
    EXPECT_THROW(ParseKept(good.substr(0, size)), FormatError) << size;
  }
  const std::pair<std::string, std::string> changes[] = {
      {"running=2 4 ", "running=3 4 "},
      {"running=2 4 ", "running=2 9 "},
      {"running=2 4 ", "running=-2 4 "},
      {"curActivity=5", "curActivity=18"},
      {"curActivity=5", "curActivity="},
      {"state=5 ", "state=9 "},
      {"rating=2 ", "rating=5 "},
      {"Episodes=2 ", "Episodes=32767 "},
      {"questions=2 ", "questions=-1 "},
      {"offtask=0.125 ", "offtask=nan "},
      {"QuitRequested=1 ", "QuitRequested=2 "},
      {"checks=", "checks=1"},
      {"Orvex recovery=1", "Orvex recovery=2"},
      {"draftQuestion=", "draftQuestion=\\x"},
  };
  for (const auto& [from, to] : changes) {
    std::string changed = good;
    const std::size_t at = changed.find(from);
    ASSERT_NE(at, changed.npos) << from;
    changed.replace(at, from.size(), to);
    EXPECT_THROW(ParseKept(changed), FormatError) << to;
  }
  EXPECT_THROW(ParseKept(good + "more=1\r\n"), FormatError);
  const KeptClass earlier = ParseKept(good.substr(0, good.find("token=")));
  EXPECT_EQ(earlier.running.history.Steps(), 0U) << "an earlier version kept no steps";
}

TEST(KeptClass, TakesItsNumbersFromItsFileWhileTheyAreBeingCorrected) {
  TestFolder folder;
  KeptClass kept = EveryField();
  kept.program.identity.ClassNum = "";
  std::ofstream(folder / "7-12-3.recovery", std::ios::binary) << Sealed(Content(kept), 5);
  const KeptClass back = ReadKeptClass(folder / "7-12-3.recovery");
  EXPECT_EQ(back.program.identity.ClassId(), "7-12-3");
  EXPECT_EQ(back.number, 5U);
}

TEST(KeptClass, HasTheNumbersOfItsLogWhateverIsBeingTyped) {
  const TestFolder folder;
  KeptClass kept = EveryField();
  kept.running.typedNumbers = {std::nullopt, std::nullopt, "1"};
  const auto path = folder / "BAK/7/12/7-12-3.recovery";
  PutFile(path, Sealed(Content(kept), 5));
  PutFile(folder / "BAK/7/12/7-12-1.bak", "renamed just now");
  EXPECT_EQ(ReadKeptClass(path).program.identity.ClassId(), "7-12-1");
  PutFile(folder / "BAK/7/12/7-12-3.bak", "its log");
  EXPECT_EQ(ReadKeptClass(path).program.identity.ClassId(), "7-12-3");
  EXPECT_EQ(ReadKeptClass(path).running.typedNumbers[2], "1");
}

}  // namespace
}  // namespace orvex::test
