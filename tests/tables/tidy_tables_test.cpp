// The tables for statistics programs: checked cell by cell, and read by such programs.

#include "tables/tidy_tables.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <sstream>

#include "commands/table_command.h"
#include "store/eps_writer.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"
#include "tables/codebook.h"
#include "tables/csv.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

using Row = std::map<std::string, std::string>;

/// Reads a table as RFC 4180 defines it.
std::vector<Row> ReadCsv(const std::string& text) {
  std::vector<std::vector<std::string>> lines(1, {""});
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::string& cell = lines.back().back();
    if (text[i] == '"') {
      if (quoted && text[i + 1] == '"')
        cell += text[i++];
      else
        quoted = !quoted;
    } else if (!quoted && text[i] == ',') {
      lines.back().emplace_back();
    } else if (!quoted && text[i] == '\r') {
      EXPECT_EQ(text[++i], '\n');
      lines.push_back({""});
    } else {
      cell += text[i];
    }
  }
  EXPECT_EQ(lines.back().size(), 1U) << "the last line has no end";
  lines.pop_back();
  std::vector<Row> rows;
  for (std::size_t line = 1; line < lines.size(); ++line) {
    EXPECT_EQ(lines[line].size(), lines[0].size()) << line;
    Row& row = rows.emplace_back();
    for (std::size_t i = 0; i < lines[0].size(); ++i) row[lines[0][i]] = lines[line].at(i);
  }
  return rows;
}

std::vector<Row> Table(TidyTable table, const fs::path& file) {
  const TableKind kind = TidyTableKind(table);
  FileRows rows;
  kind.append(file, "a/" + file.stem().string(), rows);
  return ReadCsv(kind.header + rows.text);
}

std::string CellOf(const std::string& text) {
  std::string cell;
  Csv(cell).Text(text);
  return cell;
}

TEST(Csv, KeepsTextsTextsInEveryProgram) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"Why?", "Why?"},
      {"Why, \"so\"?", "\"Why, \"\"so\"\"?\""},
      {" Why?", "\" Why?\""},
      {"a\nb\rc\td", "a b c d"},
      {"=1+1", "'=1+1"},
      {"+1", "'+1"},
      {"-1", "'-1"},
      {"@SUM(A1)", "'@SUM(A1)"},
      {"  =1+1", "'  =1+1"},
      {"\t=1+1", "' =1+1"},
      {"＝1+1", "'＝1+1"},
      {"=HYPERLINK(\"x\",1)", "\"'=HYPERLINK(\"\"x\"\",1)\""},
      {"a=b", "a=b"},
  };
  for (const auto& [text, cell] : cases) EXPECT_EQ(CellOf(text), cell) << text;
}

TEST(Csv, WritesDatesAsIso) {
  const std::pair<const char*, const char*> cases[] = {
      {"03-14-2001", "2001-03-14"}, {"3/4/2001", "2001-03-04"}, {"02-29-2000", "2000-02-29"},
      {"02-29-2001", ""},           {"14-03-2001", ""},         {"03-14-01", ""},
      {"03-14-2001x", ""},          {"03--14-2001", ""},        {"", ""},
  };
  for (const auto& [date, iso] : cases) EXPECT_EQ(IsoDate(date), iso) << date;
}

