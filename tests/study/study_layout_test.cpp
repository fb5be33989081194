#include "study/study_layout.h"

#include <gtest/gtest.h>

#include "store/storage.h"
#include "support/test_folder.h"

namespace orvex::test {
namespace {

TEST(StudyLayout, IsRememberedAndFallsBackWhereItIsDamaged) {
  const TestFolder folder;
  EXPECT_EQ(ReadStudyLayout(folder.Path()), StudyLayout());

  StudyLayout layout;
  std::swap(layout.columns[0], layout.columns[16]);
  layout.columns[3] = {layout.columns[3].column, 80, false};
  layout.sortedBy = StudyColumn::date;
  layout.descending = true;
  layout.filter = {.text = "é = \"two words\"", .problems = true, .mine = true, .initials = "AB"};
  Storage storage;
  WriteStudyLayout(storage, folder.Path(), layout);
  EXPECT_EQ(ReadStudyLayout(folder.Path()), layout);

  // Lines that say nothing are skipped; columns that are not named follow in their first order.
  const StudyLayout damaged = ParseStudyLayout(
      "column=date,70,hidden\ncolumn=date,60,shown\ncolumn=weather,5,shown\ncolumn=notes,x,shown\n"
      "column=class,-5,shown\ncolumn=survey,99999999999,shown\nsorted_by=weather,descending\n"
      "only=everything\n\x01\n==\ntext");
  StudyLayout expected;
  expected.columns.erase(expected.columns.begin() + static_cast<int>(StudyColumn::date));
  expected.columns.insert(expected.columns.begin(), {StudyColumn::date, 70, false});
  EXPECT_EQ(damaged, expected);

  for (StudyLayout::Column& column : layout.columns) column.shown = false;
  for (const auto& column : ParseStudyLayout(FormatStudyLayout(layout)).columns) {
    EXPECT_TRUE(column.shown) << "an empty table would offer no heading to begin with";
  }
}

}  // namespace
}  // namespace orvex::test
