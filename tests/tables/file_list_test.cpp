// What names the observations of a table: lists, folders, files and the standard input.

#include "tables/file_list.h"

#include <gtest/gtest.h>

#include <sstream>

#include "store/file_error.h"
#include "store/format_error.h"
#include "study/problem.h"
#include "support/test_folder.h"
#include "support/test_paths.h"
#include "tables/list_lines.h"
#include "tables/repeats.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

TEST(ListLines, AreTheLinesThatNameSomething) {
  const auto read = [](const std::string& bytes) {
    std::string text;
    for (const ListLine& line : ParseList(bytes)) {
      text += std::to_string(line.number) + "=" + line.text + ";";
    }
    return text;
  };
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"5-12-3", "1=5-12-3;"},
      {"5-12-3\r\n6-1-1\r\n", "1=5-12-3;2=6-1-1;"},
      {"\n  5-12-3 \t\n\n \r\n6-1-1 a\n", "2=5-12-3;5=6-1-1 a;"},
      {"\xEF\xBB\xBF"
       "5-12-3\r\n",
       "1=5-12-3;"},
  };
  for (const auto& [bytes, lines] : cases) EXPECT_EQ(read(bytes), lines) << bytes;
  try {
    read(
        std::string("5-12-3\n\xFF\xFE"
                    "5\0-\0",
                    13));
    ADD_FAILURE() << "a list in UTF-16 was read";
  } catch (const FormatError& error) {
    EXPECT_EQ(error.Line(), 2);
  }
  const test::TestFolder folder;
  test::PutFile(folder / "5-12-3.eps", test::FileBytes(test::TestData("class/17-17-7.eps")));
  test::PutFile(folder / "LONG.TXT", std::string(std::size_t{17} << 20, '\n'));
  const auto told = [&folder](const char* name) {
    const auto problem = ProblemOf(folder / name, [&] { ReadFileList(folder / name); });
    return problem ? problem->text : "";
  };
  EXPECT_EQ(told("5-12-3.eps"), "this is an episode file, not a list of observations");
  EXPECT_EQ(told("LONG.TXT"), "more than 16 MB, which is too large for a list of observations");
}

/// A folder with files, from which sources are read.
struct Sources {
  test::TestFolder folder;

  explicit Sources(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
      fs::create_directories((folder / file).parent_path());
      test::PutFile(folder / file, "x");
    }
  }

  FileList Read(const std::vector<std::string>& sources, const std::string& input = "") const {
    FileList list;
    std::istringstream in(input);
    for (const std::string& source : sources) {
      AddSource(source == "-" ? fs::path(source) : folder / source, in, list);
    }
    return list;
  }

  std::string Short(const fs::path& path) const {
    const fs::path normal = path.lexically_normal();
    return (normal.is_absolute() ? normal.lexically_relative(folder.Path()) : normal).string();
  }
};

TEST(FileList, NamesAFileOfTheWantedKindForEachObservation) {
  const Sources data({"EPS/5/12/5-12-10.eps", "EPS/5/12/5-12-9.eps", "SUR/5/12/5-12-9.sur",
                      "SUR/5/12/5-12-11.sur", "BAK/5/12/5-12-9.bak", "4-1-1.EPS"});
  test::PutFile(data.folder / "LIST.TXT", "EPS/5/12/5-12-9\n\n4-1-1\n4-1-2\n");
  // What "find" names, in its own order.
  test::PutFile(data.folder / "FOUND.TXT",
                "./BAK/5/12/5-12-9.bak\nEPS/5/12/5-12-10.eps\n./SUR/5/12/5-12-9.sur\n"
                "./EPS/5/12/5-12-9.eps\n4-1-1.EPS\n4-1-2.eps\n");
  struct Case {
    std::vector<std::string> sources;
    FileKind kind;
    std::string files;
  };
  const std::string inOrder =
      "4-1-1 4-1-1.EPS;5/12/5-12-9 EPS/5/12/5-12-9.eps;"
      "5/12/5-12-10 EPS/5/12/5-12-10.eps;";
  const Case cases[] = {
      {{""}, FileKind::episodes, inOrder},
      {{""},
       FileKind::survey,
       "5/12/5-12-9 SUR/5/12/5-12-9.sur;5/12/5-12-11 SUR/5/12/5-12-11.sur;"},
      {{"EPS/5", "4-1-1.EPS"},
       FileKind::episodes,
       "12/5-12-9 EPS/5/12/5-12-9.eps;12/5-12-10 EPS/5/12/5-12-10.eps;4-1-1 4-1-1.EPS;"},
      {{"LIST.TXT"},
       FileKind::episodes,
       "EPS/5/12/5-12-9 EPS/5/12/5-12-9.eps;4-1-1 4-1-1.EPS;4-1-2 4-1-2.eps;"},
      {{"LIST.TXT"},
       FileKind::survey,
       "EPS/5/12/5-12-9 SUR/5/12/5-12-9.sur;4-1-1 4-1-1.sur;4-1-2 4-1-2.sur;"},
      {{"FOUND.TXT"},
       FileKind::episodes,
       "5/12/5-12-9 EPS/5/12/5-12-9.eps;5/12/5-12-10 EPS/5/12/5-12-10.eps;4-1-1 4-1-1.EPS;"
       "4-1-2 4-1-2.eps;"},
      {{"FOUND.TXT"},
       FileKind::survey,
       "5/12/5-12-9 SUR/5/12/5-12-9.sur;5/12/5-12-10 EPS/5/12/5-12-10.sur;4-1-1 4-1-1.sur;"
       "4-1-2 4-1-2.sur;"},
      {{"SUR/5/12/5-12-9.sur"}, FileKind::episodes, "5/12/5-12-9 EPS/5/12/5-12-9.eps;"},
  };
  for (const auto& [sources, kind, files] : cases) {
    SCOPED_TRACE(sources.front());
    std::string found;
    for (const ListedFile& file : FilesOf(kind, data.Read(sources)).files) {
      const std::string path = data.Short(PathOf(file, kind));
      // A file that is named has its whole path for a name.
      const bool isWhole = fs::path(file.name).is_absolute();
      found += (isWhole ? data.Short(file.name) : file.name) + " " + path + ";";
    }
    EXPECT_EQ(found, files);
  }
}