TEST(TidyTables, TellOfEveryQuestionSegmentAndEpisode) {
  const test::TestFolder folder;
  EpsObservation observation;
  observation.header.identity = {"AB", "5", "12", "3", "28"};
  observation.header.ObservDate = "03-14-2001";
  observation.header.StartTime = "09:05:12";
  Episode& episode = observation.Episodes.emplace_back();
  episode.Descript = "Ch. 1, \"Boo\"";
  episode.bReview = "N";
  episode.offtask = 0.125F;
  SegmentData& presentation = episode.segments.emplace_back();
  presentation.SetData(7, 90);
  presentation.grpSolo = 0;
  presentation.org = 1;
  SegmentData& seatwork = episode.segments.emplace_back();
  seatwork.SetData(15, 30);
  seatwork.fSubCat = 1;
  seatwork.src = 2;
  seatwork.org = kUncoded;
  for (const char* name : {"Ana", "", "=cmd"}) {
    episode.questions.emplace_back().SetValue("Où?", {"S", "Y", "A", "T", "H", name, "", "O", "E"},
                                              1, 2);
  }
  observation.Episodes.emplace_back();
  Storage storage;
  const fs::path file = folder / "x-y-z.eps";
  WriteEpsFile(storage, file, observation.header, observation.Episodes);

  const std::string identity =
      "file=a/x-y-z; school=5; class=12; observation=3; students=28; observer=AB; date=2001-03-14; "
      "start_time=09:05:12";
  const auto expectRow = [](const Row& row, const std::string& expected) {
    std::istringstream cells(expected);
    for (std::string cell; std::getline(cells >> std::ws, cell, ';');) {
      const std::size_t sign = cell.find('=');
      EXPECT_EQ(row.at(cell.substr(0, sign)), cell.substr(sign + 1)) << cell;
    }
  };
  const auto questions = Table(TidyTable::questions, file);
  ASSERT_EQ(questions.size(), 3U);
  expectRow(
      questions[0],
      identity +
          "; episode=1; question=1; segment=2; activity=15; text=Où?; source=S; response=Y; "
          "authenticity=A; uptake=T; cognitive_level=H; respondent=Ana; one_part_of_multiple=; "
          "teacher_response=O; elaborated=E; normal=0; fully_coded=1; dialogic_spell=1");
  expectRow(questions[1], "respondent=; fully_coded=0");
  expectRow(questions[2], "respondent='=cmd");
  const auto segments = Table(TidyTable::segments, file);
  ASSERT_EQ(segments.size(), 2U);
  expectRow(segments[0], identity +
                             "; segment=1; activity=7; seconds=90; group_solo=0; preparation=; "
                             "organization=1; writing=; seatwork_organization=");
  expectRow(segments[1],
            "writing=1; seatwork_source=2; seatwork_level=; group_work=; organization=");
  const auto episodes = Table(TidyTable::episodes, file);
  ASSERT_EQ(episodes.size(), 2U);
  expectRow(episodes[0], identity +
                             "; description=Ch. 1, \"Boo\"; review=N; seconds=120; segments=2; "
                             "questions=3; spells=1; offtask=0.125; student_questions=3; "
                             "higher_order=3; seconds_07=90; seconds_15=30; seconds_01=0");
  expectRow(episodes[1], "review=; questions=0; offtask=");

  // Values that a file holds in an unusual form.
  observation.header.identity = {"AB", "-7", "1E3", " 03", "many"};
  observation.header.StartTime = "9:5:1";
  observation.Episodes[0].offtask = -0.0F;
  WriteEpsFile(storage, file, observation.header, observation.Episodes);
  expectRow(Table(TidyTable::episodes, file).at(0),
            "school=-7; class=1000; observation=3; students=; start_time=09:05:01; offtask=0");
}

TEST(TidyTables, HaveACodebookOfTheirVariables) {
  for (const TidyTable table : kTidyTables) {
    const std::string header = TidyTableKind(table).header;
    std::string names;
    for (const Row& row : ReadCsv(Codebook(table, CodebookKind::csv, ""))) {
      const std::string& name = row.at("variable");
      EXPECT_FALSE(row.at("label").empty()) << name;
      EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_"), std::string::npos)
          << name;
      if (!names.ends_with("," + name)) names += "," + name;
    }
    EXPECT_EQ(names.substr(1) + "\r\n", header);
  }
}

/// Makes all tables from the odd samples.
void MakeTables(const fs::path& folder) {
  std::ostringstream out;
  std::ostringstream err;
  const Console console{.out = out, .err = err, .interrupted = {}};
  Storage storage;
  const TableCommand command = {.tables = {kTidyTables.begin(), kTidyTables.end()},
                                .sources = {test::SamplesFolder() / "odd" / "LIST.TXT"},
                                .output = folder,
                                .codebooks = {CodebookKind::csv}};
  EXPECT_EQ(RunTable(command, storage, console), kDone) << err.str();
}

