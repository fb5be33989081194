// The walk of the question editor from one question that is not fully coded to the next.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "questions/question_editor.h"
#include "support/desk.h"

namespace orvex::test {
namespace {

using Command = QuestionEditor::Command;

struct ProofTest : testing::Test, Desk {
  void Open(const EditorOpening& opening) { editor.emplace(services, opening, nullptr, nullptr); }

  /// The numbers of the shown dimensions whose caption is blank.
  std::string Blank() const {
    std::string blank;
    for (int i = 0; i < kDimensionCount; ++i) {
      const auto dimension = static_cast<Dimension>(i);
      const std::string_view caption = editor->FrameCaption(dimension);
      if (!editor->FrameVisible(dimension)) continue;
      if (caption.find_first_not_of(' ') == std::string::npos) blank += static_cast<char>('1' + i);
    }
    return blank;
  }

  std::optional<QuestionEditor> editor;
};

TEST_F(ProofTest, ProofWalksThroughEveryGapAndMakesItBlink) {
  // The text and the nine dimensions, "" where the question needs none.
  using Letters = std::array<std::string, 10>;
  const Letters kinds[] = {{"Why?", "T", "Y", "N", "A", "H", "Ben", "Y", "", "E"},
                           {"How?", "S", "Y", "A", "T", "R", "Ana", "", "O", "U"},
                           {"Who?", "T", "N", "", "", "", "", "", "", ""},
                           {"May I?", "S", "N", "", "", "", "Ana", "", "", ""}};
  struct Gap {
    int episode;
    int question;
    std::size_t missing;
    std::string letter;
  };
  std::vector<Gap> gaps;
  program.Episodes.assign(3, {});  // the last one stays empty
  for (const Letters& kind : kinds) {
    for (std::size_t missing = 0; missing < kind.size(); ++missing) {
      if (kind[missing].empty()) continue;
      const int episode = gaps.size() < 12 ? 1 : 2;
      auto& questions = program.Episodes.at(static_cast<std::size_t>(episode - 1)).questions;
      Letters gap = kind;
      gap[missing].clear();
      for (const Letters& l : {kind, gap}) {
        questions.emplace_back();
        questions.back().SetValue(l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], l[8], l[9], 1, 1);
      }
      gaps.push_back({episode, static_cast<int>(questions.size()), missing, kind[missing]});
    }
  }
  ASSERT_EQ(gaps.size(), 25U);
  // Begun in the middle, the walk comes round to the start.
  std::rotate(gaps.begin(), gaps.begin() + 15, gaps.end());
  program.ProofEp = gaps.front().episode;
  program.ProofQ = gaps.front().question;
  Open({.caller = EditorCaller::episodeEditor, .proofMode = true, .episode = 3});
  for (const Gap& gap : gaps) {
    SCOPED_TRACE(std::to_string(gap.episode) + ":" + std::to_string(gap.question));
    ASSERT_EQ(editor->SelEp(), gap.episode);
    ASSERT_EQ(editor->CurQ(), gap.question);
    EXPECT_EQ(Blank(), "");
    editor->BlinkTick();
    const std::string blinks = Blank();
    if (gap.missing == 0) {
      EXPECT_EQ(blinks, "") << "a text has no caption that could blink";
      editor->TypeQuestion(gap.letter);
    } else if (gap.missing == 6) {
      EXPECT_EQ(blinks, "6");
      editor->TypeRespondName(gap.letter);
    } else {
      EXPECT_EQ(blinks, std::to_string(gap.missing));
      const auto dimension = static_cast<Dimension>(gap.missing - 1);
      editor->ClickOption(dimension, CodeOf(dimension, gap.letter));
    }
    EXPECT_EQ(Blank(), "");
    editor->BlinkTick();
    if (&gap == &gaps.back())
      prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
    editor->Click(Command::cmdNxt);
  }
  EXPECT_EQ(editor->CurQ(), gaps.back().question) << "it stays where it was";
}

TEST_F(ProofTest, BlinksOnlyInProofMode) {
  program.Episodes.assign(1, {});
  program.Episodes[0].questions.resize(1);
  Open({.caller = EditorCaller::episodeEditor});
  editor->BlinkTick();
  EXPECT_EQ(Blank(), "");
  Open({.caller = EditorCaller::episodeEditor, .proofMode = true});
  editor->BlinkTick();
  EXPECT_EQ(Blank(), "12");
  editor->Click(Command::cmdDrop);
  editor->BlinkTick();
  editor->BlinkTick();
  EXPECT_EQ(Blank(), "") << "there is no question to code";
}

}  // namespace
}  // namespace orvex::test
