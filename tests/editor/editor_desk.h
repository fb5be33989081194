#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "editor/episode_editor.h"
#include "editor/load_episodes.h"
#include "store/eps_reader.h"
#include "store/eps_writer.h"
#include "support/desk.h"

namespace orvex::test {

/// The bytes of a file that holds `episodes`, observed in class 7-12-3.
inline std::string FileOf(const EpisodeList& episodes) {
  const EpsHeader header = {.identity = {.Initials = "AB",
                                         .SchoolNum = "7",
                                         .ClassNum = "12",
                                         .ObservNum = "3",
                                         .NumStudents = "25"},
                            .ObservDate = "03-14-2001",
                            .StartTime = "09:05:12"};
  return FormatEps(header, episodes);
}

/// The episodes in `bytes`, which must be readable without repairs.
inline EpisodeList ReadBack(const std::string& bytes) {
  struct Silence : EpsReadEvents {
    bool ContinueWithEarlierVersion() override { return false; }
    void FirstSegmentRepaired(int ep) override { ADD_FAILURE() << "episode " << ep; }
  } silence;
  return ParseEps(bytes, silence).Episodes;
}

/// A desk with an episode editor, which exists once a file has been opened.
struct EditorDesk : Desk {
  EpisodeEditor& Open(const std::filesystem::path& path) {
    LoadOutcome outcome = LoadEpisodes(services, path);
    editor = std::make_unique<EpisodeEditor>(services, std::move(*outcome.loaded));
    return *editor;
  }
  /// Writes `episodes` to a file of their own and opens it.
  EpisodeEditor& Open(const EpisodeList& episodes) {
    PutFile(file, FileOf(episodes));
    return Open(file);
  }

  std::filesystem::path file = folder / "EPS/7-12-3.eps";
  std::unique_ptr<EpisodeEditor> editor;
};

/// Selects a row of a list and shows it, like a click.
inline void ClickEpisode(EpisodeEditor& editor, int row) {
  editor.SelectEpisodes({row});
  editor.ShowEpisode(row);
}
inline void ClickSegment(EpisodeEditor& editor, int row) {
  editor.SelectSegments({row});
  editor.ShowSegment(row);
}

inline SegmentData Segment(int activity, int seconds) {
  SegmentData segment;
  segment.SetData(static_cast<std::int16_t>(activity), static_cast<float>(seconds));
  return segment;
}

/// A question "q7", asked by the teacher or a student.
inline questionInfo Question(int number, const char* source = "T") {
  questionInfo question;
  question.SetValue("q" + std::to_string(number), {source, "Y", "N", "N", "R", "", "N", "", "U"}, 1,
                    1);
  return question;
}

}  // namespace orvex::test
