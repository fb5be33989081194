#include "store/eps_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/file_error.h"
#include "store/format_error.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::FileBytes;

/// Records what the user is told, and usually goes on with files of earlier versions.
struct Messages : EpsReadEvents {
  bool ContinueWithEarlierVersion() override {
    told.emplace_back("EPS file created by an earlier version of ORVEX. Continue anyway?");
    return goesOn;
  }
  void FirstSegmentRepaired(int ep) override {
    told.push_back("An inconsistency is found in activity coding of first segment in episode #" +
                   std::to_string(ep) + ".\nIt's been corrected.");
  }
  std::vector<std::string> told;
  bool goesOn = true;
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

TEST(EpsFile, OrdinaryAndOddFilesAreWrittenBackByteForByte) {
  int files = 0;
  for (const char* folder : {"class", "odd"}) {
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesFolder() / folder)) {
      if (entry.path().extension() != ".eps") continue;
      ++files;
      const std::string bytes = FileBytes(entry.path());
      EXPECT_TRUE(Written(Read(bytes)) == bytes) << entry.path();
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
      if (sample.file == "segments-40000.eps") {
        EXPECT_STREQ(error.what(), "line 6: expected the number of segments from -32768 to 32767");
      }
    } catch (const FileError&) {  // a folder; there is no message of the format's
    }
    EXPECT_EQ(accepted, sample.accepted);
    EXPECT_EQ(messages.told, sample.messages);
  }
}

TEST(EpsFile, AFileOfAnEarlierVersionIsLeftAloneWhenDeclined) {
  Messages declining;
  declining.goesOn = false;
  EXPECT_THROW(ReadEpsFile(test::TestData("bad/banner-old-and-cut.eps"), declining),
               ReadingDeclined);
}

TEST(EpsFile, NoTextBreaksTheFileAndARepairDropsTheAboutText) {
  EpsObservation typed;
  typed.header.identity = {"\"J\", R", "\n5", "12\r", "3", "28"};
  typed.header.encoding = Encoding::windows1252;
  Episode& episode = typed.Episodes.emplace_back();
  episode.Descript = "Caf\u00e9,\r\nscene 2\n";
  episode.segments.emplace_back().SetData(6, 60, {.about = "\nfate\r"});
  auto& question = episode.questions.emplace_back();
  question.SetValue("Who?\r\n\r\nWhy?(<----- 7 ; 7 ----->)", "", "", "", "", "", "Ann\nBob", "", "",
                    "", 1, 1);
  EXPECT_EQ(Read(Written(typed)).header.encoding, Encoding::windows1252);
  question.respondName += "\u0141";

  const auto back = Read(Written(typed));
  EXPECT_EQ(back.header.encoding, Encoding::utf8);
  EXPECT_EQ(back.header.identity.Initials, "'J', R");
  EXPECT_EQ(back.header.identity.SchoolNum, " 5");
  EXPECT_EQ(back.header.identity.ClassNum, "12 ");
  EXPECT_EQ(back.Episodes[0].Descript, "Caf\u00e9, scene 2 ");
  EXPECT_EQ(back.Episodes[0].segments[0].aboutdata, " fate ");
  EXPECT_EQ(back.Episodes[0].questions[0].question, "Who? Why?(<----- 7 ; 7 ----->)");
  EXPECT_EQ(back.Episodes[0].questions[0].respondName, "Ann Bob\u0141");

  Messages repaired;
  std::string bytes = Written(typed);
  bytes.replace(bytes.find(" 6 , 60 , 1 ,"), 3,
                " 5 ");  // the episode's activity, not the segment's
  EXPECT_EQ(ParseEps(bytes, repaired).Episodes[0].segments[0].aboutdata, "");
}

}  // namespace
}  // namespace orvex
