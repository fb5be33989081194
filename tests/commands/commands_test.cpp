// What the commands write, which streams and files they write to, and their exit codes.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <functional>
#include <sstream>

#include "commands/check_command.h"
#include "commands/kept_console.h"
#include "commands/named_file.h"
#include "commands/older_report.h"
#include "commands/report_command.h"
#include "commands/table_command.h"
#include "store/eps_writer.h"
#include "store/printable_text.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::KeptConsole;

void CopySample(const std::string& sample, const std::filesystem::path& to) {
  test::PutFile(to, test::FileBytes(test::TestData(sample)));
}

TEST(Commands, ExportSaysHowItWentInItsExitCode) {
  const test::TestFolder folder;
  CopySample("class/17-17-7.eps", folder / "17-17-7.eps");
  test::PutFile(folder / "1-2-3.eps",
                test::FileBytes(test::TestData("bad/banner-old-and-repair.eps")) + "\r\nmore\r\n");
  CopySample("bad/noise.eps", folder / "5-12-3.eps");
  std::string cut = test::FileBytes(test::TestData("bad/cut-after-line-072-Q3.eps"));
  for (int lines = 0; lines < 4; ++lines) cut.erase(cut.rfind('\n', cut.size() - 2) + 1);
  test::PutFile(folder / "6-1-1.eps", cut);
  std::filesystem::create_directory(folder / "out");
  const std::string kStays = "The earlier EPSDATA.TXT stays as it was.\n";
  const std::string kBad =
      "5-12-3.eps:1: this is a binary file, not an episode file (line 2 of the list)\n";
  struct Case {
    const char* list;
    bool keepGoing;
    ExitCode code;
    std::string out;
    std::string err;
  };
  const Case cases[] = {
      {"17-17-7\n", false, kDone, "out/EPSDATA.TXT: 3 rows from 1 file\n", ""},
      {"17-17-7\n5-12-3\n17-17-7\n", true, kFound, "out/EPSDATA.TXT: 6 rows from 2 files\n",
       "LIST.TXT:3: warning: 17-17-7 is in line 1 already\n" + kBad},
      {"17-17-7\n5-12-3\n1-2-3\n", false, kFailed, "out/EPSDATA.TXT: 3 rows from 1 file\n",
       kBad + "The table ends there. Files not read: 1.\n"},
      {"17-17-7\n6-1-1\n", false, kFailed,
       "out/EPSDATA.TXT: 5 rows from 2 files, the last in part\n",
       "6-1-1.eps:70: expected a code letter, not the end of the file (line 2 of the "
       "list)\n"},
      {"17-17-7\n6-1-1\n17-17-7\n", true, kFound, "out/EPSDATA.TXT: 6 rows from 2 files\n",
       "LIST.TXT:3: warning: 17-17-7 is in line 1 already\n6-1-1.eps:70: expected a code letter, "
       "not the end of the file (line 2 of the list)\n"},
      {"\n5-12-3\n", true, kFailed, "", kBad + "There are no rows. " + kStays},
      {"1-2-3\n", false, kDone, "out/EPSDATA.TXT: 3 rows from 1 file\n",
       "1-2-3.eps: warning: EPS file created by an earlier version of ORVEX.\n"
       "1-2-3.eps: warning: An inconsistency is found in activity coding of first segment in "
       "episode #1. The episode's activity is taken.\n"
       "1-2-3.eps: warning: text after the last question, line 75\n"
       "1-2-3.eps: warning: the identity line says 5-12-3\n"},
  };
  for (const auto& [list, keepGoing, code, out, err] : cases) {
    SCOPED_TRACE(list);
    KeptConsole kept;
    Storage storage;
    test::PutFile(folder / "LIST.TXT", list);
    EXPECT_EQ(RunExport(ExportCommand{.sources = {folder / "LIST.TXT"},
                                      .output = folder / "out",
                                      .keepGoing = keepGoing},
                        storage, kept.console),
              code);
    EXPECT_EQ(kept.Take(kept.out, folder.Path()), out);
    EXPECT_EQ(kept.Take(kept.err, folder.Path()), err);
    const std::string rows =
        std::to_string(std::ranges::count(test::FileBytes(folder / "out/EPSDATA.TXT"), '\n'));
    EXPECT_TRUE(out.empty() || out.find(": " + rows + " row") != std::string::npos) << rows;
  }
}

