// The export form, file by file.

#include "tables/export_form.h"

#include <gtest/gtest.h>

#include "support/desk.h"
#include "support/save_faults.h"
#include "tables/old_table.h"

namespace orvex {
namespace {

using Moves = std::vector<std::string>;

struct ListDesk : test::Desk {
  explicit ListDesk(const std::string& list) {
    test::PutFile(folder / "LIST.TXT", list);
    for (const char* file : {"17-17-7", "11-4-2"}) {
      for (const char* extension : {".eps", ".sur"}) {
        const std::string name = std::string(file) + extension;
        test::PutFile(folder / name, test::FileBytes(test::TestData("class/" + name)));
      }
    }
  }
  std::string Table(const char* name) const { return test::FileBytes(folder / name); }
};

void WorkToTheEnd(ExportForm& form) {
  while (form.Working()) form.Work();
  form.Finish();
}

TEST(ExportForm, MakesATableWithoutRowsOfAnEmptyList) {
  ListDesk desk("\r\n");
  ExportForm form(desk.services, ExportKind::surData, desk.folder / "LIST.TXT");
  desk.prompter.Expect("SURDATA file has been created.", Answer::ok);
  WorkToTheEnd(form);
  EXPECT_TRUE(std::filesystem::exists(desk.folder / "SURDATA.TXT"));
  EXPECT_EQ(desk.Table("SURDATA.TXT"), "");
}

struct Failure {
  ExportKind kind;
  const char* list;
  const char* file;  ///< a sample, which becomes the second file of the list
  const char* message;
  std::string details;
};

TEST(ExportForm, SaysWhatIsWrongAndGoesBackToTheMenu) {
  const Failure cases[] = {
      {ExportKind::epsData, "17-17-7\n\n5-12-3\n11-4-2\n", "",
       "A file of the list could not be exported.",
       "Line 3 of LIST.TXT: 5-12-3.eps: No such file or directory.\n"
       "EPSDATA.TXT holds the 3 rows written so far."},
      {ExportKind::epsData, "17-17-7\n5-12-3\n", "bad/text-in-P1-0.eps", "Invalid file format",
       "Line 2 of LIST.TXT: 5-12-3.eps, line 24: field 1: expected a question count (a number), "
       "found \"x\".\n"
       "EPSDATA.TXT holds the 3 rows written so far."},
      {ExportKind::surData, "17-17-7\n5-12-3\n", "bad/rating5-is-x.sur", "Invalid file format",
       "Line 2 of LIST.TXT: 5-12-3.sur, line 32: expected a rating: a button number or N/A, found "
       "\"x\".\n"
       "SURDATA.TXT holds the 1 row written so far."},
      {ExportKind::epsData, "6-1-1\n", "", "A file of the list could not be exported.",
       "Line 1 of LIST.TXT: 6-1-1.eps: No such file or directory.\n"
       "The earlier EPSDATA.TXT stays as it was."},
  };
  for (const auto& [kind, list, file, message, details] : cases) {
    SCOPED_TRACE(details);
    ListDesk desk(list);
    test::PutFile(desk.folder / "EPSDATA.TXT", test::kOldTable);
    if (*file != '\0') {
      const std::string extension = std::filesystem::path(file).extension();
      test::PutFile(desk.folder / ("5-12-3" + extension), test::FileBytes(test::TestData(file)));
    }
    ExportForm form(desk.services, kind, desk.folder / "LIST.TXT");
    desk.prompter.Expect(message, Answer::ok, [&] {
      EXPECT_NE(details.find(": " + form.NameOf(form.InWork())), std::string::npos);
    });
    WorkToTheEnd(form);
    EXPECT_EQ(desk.prompter.asked.back().details, details);
    EXPECT_EQ(desk.screens.Take(), Moves{"show mainMenu"});
  }
}

TEST(ExportForm, WarnsOfNamesThatComeTwiceOrDisagreeWithTheirFiles) {
  ListDesk desk("17-17-7\n11-4-2\n17-17-7\n9-9-9\n");
  test::PutFile(desk.folder / "9-9-9.sur", desk.Table("11-4-2.sur"));
  ExportForm form(desk.services, ExportKind::surData, desk.folder / "LIST.TXT");
  desk.prompter.Expect("SURDATA file has been created.", Answer::ok);
  WorkToTheEnd(form);
  EXPECT_EQ(desk.prompter.asked.back().details,
            "Line 3 of the list: 17-17-7 is in line 1 already.\n"
            "9-9-9.sur: the identity line says 11-4-2.");
}

TEST(ExportForm, TellsOfAListAndATableThatTheDiskRefuses) {
  ListDesk desk("17-17-7\n");
  ExportForm none(desk.services, ExportKind::epsData, desk.folder / "NONE.TXT");
  desk.prompter.Expect("The list of files could not be read.", Answer::ok);
  WorkToTheEnd(none);
  std::filesystem::create_directory(desk.folder / "EPSDATA.TXT");
  ExportForm form(desk.services, ExportKind::epsData, desk.folder / "LIST.TXT");
  desk.prompter.Expect("EPSDATA.TXT could not be written.", Answer::cancel);
  WorkToTheEnd(form);
  EXPECT_EQ(desk.screens.Take(), (Moves{"show mainMenu", "show mainMenu"}));
}

struct TableScene : test::SaveScene {
  explicit TableScene(bool older) {
    test::PutFile(desk.folder / "LIST.TXT", "17-17-7\r\n11-4-2\r\n");
    for (const char* file : {"17-17-7.sur", "11-4-2.sur"}) {
      test::PutFile(desk.folder / file, test::FileBytes(test::TestData("class/") / file));
    }
    if (older) test::PutFile(desk.folder / "SURDATA.TXT", "the old table\r\n");
  }
  void Save() override {
    ExportForm form(services, ExportKind::surData, desk.folder / "LIST.TXT");
    WorkToTheEnd(form);
  }
};

TEST(ExportForm, MakesTheTableWholeOrTellsThatItCannot) {
  test::FailEveryCallOf<TableScene>("the exported tables");
}

TEST(ExportForm, StartsTheDialogWhereListsAreKept) {
  ListDesk desk("");
  desk.prompter.ExpectFile({.path = desk.folder / "LIST.TXT", .folder = desk.folder.Path()});
  EXPECT_EQ(ChooseListFile(desk.services, ExportKind::surData), desk.folder / "LIST.TXT");
  EXPECT_EQ(desk.prompter.askedFiles.back().folder, R"(n:\disc\varnel\sur)");
  EXPECT_EQ(desk.prompter.askedFiles.back().filter, "TXT files (*.TXT)|*.TXT");
  EXPECT_EQ(desk.program.DataPath, desk.folder.Path());
  desk.prompter.ExpectFile({.path = {}, .folder = "/"});
  ChooseListFile(desk.services, ExportKind::epsData);
  EXPECT_EQ(desk.program.DataPath, desk.folder.Path()) << "a cancelled dialog leaves it";
}

}  // namespace
}  // namespace orvex
