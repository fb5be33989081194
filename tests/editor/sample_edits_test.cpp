#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/edit_sequences.h"
#include "editor/editor_desk.h"
#include "editor/observation_edits.h"
#include "support/sample_manifest.h"

namespace orvex {
namespace {

using test::EditOperation;

/// Does an operation as a user would, by selecting and clicking.
void Perform(const EditOperation& operation, test::EditorDesk& desk) {
  EpisodeEditor& editor = *desk.editor;
  const auto& arguments = operation.arguments;
  const auto number = [&arguments](std::size_t i) { return arguments.at(i).at(0); };
  const auto selectSegments = [&] {
    editor.GetEpisode(number(0));
    editor.ShowSegment(arguments.at(1).front());
    editor.SetSelectedSegments(arguments[1]);
  };
  if (operation.name == "merge_episodes") {
    editor.SetSelectedEpisodes(arguments.at(0));
    editor.cmdMergeEp_Click();
  } else if (operation.name == "split_episode") {
    editor.SelectEpisode(number(0));
    selectSegments();
    if (editor.HasQuestions()) desk.prompter.ExpectQuestions(arguments.at(2));
    editor.cmdSplitEp_Click();
  } else if (operation.name == "merge_segments") {
    selectSegments();
    editor.cmdMergeSg_Click();
  } else if (operation.name == "move_segments") {
    selectSegments();
    editor.DropOnEpisode(number(2));
  } else if (operation.name == "reorder_segments") {
    selectSegments();
    editor.DropOnSegment(number(2));
  } else {
    editor.GetEpisode(number(0));
    editor.SelectSegment(number(1));
    if (operation.name == "split_segment") {
      desk.prompter.ExpectDivision(number(2));
      editor.cmdSplitSg_Click();
    } else if (operation.name == "recode_segment") {
      editor.ChooseActivity(number(2) - 1);
    } else if (operation.name == "set_segment_duration") {
      editor.TypeSegmentDuration(operation.text);
      editor.LeaveBox();
    } else {
      FAIL() << operation.name;
    }
  }
}

TEST(SampleEdits, GiveTheFilesTheyShouldAndAreUndoneAndRedone) {
  const auto folder = test::SamplesFolder() / "edits";
  int files = 0;
  for (const auto& sequence : test::ReadEditSequences(folder / "operations.json")) {
    SCOPED_TRACE(sequence.file);
    ++files;
    test::EditorDesk desk;
    std::filesystem::create_directories(desk.file.parent_path());
    std::filesystem::copy_file(folder / sequence.file, desk.file);
    EpisodeEditor& editor = desk.Open(desk.file);
    const EpisodeList first = desk.program.Episodes;
    ASSERT_FALSE(sequence.operations.empty());
    for (const EditOperation& operation : sequence.operations) Perform(operation, desk);
    const EpisodeList last = desk.program.Episodes;

    ASSERT_TRUE(editor.Save());
    EXPECT_EQ(test::FileBytes(desk.file), test::FileBytes(folder / "results" / sequence.file));

    while (!editor.UndoName().empty()) editor.Undo();
    EXPECT_EQ(desk.program.Episodes, first);
    while (!editor.RedoName().empty()) editor.Redo();
    EXPECT_EQ(desk.program.Episodes, last);
    EXPECT_FALSE(editor.Modified());
  }
  EXPECT_GE(files, 7);
}

}  // namespace
}  // namespace orvex