TEST(Commands, AStopLeavesTheEarlierTablesAtAnyMoment) {
  const test::TestFolder folder;
  for (const std::string name : {"17-17-7.eps", "11-4-2.eps", "22-5-11.eps"}) {
    CopySample("class/" + name, folder / name);
  }
  test::PutFile(folder / "LIST.TXT", "17-17-7\n11-4-2\n22-5-11\n");
  test::PutFile(folder / "EPSDATA.TXT", "earlier");
  test::PutFile(folder / "episodes.csv", "earlier");
  const std::string kLooking =
      "Interrupted while the files were looked for. Nothing was written.\n";
  const std::string kStays = " of 3 files. The earlier EPSDATA.TXT stays as it was.\n";
  struct Case {
    int stop;  // how often it was asked before whether to stop
    bool exports;
    std::string err;
  };
  const Case cases[] = {
      {0, true, kLooking},
      {3, true, "\r0 of 3 files\r1 of 3 files\r\033[KInterrupted after 2" + kStays},
      {4, true, "\r0 of 3 files\r1 of 3 files\r2 of 3 files\r\033[KInterrupted after 3" + kStays},
      {0, false, kLooking},
      {8, false,
       "\r0 of 3 files\r1 of 3 files\r2 of 3 files\r\033[K\r0 of 3 files\r1 of 3 files\r2 of 3 "
       "files\r\033[KInterrupted after 3 of 3 files. All earlier tables stay as they were.\n"},
  };
  for (const auto& [stop, exports, err] : cases) {
    SCOPED_TRACE(stop);
    KeptConsole kept;
    Storage storage;
    kept.console.showsProgress = true;
    int asked = 0;
    kept.console.interrupted = [&, limit = stop] { return asked++ >= limit; };
    const std::vector<std::filesystem::path> sources = {folder / "LIST.TXT"};
    EXPECT_EQ(exports ? RunExport({.sources = sources}, storage, kept.console)
                      : RunTable({.tables = {TidyTable::episodes, TidyTable::segments},
                                  .sources = sources},
                                 storage, kept.console),
              kFailed);
    EXPECT_EQ(kept.Take(kept.out, folder.Path()), "");
    EXPECT_EQ(kept.err.str(), err);
    EXPECT_EQ(test::FileBytes(folder / "EPSDATA.TXT") + test::FileBytes(folder / "episodes.csv"),
              "earlierearlier");
    EXPECT_FALSE(std::filesystem::exists(folder / "segments.csv"));
  }
}

TEST(Commands, SourcesThatNameNothingOrCannotBeReadLeaveTheEarlierTable) {
  const test::TestFolder folder;
  test::PutFile(folder / "EPSDATA.TXT", "earlier");
  test::PutFile(folder / "EMPTY.TXT", "\r\n\r\n");
  CopySample("class/17-17-7.eps", folder / "17-17-7.NTE");
  const std::pair<const char*, const char*> cases[] = {
      {"NONE.TXT", "NONE.TXT: No such file or directory\n"},
      {"EMPTY.TXT",
       "EMPTY.TXT: there is no observation in it\nThe earlier EPSDATA.TXT stays as it was.\n"},
      {"17-17-7.NTE", "17-17-7.NTE: expected an episode file (.eps) or survey file (.sur)\n"},
  };
  for (const auto& [source, err] : cases) {
    KeptConsole kept;
    Storage storage;
    EXPECT_EQ(
        RunExport({.sources = {folder / source}, .output = folder.Path()}, storage, kept.console),
        kFailed);
    EXPECT_EQ(kept.Take(kept.err, folder.Path()), err);
    EXPECT_EQ(test::FileBytes(folder / "EPSDATA.TXT"), "earlier");
  }
  KeptConsole kept;
  Storage storage;
  EXPECT_EQ(RunTable({.tables = {TidyTable::survey},
                      .sources = {folder / "EMPTY.TXT"},
                      .output = kStandardOutput},
                     storage, kept.console),
            kDone);
  EXPECT_TRUE(kept.out.str().starts_with("file,school,")) << kept.out.str();
}

