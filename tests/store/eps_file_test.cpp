#include "store/eps_file.h"

#include <gtest/gtest.h>

#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::FileBytes;

/// Counts the repairs.
struct Repairs : EpsReadEvents {
  bool ContinueWithEarlierVersion() override { return false; }
  void FirstSegmentRepaired(int /*ep*/) override { ++count; }
  int count = 0;
};

EpsObservation Read(const std::string& bytes) {
  Repairs repairs;
  auto observation = ParseEps(bytes, repairs);
  EXPECT_EQ(repairs.count, 0);
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

  Repairs repaired;
  std::string bytes = Written(typed);
  bytes.replace(bytes.find(" 6 , 60 , 1 ,"), 3,
                " 5 ");  // the episode's activity, not the segment's
  EXPECT_EQ(ParseEps(bytes, repaired).Episodes[0].segments[0].aboutdata, "");
}

}  // namespace
}  // namespace orvex
