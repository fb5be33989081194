#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvex {

struct RunningClass;

/// The forms, by the part they play. A form comes after those it works with.
enum class Screen {
  mainMenu,
  study,
  studyPicture,
  agreementStudy,
  agreement,
  setUp,
  liveObservation,
  aboutText,
  questionEntry,
  episodeEditor,
  classPicture,
  timeSummary,
  questionStats,
  questionPlot,
  questionEditor,
  survey,
  listOfFiles,
};

/// The form that opened the question editor and is shown again when the editor closes.
enum class EditorCaller { liveObservation, questionEntry, episodeEditor, statistics };

/// The form that opened the survey during the class and is shown again when the survey is left.
enum class SurveyCaller { liveObservation, questionEntry };

/// The two tables that can be made from the main menu.
enum class ExportKind { epsData, surData };

/// What happens, when a file is opened, to changes that are kept of it: the user is asked, or they
/// are taken up at once.
enum class Kept { areOffered, areTakenUp };

/// An observation of a study, as tables are made of it.
struct StudyObservation {
  std::string name;                ///< what tables call it
  std::filesystem::path episodes;  ///< its episode file; empty where there is none
  std::filesystem::path survey;    ///< its survey file; empty where there is none
};

/// The observations that the study shows, and those that are selected among them.
struct StudySelection {
  std::filesystem::path folder;  ///< the study's, where tables go unless another one was chosen
  std::vector<StudyObservation> shown;
  std::vector<StudyObservation> selected;
};

/// How the logic moves between forms without knowing them.
class Screens {
 public:
  virtual ~Screens() = default;

  /// Brings the form to the front, loading it if necessary. The reports are about what the episode
  /// editor shows, or the file that ShowReport was given; the plot returns to the form that was on
  /// the screen. `aboutText` is modal: the call returns when it is hidden again.
  virtual void Show(Screen screen) = 0;
  /// Takes the form off the screen. It stays loaded, and its timers go on.
  virtual void Hide(Screen screen) = 0;
  /// Unloads the form. An operation may close the form it was called from: the form goes once the
  /// operation has returned.
  virtual void Close(Screen screen) = 0;
  /// Closes all forms and files in order and ends the program, once the running operation has
  /// returned.
  virtual void EndProgram() = 0;
  /// True while the form is loaded, on the screen or not.
  virtual bool IsOpen(Screen screen) const = 0;
  /// True while a form is open from which files are opened, such as the study: whatever is being
  /// done with a file was begun there.
  virtual bool LeadsBack() const = 0;
  /// Ends what was being done with a file. If it leads back, closes its forms and shows the one
  /// again in which it was begun; otherwise ends the program.
  virtual void EndActivity() = 0;

  /// Loads the question editor for `caller` and shows it. In proof mode it begins with the question
  /// at the program's `ProofEp` and `ProofQ`.
  virtual void ShowQuestionEditor(EditorCaller caller, bool proofMode) = 0;
  /// Shows the forms of a class that is taken up again. Its observation is already in memory.
  virtual void ShowTakenUpClass(const RunningClass& running) = 0;
  /// Shows the survey of the running class.
  virtual void ShowSurvey(SurveyCaller caller) = 0;
  /// Joins the files that `list` names into a table and shows the progress.
  virtual void ShowListOfFiles(const std::filesystem::path& list, ExportKind kind) = 0;
  /// Loads the survey form with a survey file and shows it. False when the file could not be read
  /// (the user has been told) or the user leaves it for later.
  virtual bool ShowSurveyFile(const std::filesystem::path& file, Kept kept) = 0;
  /// Loads the episode editor with an episode file and shows it. False when the file could not be
  /// opened (the user has been told) or the user leaves it for later.
  virtual bool ShowEpisodeEditor(const std::filesystem::path& file, Kept kept) = 0;
  /// Does the same, and shows the question editor above it, with `question` of `episode`, both
  /// counted from 1, which is expected to read `text`. If no such question is there, tells the user
  /// and shows the episode editor alone.
  virtual bool ShowQuestion(const std::filesystem::path& file, int episode, int question,
                            const std::string& text) = 0;
  /// Shows the question editor above the episode editor that is loaded, in the same way.
  virtual void ShowEditedQuestion(int episode, int question, const std::string& text) = 0;
  /// Does the same as ShowQuestion with `episode`, and begins as it does from the episode editor.
  virtual bool ShowQuestions(const std::filesystem::path& file, int episode) = 0;
  /// Does the same in proof mode, with the first question that is not fully coded.
  virtual bool ShowFirstGap(const std::filesystem::path& file) = 0;
  /// Shows a report on an episode file, or the class's picture, without the episode editor; the
  /// reports on a single episode are about the first one with questions. False when the file could
  /// not be read (the user has been told) or has nothing to report.
  virtual bool ShowReport(const std::filesystem::path& file, Screen report) = 0;
  /// Shows the statistics of all questions of several classes, given by their episode files. One
  /// that cannot be read is left out, and the user told. False when none is left.
  virtual bool ShowStatistics(const std::vector<std::filesystem::path>& files) = 0;
  /// Compares two observations of a class, given by their episode files, and shows the agreement.
  /// `tolerance` is in seconds; nothing for the usual one. False when one of them could not be read
  /// (the user has been told).
  virtual bool ShowAgreement(const std::filesystem::path& first,
                             const std::filesystem::path& second, std::optional<int> tolerance) = 0;
  /// Compares the pairs among episode files and shows how far their observers agree.
  virtual void ShowAgreements(const std::vector<std::filesystem::path>& files) = 0;
  /// Shows classes beneath each other, given by their episode files. One that cannot be read is
  /// left out, and the user told. False when none is left.
  virtual bool ShowStudyPicture(const std::vector<std::filesystem::path>& files) = 0;
  /// Shows a session log. Returns when the user closes it.
  virtual void ShowLog(const std::filesystem::path& file) = 0;
  /// Lets the user make tables of observations of the study. Returns when the dialog is closed.
  virtual void ShowTables(const StudySelection& selection) = 0;
  /// Shows the first page of the manual, beside the form that is used.
  virtual void ShowManual() = 0;
  /// Says which program this is. Returns when the user closes it.
  virtual void ShowAbout() = 0;
  /// Edits a field-notes file in the notes dialog. Returns when the dialog is closed.
  virtual void ShowFieldNotes(const std::filesystem::path& file, Kept kept) = 0;
};

}  // namespace orvex
