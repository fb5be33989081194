#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "desk/services.h"
#include "model/program.h"

namespace orvex {

class Study;
struct QuestionRow;
struct StudyRow;

/// What can be done with an observation of a study.
enum class StudyAction {
  open,         ///< the first of the next five that is possible
  takeUpClass,  ///< offers the class, which was not ended
  editEpisodes,
  editSurvey,
  editNotes,
  showLog,
  showStatistics,
  showTimeSummary,
  showPicture,
  proof,  ///< goes from one question that is not fully coded to the next
};

/// True when `row` has what `action` takes.
bool IsPossible(StudyAction action, const StudyRow& row);

/// Opens the files of a study. What is opened leads back to the study, which gives way to it on the
/// screen, and leaves the state that the activities share as it was.
class StudyActions {
 public:
  explicit StudyActions(const Services& services)
      : services_(services), before_(services.program) {}

  /// Does nothing if that is not possible. A class that is taken up closes the study.
  void Do(StudyAction action, const StudyRow& row);
  /// Opens the question editor above the episode editor.
  void EditQuestion(const QuestionRow& question);
  // Of the rows at the positions `selected`: the statistics of all their questions, and their
  // pictures beneath each other.
  void ShowStatistics(const Study& study, const std::vector<std::size_t>& selected);
  void ShowPictures(const Study& study, const std::vector<std::size_t>& selected);
  /// Lets the user make tables of what `study` shows, or of its rows at the positions `selected`.
  void MakeTables(const Study& study, const std::vector<std::size_t>& selected);
  /// Shows how far observers agree: on the class of two rows that are selected, on the pairs among
  /// more of them, otherwise on all pairs that `study` shows. The user is told when there are none.
  void ShowAgreement(const Study& study, const std::vector<std::size_t>& selected);
  /// Goes back to the main menu.
  void Close();

 private:
  template <typename Show>
  void Open(const std::filesystem::path& file, Show show);
  using ShowFiles = bool (Screens::*)(const std::vector<std::filesystem::path>& files);
  /// Has `show` show the episode files of those selected rows of which `action` is possible.
  void ShowTogether(StudyAction action, ShowFiles show, const Study& study,
                    const std::vector<std::size_t>& selected);
  void OfferClass(const std::filesystem::path& kept);

  Services services_;
  const Program before_;
};

}  // namespace orvex
