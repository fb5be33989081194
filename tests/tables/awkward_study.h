#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "store/eps_writer.h"
#include "store/storage.h"
#include "store/sur_file.h"
#include "support/test_folder.h"

namespace orvex::test {

/// Texts that programs for tables are known to get wrong.
inline constexpr const char* kAwkwardTexts[] = {"NA",   " leading, \"quoted\"",
                                                "=1+1", "Grüße, Öğretmen?",
                                                "\"",   "trailing ",
                                                "a\tb", "It's 'so'",
                                                "1e5",  "TRUE"};

/// Puts a study of two classes into `folder`: 5-12-3 with survey and session log, and 5-12-4
/// without, whose episode is empty. Returns the number of questions.
inline int PutAwkwardStudy(const std::filesystem::path& folder) {
  EpsObservation observation;
  observation.header.identity = {"ÄB", "5", "12", "3", "28"};
  observation.header.ObservDate = "03-14-2001";
  observation.header.StartTime = "09:05:12";
  observation.header.ActivityOfftask = {0.125F};
  Episode& episode = observation.Episodes.emplace_back();
  episode.Descript = std::string(400, 'x') + ", \"y\"";
  episode.offtask = 1;
  episode.segments.emplace_back().SetData(4, 71);
  episode.segments.back().aboutdata = "NULL";
  episode.segments.emplace_back().SetData(15, 49);
  int questions = 0;
  for (const char* text : kAwkwardTexts) {
    const bool isAnswered = ++questions % 2 == 0;
    episode.questions.emplace_back().SetValue(
        text,
        isAnswered ? DimensionTexts{"S", "Y", "A", "T", "H", text, "", "O", "E"}
                   : DimensionTexts{"T", "N"},
        1, 2);
  }
  Storage storage;
  WriteEpsFile(storage, folder / "5-12-3.eps", observation.header, observation.Episodes);
  SurFile survey;
  survey.identity = observation.header.identity;
  survey.answers.checks[0].set(kOtherItem);
  survey.answers.other = "NA";
  survey.answers.ratings[0] = 3;
  survey.answers.ratings[2] = 0;   // does not apply
  survey.answers.ratings[15] = 1;  // 0 of a statement that may not apply
  PutFile(folder / "5-12-3.sur", FormatSur(survey));
  PutFile(folder / "5-12-3.bak",
          "********* Orvex BAK file *********\r\nLOG ON: 09:07:30\r\nOFFTASK: 0.2 [ 5 / 25 ] Act # "
          "4 Lecture 09:20:00\r\n");
  observation.header.identity.ObservNum = "4";
  observation.Episodes.assign(1, {});
  WriteEpsFile(storage, folder / "5-12-4.eps", observation.header, observation.Episodes);
  PutFile(folder / "LIST.TXT", "5-12-3\r\n5-12-4\r\n");
  return questions;
}

/// Runs a command of the shell in `folder`, where it may leave what it says. True when it succeeds.
inline bool Runs(const std::filesystem::path& folder, const std::string& command) {
  return std::system(("cd '" + folder.string() + "' && LC_ALL=C.UTF-8 LD_PRELOAD= " + command +
                      " >out 2>&1")
                         .c_str()) == 0;
}

}  // namespace orvex::test
