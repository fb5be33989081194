#pragma once

#include <filesystem>

#include "desk/services.h"
#include "model/program.h"

namespace orvex {

/// What can be done with the files of a study. What is opened leads back to the study, which gives
/// way to it on the screen, and leaves the state that the activities share as it was.
class StudyActions {
 public:
  explicit StudyActions(const Services& services)
      : services_(services), before_(services.program) {}

  void EditEpisodes(const std::filesystem::path& eps);
  /// Opens the question editor above the episode editor; `episode` and `question` count from 1.
  void EditQuestion(const std::filesystem::path& eps, int episode, int question);
  /// Goes from one question that is not fully coded to the next.
  void Proof(const std::filesystem::path& eps);
  void ShowStatistics(const std::filesystem::path& eps);
  void ShowTimeSummary(const std::filesystem::path& eps);
  void EditSurvey(const std::filesystem::path& sur);
  void EditNotes(const std::filesystem::path& nte);
  void ShowLog(const std::filesystem::path& bak);
  /// Offers the class kept at `path`, which was not ended. If it is taken up, the study closes.
  void OfferClass(const std::filesystem::path& path);
  /// Goes back to the main menu.
  void Close();

 private:
  template <typename Show>
  void Open(const std::filesystem::path& file, Show show);

  Services services_;
  const Program before_;
};

}  // namespace orvex
