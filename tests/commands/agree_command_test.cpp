#include "commands/agree_command.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "commands/kept_console.h"
#include "store/storage.h"
#include "support/sample_pairs.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using test::KeptConsole;

const fs::path kRepeats = test::TestData("pairs/EPS/34/9/34-9-1.eps");
const fs::path kRepeatsAgain = test::TestData("pairs/EPS/34/9/34-9-2.eps");

TEST(AgreeCommand, TakesAndSavesThePairsOfTwoFiles) {
  const test::TestFolder folder;
  Storage storage;
  for (const test::SamplePair& sample : test::SamplePairs()) {
    SCOPED_TRACE(sample.name);
    KeptConsole kept;
    EXPECT_EQ(RunAgree({.sources = {sample.first, sample.second},
                        .json = true,
                        .pairs = sample.truePairs,
                        .savePairs = folder / "saved.csv"},
                       storage, kept.console),
              kDone);
    EXPECT_EQ(kept.err.str(), "");
    EXPECT_EQ(test::FileBytes(folder / "saved.csv"), test::FileBytes(sample.truePairs));
  }
}

TEST(AgreeCommand, SaysWhatIsWrongWithTwoFiles) {
  const test::TestFolder folder;
  Storage storage;
  const auto put = [&](const char* name, const std::string& bytes) {
    test::PutFile(folder / name, bytes);
    return folder / name;
  };
  const fs::path first = put("34-9-1.eps", test::FileBytes(kRepeats));
  const fs::path second = put("34-9-2.eps", test::FileBytes(kRepeatsAgain));
  const fs::path broken = put("34-9-3.eps", "broken");
  const fs::path lame = put("34-9-4.eps", test::FileBytes(kRepeatsAgain));
  put("34-9-4.sur", "broken");
  const struct {
    AgreeCommand command;
    ExitCode code;
    bool tells;       ///< the agreement
    std::string err;  ///< begins so
  } cases[] = {
      {{{first, second}}, kDone, true, ""},
      {{{first, second}, {.offset = 40000}}, kDone, true, ""},  // the text has the remarks
      {{{first, second}, {.offset = 40000}, true},
       kDone,
       true,
       "34-9-1.eps, 34-9-2.eps: warning: The two observations have no time in common."},
      {{{first, broken}}, kFailed, false, "34-9-3.eps:1: "},
      {{{folder / "none.eps", folder / "gone.eps"}},
       kFailed,
       false,
       "none.eps: No such file or directory\ngone.eps: No such file or directory\n"},
      {{{first, lame}}, kFailed, true, "34-9-4.sur:1: "},
      {{.sources = {first, second}, .pairs = put("pairs.csv", "first,second\r\n1,1\r\n2,999\r\n")},
       kFailed,
       false,
       "pairs.csv:3: "},
      {{.sources = {first, second}, .pairs = put("cross.csv", "first,second\n1,2\n2,1\n")},
       kFailed,
       false,
       "cross.csv:3: "},
      {{.sources = {first, second}, .savePairs = folder / "none" / "pairs.csv"},
       kFailed,
       true,
       "none/pairs.csv: "},
  };
  for (const auto& [command, code, tells, err] : cases) {
    KeptConsole kept;
    SCOPED_TRACE(err);
    EXPECT_EQ(RunAgree(command, storage, kept.console), code);
    EXPECT_EQ(!kept.out.str().empty(), tells);
    const std::string told = kept.Take(kept.err, folder.Path());
    EXPECT_EQ(told.substr(0, err.size()), err);
    EXPECT_EQ(told.empty(), err.empty());
  }
}

std::string FirstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

