// Files that are cut off, damaged, or make false statements about themselves.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "fuzz/checks.h"
#include "hostile/allocations.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

/// Two episodes with two questions and a segment of each kind, in Windows-1252.
constexpr const char* kEps =
    "********* Orvex 4.10 EPS file *********\r\n"
    "5,12,3, 28, \"AB\", 03-14-2001, 09:05:12, 2 \r\n"
    " 0 , .25 , 0 , 0 , 0 , 0 , 1.5E-2 \r\n"
    "********* EPISODE 1 *********\r\n"
    "Warm-up, caf\xE9\r\n"
    " 6 , 600 , 2 ,N, 0 , 3 , 1 \r\n3\r\n"
    " 6 , 300 \r\nfate\r\n 7 , 200 , 1 , 0 ,-1 \r\n 15 , 100 , 0 , 3 , 1 , 0 \r\n"
    "********* EPISODE 2 *********\r\n\r\n"
    " 17 , 90 , 0 ,\"Y\", 2 , 1 , 0 \r\n 17 , 90 , 4 \r\n"
    " 1 , 0 , 2 , 0 , 1 , 0 , 0, .0357 \r\n"
    " 0 , 0 , 0 , 0 , 0 , 300 , 200 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 100 , 0 , 0\r\n"
    " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 90\r\n"
    "Why?(<----- 1 ; 1 ----->)\r\nZo\xEB\r\nT,Y,A,N,H,N,,E\r\n"
    "Who?(<----- 1 ; 3 ----->)\r\n\r\nS,N,,,,,,U\r\n";

struct Reader {
  const char* name;
  fuzz::Check* check;
  std::string sample;
  bool needsWholeFile;  ///< rejects a file that lacks more than its last line end
};

const std::vector<Reader>& Readers() {
  const auto sample = [](const char* name) { return test::FileBytes(test::TestData(name)); };
  static const std::vector<Reader> readers = {
      {"eps", fuzz::CheckEps, kEps, true},
      {"reports", fuzz::CheckReports, kEps, true},
      {"sur", fuzz::CheckSur, sample("class/11-4-2.sur"), true},
      {"field notes", fuzz::CheckFieldNotes, sample("recorded/7-13-3.nte"), false},
      {"list", fuzz::CheckFileList, sample("class/LIST.TXT"), false},
      {"options", fuzz::CheckOptions, "/home/ana/classes\r\n", false},
      {"recovery", fuzz::CheckRecoveryFile, sample("recorded/7-12-3.recovery"), true},
      {"study", fuzz::CheckStudy,
       "column=date,80,hidden\r\nsorted_by=notes,descending\r\ntext=source S activity 5\r\n"
       "only=mine\r\nLOG ON: 09:05:12\r\n\"Zo\u00CB\" cognitive level h",
       false},
      {"encoding", fuzz::CheckTextEncoding,
       "\xEF\xBB\xBF"
       "caf\u00e9 \u2013 \U0001F600",
       false},
  };
  return readers;
}

TEST(HostileFiles, ACutFileIsRefusedOrHasLostNothing) {
  for (const Reader& reader : Readers()) {
    const auto whole = reader.check(reader.sample);
    ASSERT_TRUE(whole) << reader.name;
    for (std::size_t size = 0; size < reader.sample.size(); ++size) {
      SCOPED_TRACE(reader.name + (", cut at byte " + std::to_string(size)));
      const auto read = reader.check(reader.sample.substr(0, size));
      if (reader.needsWholeFile && read) {
        EXPECT_EQ(*read, *whole);
      }
    }
  }
}

TEST(HostileFiles, AFlippedBitBreaksNoPromise) {
  for (const Reader& reader : Readers()) {
    for (std::size_t bit = 0; bit < 8 * reader.sample.size(); ++bit) {
      SCOPED_TRACE(reader.name + (", bit " + std::to_string(bit)));
      std::string flipped = reader.sample;
      char& byte = flipped[bit / 8];
      byte = static_cast<char>(static_cast<unsigned char>(byte) ^ (1U << bit % 8));
      EXPECT_NO_THROW(reader.check(flipped));
    }
  }
}

std::string Times(std::size_t count, const std::string& piece) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

/// An episode file that states these counts, followed by `rest`.
std::string Eps(int episodes, int questions, int segments, int spells, const std::string& rest) {
  const auto item = [](int number) { return std::to_string(number) + ","; };
  return "5,12,3,28,AB,03-14-2001,09:05:12," + std::to_string(episodes) +
         "\n0,0,0,0,0,0,0\nEPISODE\nWarm-up\n1,60," + item(questions) + "N,0," + item(segments) +
         std::to_string(spells) + "\n" + rest;
}

TEST(HostileFiles, TakeMemoryByTheirSizeAndNotByWhatTheyState) {
  constexpr std::size_t kMany = 200'000;
  constexpr int kMost = 32767;
  const std::string times = "0" + Times(16, ",0") + "\n";
  const std::string summary = "0,0,0,0,0,0,0,0\n" + times;
  const std::string segments = Times(kMost, "1,0\n");
  const std::string questions = Times(kMost, "\n\n,,,,,,,\n");
  const std::string episodes = Times(kMost - 1, "\n\n0,0,0,,0,0,0\n") + Times(kMost, times);
  struct Case {
    const char* name;
    std::string bytes;
  };
  const Case cases[] = {
      // Counts with nothing to back them up.
      {"episodes", Eps(kMost, 0, 0, 0, "")},
      {"segments", Eps(1, 0, kMost, 0, "")},
      {"spells", Eps(1, 0, 0, kMost, "")},
      {"questions", Eps(1, kMost, 0, 0, summary)},
      {"questions in every episode",
       Eps(100, kMost, 0, 0, Times(99, "\n\n0,0,32767,,0,0,0\n") + Times(100, summary))},
      // True counts of the smallest possible items.
      {"short episodes", Eps(kMost, 0, 0, 0, episodes)},
      {"short segments", Eps(1, 0, kMost, 0, segments + times)},
      {"short questions", Eps(1, kMost, 0, 0, summary + questions)},
      // The same thing over and over.
      {"line ends", Times(kMany, "\n")},
      {"halves of line ends", Times(kMany, "\r")},
      {"commas", Times(kMany, ",")},
      {"quotes", Times(kMany, "\"")},
      {"blanks", Times(kMany, " ")},
      {"digits", Times(kMany, "9")},
      {"names", Times(kMany, "a\n")},
      {"euro signs", Times(kMany, "\x80")},
      {"byte order marks", Times(kMany, "\xEF\xBB\xBF")},
      {"a long number", Eps(1, 0, 0, 0, Times(kMany, "1") + "." + Times(kMany, "0"))},
      {"open markers", Eps(1, 1, 0, 0, summary + Times(kMany, "(<----- 1 ;") + "\n\n,,,,,,,\n")},
      {"brackets", Eps(1, 1, 0, 0, summary + Times(kMany, "(") + "\n\n,,,,,,,\n")},
  };
  constexpr std::size_t kRoom = 64 * 1024;
  constexpr std::size_t kByByte = 400;  // allocated per byte of the file, reports included
  for (const Reader& reader : Readers()) {
    for (const Case& hostile : cases) {
      const std::size_t before = test::AllocatedBytes();
      EXPECT_NO_THROW(reader.check(hostile.bytes)) << reader.name << ": " << hostile.name;
      const std::size_t taken = test::AllocatedBytes() - before;
      EXPECT_LE(taken, kRoom + kByByte * hostile.bytes.size())
          << reader.name << ": " << hostile.name;
    }
  }
}

}  // namespace
}  // namespace orvex
