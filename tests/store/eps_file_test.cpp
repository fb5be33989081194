#include <gtest/gtest.h>

#include "store/eps_differences.h"
#include "store/eps_reader.h"
#include "store/eps_writer.h"
#include "store/format_error.h"
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

/// The differences as "74: text after the last question is left out: "more, text"|the line ends".
std::string ToldOf(const std::string& bytes) {
  Repairs repairs;
  const auto found = DifferencesOf(bytes, ParseEps(bytes, repairs));
  std::string all;
  for (const auto& [line, text] : found.contents) all += std::to_string(line) + ": " + text + "|";
  for (const std::string& form : found.form) all += form;
  return all;
}

TEST(EpsFile, TellsWhatASaveWouldDropOrChange) {
  const std::string good = FileBytes(test::TestData("bad/banner-4.10.eps"));
  const auto with = [&](const std::string& before, const std::string& after) {
    std::string bytes = good;
    EXPECT_NE(bytes.find(before), std::string::npos) << before;
    return bytes.replace(bytes.find(before), before.size(), after);
  };
  const std::string about = "growing up in Of Mice and Men";
  const std::pair<std::string, const char*> cases[] = {
      {good, ""},
      {good + "more, text\r\n", "74: text after the last question is left out: \"more, text\"|"},
      {good + " \r\n\x1A", "blanks, quotes, and the spelling of numbers and codes"},
      {with(" 12 , 724 , 3 ,", " 12 , 724 , 2 ,"),
       "71: text after the last question, with 1 question in it, is left out: \"Can we work with a "
       "partner?(<----- 3 ; 1 ----->)\"|27: a question count: \"1\" becomes \"0\"|27: a question "
       "count: \"1\" becomes \"0\"|"},
      {with(about + "\r\n", "growing\nup\r\n"),
       "9: what the activity was about: a line end within \"growing up\" becomes a blank|"},
      {with("\"AB\",", "\"AB\"and C,"), "2: behind the quotes: \"and C\" is left out|"},
      {with("(<----- 1 ; 1 ----->)", "(<----- 2 ; 1 ----->) loud"),
       "29: the question's episode and segment: \"2 ; 1\" becomes \"1 ; 1\"|29: behind the "
       "question's episode and segment: \"loud\" is left out|"},
      {with("T,Y,N,N,R,N,,U", "t,Y,N,Q,R,N,,U"),
       "24: a question count: \"2\" becomes \"1\"|31: a code letter: \"Q\" is left out|"},
      {with("1 , 4 , 2, .25 ", "1 , 4 , 2,0.250"),
       "blanks, quotes, and the spelling of numbers and codes"},
      {with(" 4 , 591 ", " 5 , 591 "),
       "8: the activity number of a segment: \"4\" becomes \"5\"|9: what the activity was about: "
       "\"growing up in Of Mice and Men\" is left out|25: the time spent in an activity: \"262\" "
       "becomes \"0\"|25: the time spent in an activity: \"163\" becomes \"425\"|"},
      {FileBytes(test::TestData("bad/line-ends-lf.eps")), "the line ends"},
      {FileBytes(test::TestData("bad/without-H1.eps")), "the banner"},
  };
  for (const auto& [bytes, told] : cases) EXPECT_EQ(ToldOf(bytes), told);
  // Any file that can be read can also be compared.
  constexpr std::size_t kStep = 5;
  for (std::size_t at = 0; at < good.size(); at += kStep) {
    std::string bytes = good;
    bytes[at] = static_cast<char>(bytes[at] ^ 1);
    try {
      const auto read = ToldOf(bytes);
    } catch (const FormatError&) {
      continue;
    }
  }
}