TEST(Commands, FoldersWithoutRightsAreToldWhileTheRestIsRead) {
  const test::TestFolder folder;
  CopySample("class/17-17-7.eps", folder / "17-17-7.eps");
  CopySample("class/11-4-2.eps", folder / "locked/11-4-2.eps");
  const auto locked = folder / "locked";
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
  std::filesystem::permissions(locked, std::filesystem::perms::none);
  constexpr uid_t kNobody = 65534;
  const bool root = ::geteuid() == 0;  // permissions do not stop root
  if (root && ::seteuid(kNobody) != 0) GTEST_SKIP() << "root cannot become another user here";
  const std::vector<std::filesystem::path> sources = {folder.Path()};
  Storage storage;
  const std::pair<const char*, std::function<ExitCode(const Console&)>> commands[] = {
      {"export", [&](const Console& c) { return RunExport({.sources = sources}, storage, c); }},
      {"table",
       [&](const Console& c) {
         return RunTable({.tables = {TidyTable::episodes}, .sources = sources}, storage, c);
       }},
      {"report", [&](const Console& c) { return RunReport({sources}, c); }},
      {"check", [&](const Console& c) { return RunCheck(sources, c); }},
  };
  for (const auto& [name, run] : commands) {
    KeptConsole kept;
    EXPECT_EQ(run(kept.console), kFailed) << name;
    EXPECT_EQ(kept.Take(kept.err, folder.Path()), "locked: Permission denied\n") << name;
    EXPECT_NE(kept.out.str(), "") << name;
  }
  EXPECT_EQ(root ? ::seteuid(0) : 0, 0);
  std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
}

TEST(Commands, ACodebookThatCannotBeWrittenIsToldBesideItsNewTable) {
  const test::TestFolder folder;
  CopySample("class/17-17-7.eps", folder / "17-17-7.eps");
  std::filesystem::create_directories(folder / "episodes.R");
  KeptConsole kept;
  Storage storage;
  EXPECT_EQ(RunTable({.tables = {TidyTable::episodes},
                      .sources = {folder / "17-17-7.eps"},
                      .output = folder.Path(),
                      .codebooks = {CodebookKind::csv, CodebookKind::r, CodebookKind::spss}},
                     storage, kept.console),
            kFailed);
  EXPECT_EQ(kept.Take(kept.err, folder.Path()),
            "episodes.R: not a regular file\nThe table episodes.csv is the new one. The earlier "
            "episodes.R stays as it was.\n");
  for (const char* made : {"episodes.csv", "episodes-codebook.csv", "episodes.sps"}) {
    EXPECT_NE(kept.out.str().find(std::string(made) + ": "), std::string::npos) << made;
    EXPECT_NE(test::FileBytes(folder / made), "") << made;
  }
}

TEST(Commands, TableAndCodebookNeverTakeThePlaceOfTheList) {
  const test::TestFolder folder;
  CopySample("class/17-17-7.eps", folder / "17-17-7.eps");
  Storage storage;
  KeptConsole kept;
  for (const char* name : {"questions.csv", "questions-codebook.csv"}) {
    test::PutFile(folder / name, "17-17-7\n");
    EXPECT_EQ(RunTable(TableCommand{.tables = {TidyTable::questions},
                                    .sources = {folder / name},
                                    .codebooks = {CodebookKind::csv}},
                       storage, kept.console),
              kFailed);
    EXPECT_EQ(kept.Take(kept.err, folder.Path()),
              name + std::string(": this is the list, which the table would replace\n"));
    EXPECT_EQ(test::FileBytes(folder / name), "17-17-7\n");
  }
}

