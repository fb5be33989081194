#include "survey/sur_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/file_error.h"
#include "store/format_error.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"
#include "survey/survey_scheme.h"

namespace orvex {
namespace {

using test::FileBytes;

const Identity kIdentity = {"", "5", "12", "3", ""};

TEST(SurFile, OrdinaryAndOddFilesAreWrittenBackByteForByte) {
  int files = 0;
  for (const char* folder : {"class", "odd"}) {
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesFolder() / folder)) {
      if (entry.path().extension() != ".sur") continue;
      ++files;
      EXPECT_EQ(FormatSur(ReadSurFile(entry.path())), FileBytes(entry.path())) << entry.path();
    }
  }
  EXPECT_GE(files, 40);
}

TEST(SurFile, BadFilesAreReadAsTheirManifestSays) {
  const auto folder = test::SamplesFolder() / "bad";
  const auto samples = test::BadSamples(".sur");
  EXPECT_GE(samples.size(), 90U);
  for (const auto& sample : samples) {
    SCOPED_TRACE(sample.file);
    bool accepted = false;
    try {
      const SurFile file = ReadSurFile(folder / sample.file);
      accepted = true;
      EXPECT_EQ(FormatSur(file), FileBytes(folder / "rewritten" / sample.file));
    } catch (const FormatError& error) {
      const std::string bytes = FileBytes(folder / sample.file);
      EXPECT_LE(error.Line(), 1 + std::ranges::count(bytes, '\n')) << error.what();
    } catch (const FileError&) {  // a folder
    }
    EXPECT_EQ(accepted, sample.accepted);
  }
}

TEST(SurFile, AnErrorNamesItsLineAndWhatWasExpected) {
  const std::pair<const char*, const char*> cases[] = {
      {"rating3-is-4.sur", "line 30: expected a button number from 0 to 3"},
      {"rating16-is-5.sur", "line 44: expected a button number from 0 to 4"},
      {"rating5-is-x.sur", "line 32: expected a rating: a button number or N/A"},
      {"item1-is-10.sur", "line 7: expected an item number from 0 to 9"},
      {"identity-is-a_b_c.sur", "line 2: expected the school number from 0 to 32767"},
      {"without-rating25.sur", "line 53: expected a rating, not the end of the file"},
  };
  for (const auto& [file, expected] : cases) {
    try {
      ReadSurFile(test::TestData("bad") / file);
      ADD_FAILURE() << file << " has been read";
    } catch (const FormatError& error) {
      EXPECT_STREQ(error.what(), expected) << file;
    }
  }
}

TEST(SurFile, EveryItemAndEveryButtonComesBack) {
  const test::TestFolder folder;
  Storage storage;
  const auto comesBack = [&](const SurFile& file) {
    WriteSurFile(storage, folder / "5-12-3.sur", file);
    const SurFile back = ReadSurFile(folder / "5-12-3.sur");
    EXPECT_EQ(back.answers, file.answers);
    EXPECT_EQ(back.identity, file.identity);
    EXPECT_EQ(back.encoding, file.encoding);
  };
  const SurFile empty = {.identity = kIdentity, .answers = {}};
  comesBack(empty);
  for (std::size_t group = 0; group < kCheckGroups; ++group) {
    for (std::size_t item = 0; item < SurveyGroups()[group].items.size(); ++item) {
      SurFile file = empty;
      file.answers.checks[group].set(item);
      if (group == 0 && item == kOtherItem) file.answers.other = " 7, \"caf\u00e9\" ";
      comesBack(file);
      file.encoding = Encoding::windows1252;
      if (!file.answers.other.empty()) comesBack(file);
    }
  }
  for (std::size_t statement = 0; statement < kStatements; ++statement) {
    const int buttons = SurveyStatements()[statement].Buttons();
    for (int button = 0; button <= buttons; ++button) {
      SurFile file = empty;
      file.answers.ratings[statement] = static_cast<std::int16_t>(button);
      if (button < buttons) {
        comesBack(file);
      } else {
        EXPECT_THROW(ParseSur(FormatSur(file)), FormatError) << statement;
      }
    }
  }
}

TEST(SurFile, NoTextBreaksTheFileAndOnlyACheckedOtherIsWritten) {
  SurFile file = {.identity = kIdentity, .answers = {}};
  const std::string empty = FormatSur(file);
  file.answers.other = "a\r\n\nb";
  EXPECT_EQ(FormatSur(file), empty);
  file.answers.checks[0].set(kOtherItem);
  EXPECT_EQ(ParseSur(FormatSur(file)).answers.other, "a b");
}

}  // namespace
}  // namespace orvex
