#pragma once

#include <filesystem>

namespace orvex {

struct RunningClass;

/// The forms, by the part they play. A form comes after those it works with.
enum class Screen {
  mainMenu,
  setUp,
  liveObservation,
  aboutText,
  questionEntry,
  episodeEditor,
  timeSummary,
  questionStats,
  questionPlot,
  questionEditor,
  survey,
  listOfFiles,
};

/// Who opened the question editor, and is shown again when it closes.
enum class EditorCaller { liveObservation, questionEntry, episodeEditor, statistics };

/// Who opened the survey during the class, and is shown again when it is left.
enum class SurveyCaller { liveObservation, questionEntry };

/// The two tables that are made from the main menu.
enum class ExportKind { epsData, surData };

/// What becomes of the changes that are kept of a file, when it is opened.
enum class Kept { areOffered, areTakenUp };

/// How the logic moves between forms without knowing them.
class Screens {
 public:
  virtual ~Screens() = default;

  /// Brings the form to the front, loading it if it is not loaded. The reports are about what the
  /// episode editor shows; the plot goes back to the form that was on the screen. `aboutText` is
  /// modal: the call returns when it is hidden again.
  virtual void Show(Screen screen) = 0;
  /// Takes the form off the screen; it stays loaded and its timers go on.
  virtual void Hide(Screen screen) = 0;
  /// Unloads the form. An operation may close the form it was called from: the form goes after the
  /// operation has returned.
  virtual void Close(Screen screen) = 0;
  /// Closes every form and file in order and ends the program, after the running operation has
  /// returned.
  virtual void EndProgram() = 0;

  /// Loads the question editor for `caller` and shows it. In proof mode it begins with the question
  /// that the program's `ProofEp` and `ProofQ` name.
  virtual void ShowQuestionEditor(EditorCaller caller, bool proofMode) = 0;
  /// Shows the forms of a class that was not ended; its observation is in memory.
  virtual void ShowTakenUpClass(const RunningClass& running) = 0;
  /// Shows the survey of the running class.
  virtual void ShowSurvey(SurveyCaller caller) = 0;
  /// Joins the files that `list` names into a table, and shows how far it is.
  virtual void ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) = 0;
  /// Loads the survey form from a survey file and shows it. False, when the user has been told that
  /// the file could not be read, or leaves it for later.
  virtual bool ShowSurveyFile(const std::filesystem::path& file, Kept kept) = 0;
  /// Loads the episode editor with an episode file and shows it. False, when the user has been told
  /// that the file could not be opened, or leaves it for later.
  virtual bool ShowEpisodeEditor(const std::filesystem::path& file, Kept kept) = 0;
  /// Edits a field-notes file in the dialog of the notes, and returns when that is left.
  virtual void ShowFieldNotes(const std::filesystem::path& file, Kept kept) = 0;
};

}  // namespace orvex
