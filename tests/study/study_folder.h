#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "recovery/kept_class.h"
#include "recovery/kept_content.h"
#include "store/eps_writer.h"
#include "store/paths.h"
#include "store/sur_file.h"
#include "support/test_folder.h"

namespace orvex::test {

/// A question with its source and response, and no other codes.
inline questionInfo Asked(std::string_view text, std::string_view source, std::string_view response,
                          std::string_view respondent = "") {
  DimensionTexts coded;
  coded[Dimension::source] = source;
  coded[Dimension::response] = response;
  coded[Dimension::respondName] = respondent;
  questionInfo question;
  question.SetValue(text, coded, 1, 1);
  return question;
}

/// An episode of `seconds` in one segment.
inline Episode Lesson(int seconds, std::vector<questionInfo> questions = {}, int activity = 5) {
  Episode episode;
  episode.segments.emplace_back().SetData(static_cast<std::int16_t>(activity),
                                          static_cast<float>(seconds));
  episode.questions = std::move(questions);
  return episode;
}

inline Identity Numbers(const std::string& id, const std::string& initials = "AB") {
  Identity identity;
  NameAfter(id, identity);
  identity.Initials = initials;
  identity.NumStudents = "25";
  return identity;
}

inline std::string EpsBytes(const Identity& identity, const EpisodeList& episodes,
                            const std::string& date = "03-02-2026") {
  EpsHeader header;
  header.identity = identity;
  header.ObservDate = date;
  header.StartTime = "09:00:00";
  return FormatEps(header, episodes);
}

/// A survey of which the first `open` statements are not rated.
inline std::string SurBytes(const std::string& id, int open) {
  SurFile survey;
  survey.identity = Numbers(id);
  for (std::size_t i = static_cast<std::size_t>(open); i < survey.answers.ratings.size(); ++i) {
    survey.answers.ratings[i] = 1;
  }
  return FormatSur(survey);
}

inline std::string LogBytes(const std::string& id, const std::string& initials = "AB") {
  return "********* Orvex 4.10 BAK file *********\r\n" + id + ".bak     " + initials +
         "     03-02-26\r\nLOG ON: 09:05:12     25 Students\r\n";
}

/// What is kept of a class that was not ended.
inline std::string KeptBytes(const std::string& id) {
  KeptClass kept;
  kept.program.identity = Numbers(id, "CD");
  kept.program.StartTimeText = "09:05:12";
  kept.program.Episodes = {Lesson(60, {Asked("Why?", "T", "Y")})};
  kept.moment = {"03-04-2026", "09:47:10", 35230, 1795426870};
  kept.running.curEpisode = 1;
  return Sealed(FormatMoment(kept.moment) + FormatRunning(kept.program, kept.running), 1);
}

}  // namespace orvex::test