/// Runs a script that reads the tables in `folder`. Its sums must match those of EPSDATA.TXT, which
/// another program has made.
void ExpectScriptAgrees(const std::string& interpreter, const std::string& script,
                        const fs::path& folder) {
  test::PutFile(folder / "script", script);
  const fs::path epsData = test::SamplesFolder() / "odd" / "expected" / "EPSDATA.TXT";
  const std::string command = "cd '" + folder.string() +
                              "' && LC_ALL=C.UTF-8 LD_PRELOAD= " + interpreter + " script '" +
                              epsData.string() + "' >out 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << test::FileBytes(folder / "out");
}

bool Succeeds(const std::string& command) {
  return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

TEST(TidyTables, AreReadByPandas) {
  const std::string python =
      Succeeds("/usr/bin/python3 -c 'import pandas'") ? "/usr/bin/python3" : "python3";
  if (!Succeeds(python + " -c 'import pandas'")) {
    GTEST_SKIP() << "python3-pandas is not installed";
  }
  const test::TestFolder folder;
  MakeTables(folder.Path());
  ExpectScriptAgrees(python, R"(
import sys, pandas as pd
t = {}
for n in ('observations', 'survey', 'episodes', 'segments', 'questions'):
    book = pd.read_csv(n + '-codebook.csv', keep_default_na=False)
    texts = dict.fromkeys(book.variable[book.type != 'number'], str)
    t[n] = pd.read_csv(n + '.csv', keep_default_na=False, na_values=[''], dtype=texts)
old = pd.read_csv(sys.argv[1], header=None)
q, s, e = t['questions'], t['segments'], t['episodes']
assert len(e) == len(old), (len(e), len(old))
assert list(e.episode) == list(old[3])
assert list(e.seconds_01) == list(old[4])
assert list(e.teacher_questions) == list(old[31])
assert list(e.higher_order) == list(old[37])
assert list(e.default_questions) == list(old[35])
assert e.seconds.sum() == s.seconds.sum()
assert e.questions.sum() == len(q) and e.segments.sum() == len(s)
key = ['file', 'episode']
assert (q[q.cognitive_level == 'H'].groupby(key).size().sum()) == old[37].sum()
assert t['observations'].questions.sum() == len(q) and t['observations'].not_fully_coded.sum() == sum(q.fully_coded == '0')
assert set(t['survey'].s03_flexibility.dropna()) <= set('0129') and len(t['survey']) == len(t['observations'])
assert pd.to_datetime(e.date, format='%Y-%m-%d').notna().any()
for n, f in t.items():
    book = pd.read_csv(n + '-codebook.csv', keep_default_na=False, dtype=str)
    assert list(dict.fromkeys(book.variable)) == list(f.columns)
    for v in set(book[book.type == 'number'].variable):
        assert pd.api.types.is_numeric_dtype(f[v]), (n, v)
)",
                     folder.Path());
}

TEST(TidyTables, AreReadByR) {
  if (!Succeeds("Rscript --version")) GTEST_SKIP() << "r-base-core is not installed";
  const test::TestFolder folder;
  MakeTables(folder.Path());
  ExpectScriptAgrees("Rscript", R"(
old <- read.csv(commandArgs(TRUE)[1], header = FALSE)
read <- function(n) read.csv(paste0(n, ".csv"), na.strings = "", encoding = "UTF-8")
q <- read("questions"); s <- read("segments"); e <- read("episodes")
stopifnot(nrow(e) == nrow(old), e$episode == old$V4, e$seconds_01 == old$V5,
          e$teacher_questions == old$V32, e$higher_order == old$V38,
          sum(e$seconds) == sum(s$seconds), sum(e$questions) == nrow(q), sum(e$segments) == nrow(s),
          is.numeric(e$offtask), any(!is.na(as.Date(e$date))))
for (n in c("questions", "segments", "episodes")) {
  book <- read.csv(paste0(n, "-codebook.csv"))
  stopifnot(unique(book$variable) == names(read(n)))
}
)",
                     folder.Path());
}

}  // namespace
}  // namespace orvex
