#include "store/sur_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "model/survey_scheme.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::FileBytes;

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
    } catch (const FileError&) {  // the sample is a folder
    }
    EXPECT_EQ(accepted, sample.accepted);
  }
}

TEST(SurFile, NoTextBreaksTheFileAndOnlyACheckedOtherIsWritten) {
  SurFile file = {.identity = {"", "5", "12", "3", ""}, .answers = {}};
  const std::string empty = FormatSur(file);
  file.answers.other = "a\r\n\nb";
  EXPECT_EQ(FormatSur(file), empty);
  file.answers.checks[0].set(kOtherItem);
  EXPECT_EQ(ParseSur(FormatSur(file)).answers.other, "a b");
}

}  // namespace
}  // namespace orvex