TEST(EpsFile, NoTextBreaksTheFileAndARepairDropsTheAboutText) {
  EpsObservation typed;
  typed.header.identity = {"\"J\", R", "\n5", "12\r", "3", " 28 "};
  typed.header.encoding = Encoding::windows1252;
  Episode& episode = typed.Episodes.emplace_back();
  episode.Descript = "Caf\u00e9,\r\nscene 2\n";
  episode.segments.emplace_back().SetData(6, 60);
  episode.segments.back().aboutdata = "\nfate\r";
  auto& question = episode.questions.emplace_back();
  question.SetValue("Who?\r\n\r\nWhy?(<----- 7 ; 7 ----->)", {}, 1, 1);
  question.respondName = "Ann\nBob";
  EXPECT_EQ(Read(Written(typed)).header.encoding, Encoding::windows1252);
  question.respondName += "\u0141";

  EXPECT_NE(Written(typed).find(",3,  28 , \""), std::string::npos);
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

/// The error reported for `bytes`, which are not a valid episode file.
std::string ErrorIn(const std::string& bytes) try {
  Repairs repairs;
  ParseEps(bytes, repairs);
  return "none";
} catch (const FormatError& error) {
  return error.what();
}

TEST(EpsFile, AnErrorSaysWhatTheFileIsOrWhatWasFound) {
  const std::string good =
      "********* Orvex 4.10 EPS file *********\r\n"
      "5,12,3, 28, \"AB\", 03-14-2001, 09:05:12, 1 \r\n"
      " 0 , 0 , 0 , .5 , 0 , 0 , 0 \r\n"
      "********* EPISODE 1 *********\r\nWarm-up\r\n 1 , 60 , 0 ,N, 0 , 1 , 0 \r\n 1 , 60 \r\n"
      " 60 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0\r\n";
  const auto with = [&good](const std::string& from, const std::string& to) {
    std::string bytes = good;
    return bytes.replace(bytes.find(from), from.size(), to);
  };
  std::string ofCr = good;
  std::erase(ofCr, '\n');
  const std::string average = "line 3, field 4: expected the off-task average (a number), found ";
  const std::string endOfFile = ", not the end of the file";
  const std::pair<std::string, std::string> cases[] = {
      {good, "none"},
      {FileBytes(test::TestData("class/17-17-7.sur")),
       "line 1: this is a survey file, not an episode file"},
      {FileBytes(test::TestData("recorded/7-13-3.bak")),
       "line 1: this is a session log, not an episode file"},
      {FileBytes(test::TestData("class/LIST.TXT")),
       "line 1: this is a list of observations, not an episode file"},
      {"PK\x03\x04\x14",
       "line 1: this is a spreadsheet or another office document, not an episode file"},
      {"\r\n<!DOCTYPE html>", "line 1: this is a web page, not an episode file"},
      {std::string("\xFF\xFE*\0*\0", 6),
       "line 1: this is a text in UTF-16, not in UTF-8 or Windows-1252"},
      {ofCr, "line 1: this is a text whose lines end with CR alone, not with CR LF or LF"},
      {"", "line 1: this is an empty file, not an episode file"},
      {"Dear Ann\r\n", "line 2: expected the school number" + endOfFile +
                           "; this does not look like a file of Orvex"},
      {with("\r\n", "\n"),
       "line 4: expected the off-task average (a number), found "
       "\"********* EPISODE 1 *********\"; line 1 ends with LF alone, others "
       "end with CR LF"},
      {with(".5", "5%"), average + "\"5%\""},
      {with(".5", ""), average + "nothing"},
      {with(".5", "\x1B[2J\xE2\x80\xAE" + std::string(50, 'x')),
       average + R"("\x1B[2J\xE2\x80\xAE)" + std::string(35, 'x') + "...\""},
      {with("AB\"", "AB"),
       "line 4: expected the off-task average (a number), found "
       "\"********* EPISODE 1 *********\"; the quote that opens in line 2, field 5 is not closed"},
      {with(" 0 , 1 , 0 \r", " 0 , 40000 , 0 \r"),
       "line 6, field 6: expected the number of segments from -32768 to 32767, found \"40000\""},
  };
  for (const auto& [bytes, error] : cases) EXPECT_EQ(ErrorIn(bytes), error);
}

}  // namespace
}  // namespace orvex