TEST(AgreeCommand, ComparesAStudyWithoutWhatCannotBeRead) {
  const test::TestFolder folder;
  Storage storage;
  fs::copy(test::TestData("pairs/EPS"), folder / "EPS", fs::copy_options::recursive);
  test::PutFile(folder / "EPS/1/1/1-1-1.eps", "broken");
  fs::create_directory(folder / "out");
  KeptConsole kept;
  EXPECT_EQ(RunAgree({.sources = {folder.Path()}, .json = true, .csv = folder / "out"}, storage,
                     kept.console),
            kFailed);
  EXPECT_TRUE(kept.Take(kept.err, folder.Path()).starts_with("EPS/1/1/1-1-1.eps:1: "));
  const std::string out = kept.out.str();
  EXPECT_EQ(std::ranges::count(out, '\n'), 6 + 1);
  EXPECT_NE(out.find("\n{\"schema\":1,\"study\":{\"pairs\":6,"), std::string::npos);

  const struct {
    const char* name;
    const char* header;  ///< begins so
    std::ptrdiff_t lines;
  } tables[] = {
      {"agreement_pairs.csv", "first,second,school,class,date,observer_first,", 1 + 6},
      {"agreement_observers.csv", "observer,pairs,source_n,source_left_out,", 1 + 4},
      {"agreement_study.csv", "pairs,seconds,percent,kappa,tolerance,", 1 + 1},
      {"agreement_icc.csv", "figure,pairs,left_out,icc,undefined\r", 1 + 9},
  };
  for (const auto& [name, header, lines] : tables) {
    SCOPED_TRACE(name);
    const std::string text = test::FileBytes(folder / "out" / name);
    EXPECT_TRUE(text.starts_with(header)) << FirstLine(text);
    EXPECT_EQ(std::ranges::count(text, '\n'), lines);
    // As many cells in every line.
    const auto cells = std::ranges::count(FirstLine(text), ',');
    EXPECT_EQ(std::ranges::count(text, ','), cells * lines);
  }
  const std::string confusion = test::FileBytes(folder / "out/agreement_confusion.csv");
  EXPECT_NE(confusion.find("\r\n34-7-1.eps,34-7-2.eps,activity,13,5,"), std::string::npos);
  EXPECT_NE(confusion.find("\r\n,,source,T,T,"), std::string::npos) << "of all pairs";
  const std::string disagreements = test::FileBytes(folder / "out/agreement_disagreements.csv");
  EXPECT_NE(disagreements.find(",source,T,S\r\n"), std::string::npos);
  EXPECT_NE(disagreements.find(",,,,,,\r\n"), std::string::npos) << "only the first has it";

  // Where one table cannot be written, none is replaced.
  test::PutFile(folder / "out/agreement_pairs.csv", "earlier");
  fs::remove(folder / "out/agreement_icc.csv");
  fs::create_directory(folder / "out/agreement_icc.csv");
  const std::pair<const char*, const char*> unwritable[] = {
      {"out", "out/agreement_icc.csv: "}, {"none", "none: there is no such folder"}};
  for (const auto& [csv, err] : unwritable) {
    KeptConsole again;
    EXPECT_EQ(RunAgree({.sources = {folder.Path()}, .csv = folder / csv}, storage, again.console),
              kFailed);
    const std::string told = again.Take(again.err, folder.Path());
    EXPECT_TRUE(told.starts_with(err)) << told;
    EXPECT_EQ(again.out.str(), "") << "before anything was compared";
  }
  EXPECT_EQ(test::FileBytes(folder / "out/agreement_pairs.csv"), "earlier");
}

TEST(AgreeCommand, SaysThatThereAreNoPairs) {
  const test::TestFolder folder;
  Storage storage;
  test::PutFile(folder / "34-9-1.eps", test::FileBytes(kRepeats));
  KeptConsole kept;
  EXPECT_EQ(RunAgree({.sources = {folder.Path()}}, storage, kept.console), kFailed);
  EXPECT_EQ(kept.Take(kept.err, folder.Path()),
            "warning: 34-9-1.eps: there is no other observation of this class on this day.\n"
            "There are no two observations of the same school, class and date.\n");
}

}  // namespace
}  // namespace orvex
