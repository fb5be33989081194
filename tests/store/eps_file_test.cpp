#include "store/eps_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/file_error.h"
#include "store/format_error.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::FileBytes;

/// Records what the user is told, and goes on with files of earlier versions.
struct Messages : EpsReadEvents {
  bool ContinueWithEarlierVersion() override {
    told.emplace_back("EPS file created by an earlier version of ORVEX. Continue anyway?");
    return true;
  }
  void FirstSegmentRepaired(int ep) override {
    told.push_back("An inconsistency is found in activity coding of first segment in episode #" +
                   std::to_string(ep) + ".\nIt's been corrected.");
  }
  std::vector<std::string> told;
};

EpsObservation Read(const std::string& bytes) {
  Messages messages;
  auto observation = ParseEps(bytes, messages);
  EXPECT_TRUE(messages.told.empty());
  return observation;
}

std::string Written(const EpsObservation& observation) {
  return FormatEps(observation.header, observation.Episodes);
}

EpsObservation SmallObservation() {
  EpsObservation small;
  small.header.identity = {"AB", "5", "12", "3", "28"};
  small.header.ObservDate = "03-14-2001";
  small.header.StartTime = "09:05:12";
  Episode& episode = small.Episodes.emplace_back();
  episode.segments.emplace_back().SetData(6, 60, {.about = "fate"});
  episode.questions.emplace_back().SetValue("Why?", "T", "", "", "", "", "Ann", "", "", "", 1, 1);
  return small;
}

TEST(EpsFile, OrdinaryAndOddFilesAreWrittenBackByteForByte) {
  int files = 0;
  for (const char* folder : {"class", "odd"}) {
    for (const auto& path : test::SampleFiles(test::SamplesFolder() / folder, ".eps")) {
      SCOPED_TRACE(path);
      Messages messages;
      const auto observation = ReadEpsFile(path, messages);
      EXPECT_TRUE(messages.told.empty());
      EXPECT_TRUE(Written(observation) == FileBytes(path));
      ++files;
    }
  }
  EXPECT_GE(files, 20);
}

TEST(EpsFile, BadFilesAreReadAsTheirManifestSays) {
  const auto folder = test::SamplesFolder() / "bad";
  const auto samples = test::BadSamples(".eps");
  EXPECT_GE(samples.size(), 100U);
  for (const auto& sample : samples) {
    SCOPED_TRACE(sample.file);
    Messages messages;
    bool accepted = false;
    try {
      const auto observation = ReadEpsFile(folder / sample.file, messages);
      accepted = true;
      const std::string rewritten = Written(observation);
      EXPECT_EQ(rewritten, FileBytes(folder / "rewritten" / sample.file));
      EXPECT_EQ(Written(Read(rewritten)), rewritten);
    } catch (const FormatError& error) {
      messages.told.emplace_back("Invalid file format.");
      const std::string bytes = FileBytes(folder / sample.file);
      EXPECT_LE(error.Line(), 1 + std::ranges::count(bytes, '\n')) << error.what();
    } catch (const FileError&) {  // a folder; there is no message of the format's
    }
    EXPECT_EQ(accepted, sample.Accepted());
    EXPECT_EQ(messages.told, sample.messages);
  }
}

TEST(EpsFile, ErrorsNameTheirPlace) {
  constexpr std::pair<const char*, const char*> kCases[] = {
      {"empty.eps", "line 1: expected the banner or the school number, not the end of the file"},
      {"text-in-H2-7.eps", "line 2: expected the number of episodes"},
      {"huge-duration.eps", "line 8: expected the duration of a segment of single precision"},
      {"marker-big.eps",
       "line 29: expected the question's episode and segment to be from -32768 to 32767"},
      {"segments-40000.eps", "line 6: expected the number of segments from -32768 to 32767"},
      {"cut-before-empty-field.eps", "line 73: expected a code letter, not the end of the file"},
  };
  for (const auto& [file, message] : kCases) {
    Messages messages;
    try {
      ReadEpsFile(test::TestData("bad") / file, messages);
      ADD_FAILURE() << file << " was read";
    } catch (const FormatError& error) {
      EXPECT_STREQ(error.what(), message);
    }
  }
}