TEST(Commands, NoTextSteersTheTerminal) {
  const std::string steering =
      "\x1B[31m\xC2\x9B\xE2\x80\xAE"
      "1\x9B\xC3\xA9";
  const std::string shown = R"(\x1B[31m\xC2\x9B\xE2\x80\xAE1\x9B)"
                            "\xC3\xA9";
  EXPECT_EQ(Printable(steering), shown);

  const test::TestFolder folder;
  EpsObservation observation;
  observation.header.identity = {"A\x1BZ", "5\xE2\x80\xAE", "\n12", "3", "28"};
  observation.header.ObservDate = "\x1B[2J";
  Storage storage;
  WriteEpsFile(storage, folder / "5-12-3.eps", observation.header, observation.Episodes);
  KeptConsole kept;
  RunReport(ReportCommand{{folder / "5-12-3.eps"}}, kept.console);
  EXPECT_EQ((kept.out.str() + kept.err.str()).find_first_of("\x1B\x80"), std::string::npos);
  EXPECT_NE(kept.out.str().find(R"(School 5\xE2\x80\xAE, Class)"), std::string::npos);
  EXPECT_NE(kept.err.str().find(R"(warning: the identity line says 5\xE2\x80\xAE-)"),
            std::string::npos);
}

TEST(Commands, CheckNamesWhatIsMissingAndGoesOnAfterABadFile) {
  const test::TestFolder folder;
  EpsObservation observation;
  observation.header.identity = {"AB", "5", "12", "3", "28"};
  observation.Episodes.resize(2);
  for (Episode& episode : observation.Episodes) {
    episode.segments.emplace_back().SetData(kQuestionAnswer, 60);
  }
  auto& questions = observation.Episodes[1].questions;
  questions.emplace_back().SetValue("Why?", {"T", "Y", "N", "", "R", "Ana", "N"}, 2, 1);
  questions.emplace_back().SetValue("", {"S", "N"}, 2, 1);
  questions.emplace_back().SetValue("Who?", {"T", "N"}, 2, 1);
  Storage storage;
  WriteEpsFile(storage, folder / "5-12-3.eps", observation.header, observation.Episodes);
  CopySample("class/17-17-7.sur", folder / "17-17-7.sur");
  CopySample("bad/noise.sur", folder / "bad.SUR");

  KeptConsole kept;
  EXPECT_EQ(
      RunCheck({folder / "5-12-3.eps", folder / "bad.SUR", folder / "17-17-7.sur"}, kept.console),
      kFailed);
  EXPECT_EQ(kept.Take(kept.out, folder.Path()),
            "5-12-3.eps:2:1: missing Uptake, Elaborated/Unelaborated\n"
            "5-12-3.eps:2:2: missing the text of the question, Who answers question?\n"
            "17-17-7.sur: not rated: 21. Students used \"texts\" to support or refute ideas.\n"
            "2 files checked: 2 of 3 questions not fully coded, 1 of 25 statements not rated\n");
  const std::string err = kept.Take(kept.err, folder.Path());
  EXPECT_TRUE(err.starts_with("bad.SUR:")) << err;
  EXPECT_TRUE(err.ends_with("1 file could not be read\n"));

  EXPECT_EQ(RunCheck({folder / "17-17-7.sur"}, kept.console), kFound);
  EXPECT_TRUE(kept.Take(kept.out, folder.Path())
                  .ends_with("1 file checked: 1 of 25 statements not rated\n"));
  questions.resize(0);
  WriteEpsFile(storage, folder / "5-12-3.eps", observation.header, observation.Episodes);
  EXPECT_EQ(RunCheck({folder / "5-12-3.eps"}, kept.console), kDone);
  EXPECT_EQ(kept.Take(kept.out, folder.Path()),
            "1 file checked: 0 of 0 questions not fully coded\n");
}