TEST(FileList, TakesNamesInAnyEncodingAndCallsThemInUtf8) {
  const std::string latin = "5-12-\xE9";
  const std::string utf8 = "5-12-\xC3\xA9";
  const Sources data({latin + ".eps", "utf8/" + utf8 + ".Eps", "utf8/" + utf8 + ".Sur"});
  test::PutFile(data.folder / "LIST.TXT", latin + "\r\n" + latin + ".eps\nutf8/" + latin);
  std::string found;
  const FileList list = data.Read({"LIST.TXT", "", "utf8"});
  for (const ListedFile& file : FilesOf(FileKind::episodes, list).files) {
    found += file.name + " " + data.Short(PathOf(file, FileKind::episodes)) + ";";
  }
  const std::string latinFile = utf8 + " " + latin + ".eps;";
  const std::string utf8File = utf8 + " utf8/" + utf8 + ".Eps;";
  EXPECT_EQ(found,
            latinFile + latinFile + "utf8/" + utf8File + latinFile + "utf8/" + utf8File + utf8File);
}

TEST(FileList, SaysWhereAFileIsNamedAndWhichFolderHasNone) {
  const Sources data({"a/5-12-3.eps", "b/5-12-3.sur", "a/notes.txt"});
  test::PutFile(data.folder / "a/LIST.TXT", "5-12-3\n\n5-12-4\n");
  const FileList one = data.Read({"a/LIST.TXT"});
  EXPECT_EQ(PlaceOf(one.files.at(1), one), "line 3 of the list");
  const FileList input = data.Read({"-"}, "5-12-3\n");
  EXPECT_EQ(PlaceOf(input.files.at(0), input), "line 1 of the list");
  EXPECT_EQ(input.files.at(0).path, "5-12-3");
  const FileList several = data.Read({"a/LIST.TXT", "a", "-"}, "5-12-3\n");
  EXPECT_EQ(PlaceOf(several.files.at(1), several),
            "line 3 of " + (data.folder / "a/LIST.TXT").string());
  EXPECT_EQ(PlaceOf(several.files.at(2), several), "");
  EXPECT_EQ(PlaceOf(several.files.at(3), several), "line 1 of -");

  const FileList folders = data.Read({"a", "b"});
  EXPECT_EQ(EmptyFolder(folders), nullptr);
  const FileList surveys = FilesOf(FileKind::survey, folders);
  ASSERT_TRUE(EmptyFolder(surveys));
  EXPECT_EQ(EmptyFolder(surveys)->path, data.folder / "a");
  EXPECT_THROW(data.Read({"a/notes.txt", "missing"}), FileError);
}

TEST(FileList, TellsOfObservationsThatComeTwice) {
  const Sources data({"a/5-12-3.eps", "b/05-12-3.eps", "b/7-7-7.eps", "b/last.eps"});
  test::PutFile(data.folder / "a/LIST.TXT", "5-12-3\n\n./5-12-3\n5-12-3\nlast\nlost\n");
  const std::string a = data.folder / "a";
  const std::pair<std::vector<std::string>, std::vector<std::string>> cases[] = {
      {{"a/LIST.TXT"},
       {"3: ./5-12-3 has the same numbers as 5-12-3 in line 1", "4: 5-12-3 is in line 1 already"}},
      {{"a", "b"}, {"0: 05-12-3 has the same numbers as " + a + "/5-12-3.eps"}},
      {{"b", "-"}, {"1: 7-7-7 has the same numbers as " + (data.folder / "b/7-7-7.eps").string()}},
      {{"-", "b"}, {"0: 7-7-7 is in line 1 of - already"}},
  };
  for (const auto& [sources, expected] : cases) {
    const FileList list = FilesOf(FileKind::episodes, data.Read(sources, "7-7-7\n6-6-6\n"));
    std::vector<std::string> told;
    for (const Repeat& repeat : RepeatsIn(list)) {
      told.push_back(std::to_string(repeat.file->line) + ": " + repeat.text);
    }
    EXPECT_EQ(told, expected) << sources.front();
  }
}

}  // namespace
}  // namespace orvex