TEST(EpsFile, AFileOfAnEarlierVersionIsLeftAloneWhenDeclined) {
  struct : Messages {
    bool ContinueWithEarlierVersion() override { return false; }
  } declining;
  EXPECT_THROW(ReadEpsFile(test::TestData("bad/banner-old-and-cut.eps"), declining),
               ReadingDeclined);
  EXPECT_TRUE(declining.told.empty());
}

TEST(EpsFile, NoTextCanBreakTheFile) {
  EpsObservation typed = SmallObservation();
  typed.header.identity.Initials = "\"J\", R";
  typed.header.StartTime = "9,05";
  typed.header.ObservDate = " March ";
  Episode& episode = typed.Episodes[0];
  episode.Descript = "Act 1,\r\nscene 2\n";
  episode.segments[0].aboutdata = "\nfate\r";
  episode.questions[0].question = "Who?\r\n\r\nWhy?(<----- 7 ; 7 ----->)";
  episode.questions[0].respondName = "Ann\nBob";

  const auto back = Read(Written(typed));
  EXPECT_EQ(back.header.identity.Initials, "'J', R");
  EXPECT_EQ(back.header.StartTime, "9,05");
  EXPECT_EQ(back.header.ObservDate, " March ");
  EXPECT_EQ(back.Episodes[0].Descript, "Act 1, scene 2 ");
  EXPECT_EQ(back.Episodes[0].segments[0].aboutdata, " fate ");
  EXPECT_EQ(back.Episodes[0].questions[0].question, "Who? Why?(<----- 7 ; 7 ----->)");
  EXPECT_EQ(back.Episodes[0].questions[0].respondName, "Ann Bob");
}

TEST(EpsFile, SecondsKeepAllTheirDigits) {
  EpsObservation longLesson = SmallObservation();
  auto& segments = longLesson.Episodes[0].segments;
  segments[0].SetData(5, 16777216, {});
  segments.emplace_back().SetData(5, 2.5F, {});
  segments.emplace_back().SetData(5, -0.0F, {});
  const std::string bytes = Written(longLesson);
  EXPECT_NE(bytes.find(" 5 , 16777218 , 1 ,"), std::string::npos) << bytes;
  EXPECT_NE(bytes.find(" 0 , 0 , 0 , 0 , 16777218 , 0 ,"), std::string::npos) << bytes;
  EXPECT_NE(bytes.find("\r\n 5 , 2 \r\n 5 , 0 \r\n"), std::string::npos) << bytes;
}

TEST(EpsFile, AWindows1252FileTurnsToUtf8ForACharacterItLacks) {
  EpsObservation old = SmallObservation();
  old.header.encoding = Encoding::windows1252;
  old.Episodes[0].Descript = "caf\u00e9 \u2014 na\u00efve";
  EXPECT_NE(Written(old).find("caf\xE9 \x97 na\xEFve"), std::string::npos);
  EXPECT_EQ(Read(Written(old)).header.encoding, Encoding::windows1252);

  old.Episodes[0].questions[0].respondName = "\u0141ucja";
  const auto back = Read(Written(old));
  EXPECT_EQ(back.header.encoding, Encoding::utf8);
  EXPECT_EQ(back.Episodes, old.Episodes);
}

/// The file of an observation whose first line that begins with `start` is `line` instead.
std::string WithLine(const EpsObservation& observation, const std::string& start,
                     const std::string& line) {
  std::string bytes = Written(observation);
  const std::size_t at = bytes.find("\r\n" + start);
  if (at == std::string::npos) {
    ADD_FAILURE() << start << " is not in " << bytes;
    return bytes;
  }
  return bytes.replace(at + 2, bytes.find("\r\n", at + 2) - at - 2, line);
}