/// Expects every member of `expected` in `found`, with the same value.
void ExpectHolds(const QJsonValue& expected, const QJsonValue& found, const std::string& path) {
  if (expected.isObject()) {
    const QJsonObject members = expected.toObject();
    for (auto member = members.begin(); member != members.end(); ++member) {
      // "twists" describes the sample itself, not its reports.
      if (path.empty() && member.key() == QLatin1String("twists")) continue;
      const std::string name = path + "/" + member.key().toStdString();
      ASSERT_TRUE(found.toObject().contains(member.key())) << name;
      ExpectHolds(member.value(), found.toObject()[member.key()], name);
    }
  } else if (expected.isArray()) {
    const QJsonArray items = expected.toArray();
    ASSERT_EQ(items.size(), found.toArray().size()) << path;
    for (int i = 0; i < items.size(); ++i) {
      ExpectHolds(items[i], found.toArray()[i], path + "/" + std::to_string(i));
    }
  } else if (expected.isDouble() && found.isDouble()) {
    EXPECT_NEAR(expected.toDouble(), found.toDouble(), 1e-9) << path;
  } else {
    EXPECT_EQ(expected, found) << path << ": " << found.toString().toStdString();
  }
}

TEST(Commands, ReportSaysInJsonWhatAnotherProgramSays) {
  int files = 0;
  for (const char* name : {"class", "odd"}) {
    const auto folder = test::SamplesFolder() / name;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "expected")) {
      if (entry.path().extension() != ".json") continue;
      SCOPED_TRACE(entry.path().string());
      KeptConsole kept;
      const auto eps = folder / entry.path().filename().replace_extension(".eps");
      EXPECT_EQ(RunReport(ReportCommand{{eps}, true}, kept.console), kDone);
      const std::string text = kept.out.str();
      EXPECT_EQ(std::ranges::count(text, '\n'), 1);
      const auto found = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
      const auto expected =
          QJsonDocument::fromJson(QByteArray::fromStdString(test::FileBytes(entry.path())));
      EXPECT_EQ(found[QLatin1String("file")].toString().toStdString(), eps.string());
      EXPECT_EQ(found[QLatin1String("schema")].toInt(), 1);
      KeptConsole reading;
      const auto observation = ReadEpisodes(eps, "", reading.console);
      ASSERT_TRUE(observation);
      ExpectHolds(expected.object(), test::InOlderKeys(found, *observation), "");
      ++files;
    }
  }
  EXPECT_GE(files, 10);
}

TEST(Commands, ReportWritesEveryEpisodeAndGoesOnAfterABadFile) {
  const test::TestFolder folder;
  CopySample("class/17-17-7.eps", folder / "17-17-7.eps");
  CopySample("bad/noise.eps", folder / "5-12-3.eps");
  for (const bool json : {false, true}) {
    KeptConsole kept;
    EXPECT_EQ(RunReport(ReportCommand{{folder / "5-12-3.eps", folder / "17-17-7.eps"}, json},
                        kept.console),
              kFailed);
    const std::string out = kept.out.str();
    const std::vector<std::string> parts =
        json ? std::vector<std::string>{"{\"schema\":1,", "\"episode\":3,"}
             : std::vector<std::string>{"17-17-7.eps:\n\nTime Summary for School 17",
                                        "17-17-7 Episode 1", "17-17-7 Episode 2",
                                        "17-17-7 Episode 3"};
    for (const std::string& part : parts) EXPECT_NE(out.find(part), std::string::npos) << part;
    EXPECT_EQ(kept.Take(kept.err, folder.Path()),
              "5-12-3.eps:1: this is a binary file, not an episode file\n");
  }
}

}  // namespace
}  // namespace orvex
