#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "desk/screens.h"
#include "desk/services.h"
#include "model/survey_scheme.h"
#include "store/sur_file.h"
#include "survey/load_survey.h"

namespace orvex {

/// The survey form: during a class, which stores the survey when it ends, or on a survey file.
class SurveyForm {
 public:
  /// Takes the answers as they have become.
  using Fill = std::function<void(const Survey&)>;

  /// On the answers of the running class, for the form `caller`. `answers` outlive this.
  SurveyForm(const Services& services, const Survey& answers, Fill fill, SurveyCaller caller);
  /// On a file that has been read.
  SurveyForm(const Services& services, LoadedSurvey loaded);
  SurveyForm(const SurveyForm&) = delete;
  SurveyForm& operator=(const SurveyForm&) = delete;

  bool OnFile() const { return file_.has_value(); }
  /// Sets the form that is shown again when this one is left during the class.
  void SetCaller(SurveyCaller caller) { caller_ = caller; }

  const Survey& Answers() const { return answers_; }
  void SetCheck(std::size_t group, std::size_t item, bool checked);
  /// Selects a button of the statement. kUncoded clears the selection.
  void Rate(std::size_t statement, int button);
  /// Sets the text of "other:". Does nothing unless that item is checked.
  void TypeOther(std::string text);
  bool OtherEnabled() const { return answers_.checks[0].test(kOtherItem); }

  /// Says where the answers were saved; empty once they have changed since.
  const std::string& SavedText() const { return savedText_; }

  /// Why unsaved changes to the file cannot be kept; empty while all is well.
  std::string KeepTrouble() const { return keeper_ ? keeper_->Trouble() : ""; }
  /// Waits until the changes to keep are on the disk, or have failed to get there.
  void AwaitKept() {
    if (keeper_) keeper_->AwaitStored();
  }

  /// "Class ID 5-12-3", for the class or the file.
  std::string ClassIdText() const;

  /// During the class: returns to the caller without writing anything.
  void ReturnToCaller();
  /// On a file: saves it. False when it could not be written and the user has given up for now.
  bool Save();
  /// On a file: asks whether to save, then whether to edit another file; if not, ends the program.
  /// What was opened from the study leads back there instead.
  void Quit();
  /// Leaves the form as its own button does. For when the user closes the window.
  void Leave() { OnFile() ? Quit() : ReturnToCaller(); }

 private:
  void Change(const Survey& answers);

  Services services_;
  std::optional<SurFile> file_;
  std::optional<OpenedFile> opened_;    ///< the file's content
  std::unique_ptr<FileKeeper> keeper_;  ///< of the file
  std::optional<Survey> saved_;         ///< what the file holds, as far as that is known
  const Survey& answers_;
  Fill fill_;
  std::filesystem::path path_;  ///< of the file, once it has been saved or was to be
  std::string savedText_;
  SurveyCaller caller_ = SurveyCaller::liveObservation;
};

}  // namespace orvex