TEST(EpsFile, NumbersThatAreNotKeptMayBeOfAnySize) {
  EpsObservation observation = SmallObservation();
  auto& questions = observation.Episodes[0].questions;
  questions.resize(3, questions[0]);
  for (questionInfo& question : questions) question.Source = 1;
  const std::string nines(400, '9');
  const std::pair<const char*, std::string> cases[] = {
      {" 6 , 60 , 3 ,", " 6 ,1e999, 3 ,,40000, 1 , 1 "},
      {" 6 , 60 , 3 ,", " 6 ," + nines + ", 3 ,,-.5, 1 , 1 "},
      {"3\r\n", "40000"},
      {" 0 , 0 , 0 , 3 ,", "40000,1e999," + nines + ",." + std::string(400, '0') + "1,5,6,7,0"},
      {" 0 , 0 , 0 , 0 , 0 , 60 ,", "1e999,40000,0,0,0,0,0,0,0,0,0,0,0,0,0,0," + nines},
  };
  for (const auto& [start, line] : cases) {
    EXPECT_EQ(Read(WithLine(observation, start, line)).Episodes, observation.Episodes) << line;
  }
  EXPECT_THROW(Read(WithLine(observation, " 6 , 60 , 3 ,", " 6 ,x, 3 ,,0, 1 , 1 ")), FormatError);
}

TEST(EpsFile, AMarkersTwoNumbersAreNotMixedUp) {
  const auto back = Read(WithLine(SmallObservation(), "Why?", "Why?(<----- 2 ; 5 ----->)"));
  EXPECT_EQ(back.Episodes[0].questions[0].iEpQ, 2);
  EXPECT_EQ(back.Episodes[0].questions[0].iSgQ, 5);
}

TEST(EpsFile, ARepairedFirstSegmentLosesItsAboutText) {
  EpsObservation observation = SmallObservation();
  observation.Episodes[0].segments[0].SetData(4, 60, {.about = "a film"});
  Messages messages;
  const auto back =
      ParseEps(WithLine(observation, " 4 , 60 , 1 ,", " 6 , 60 , 1 ,, 0 , 1 , 0 "), messages);
  EXPECT_EQ(messages.told.size(), 1U);
  EXPECT_EQ(back.Episodes[0].segments[0].activityNum, 6);
  EXPECT_EQ(back.Episodes[0].segments[0].aboutdata, "");
}

TEST(EpsFile, TheLastMarkerOfAQuestionCounts) {
  struct Case {
    const char* line;
    const char* text;
    int ep;
    int sg;
  };
  constexpr Case kCases[] = {
      {"Is it?(<----- 2 ; 1 ----->)", "Is it?", 2, 1},
      {"(<-----3;-4----->)", "", 3, -4},
      {"a(<----- 9 ; 9 ----->)b(<----- 1.5 ; 2.5 ----->) rest", "a(<----- 9 ; 9 ----->)b", 2, 2},
      {"a(<----- 9 ; 9 ----->)b(<----- x ; 1 ----->)",
       "a(<----- 9 ; 9 ----->)b(<----- x ; 1 ----->)", 0, 0},
      {"a(<----- 1 ;  ----->)", "a(<----- 1 ;  ----->)", 0, 0},
      {"a(<----- 1 ; 2 ", "a(<----- 1 ; 2 ", 0, 0},
      {"a(<----- 1 ----->);", "a(<----- 1 ----->);", 0, 0},
  };
  for (const Case& c : kCases) {
    std::string text = c.line;
    std::int16_t ep = 0;
    std::int16_t sg = 0;
    EXPECT_TRUE(ParseQuestionMarker(text, ep, sg)) << c.line;
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(ep, c.ep) << c.line;
    EXPECT_EQ(sg, c.sg) << c.line;
  }
}

}  // namespace
}  // namespace orvex
