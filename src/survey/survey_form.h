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

/// The survey as it is filled in: during a class, whose end stores it, or on a survey file.
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
  /// The form that is shown again when this one is left during the class.
  void SetCaller(SurveyCaller caller) { caller_ = caller; }

  const Survey& Answers() const { return answers_; }
  void SetCheck(std::size_t group, std::size_t item, bool checked);
  /// Selects a button of the statement; kUncoded leaves it open again.
  void Rate(std::size_t statement, int button);
  /// Types into the box of "other:", which takes a text only while that item is checked.
  void TypeOther(std::string text);
  bool OtherEnabled() const { return answers_.checks[0].test(kOtherItem); }

  /// How many statements have not been rated, of one scale or of both.
  int Open(const SurveyScale& scale) const;
  int Open() const;

  /// Where the answers were saved, as long as they have not changed since.
  const std::string& SavedText() const { return savedText_; }

  /// Why the changes to a file cannot be kept until they are saved; empty while all is well.
  std::string KeepTrouble() const { return keeper_ ? keeper_->Trouble() : ""; }
  /// Waits until what is to be kept is on the disk, or has failed.
  void AwaitKept() {
    if (keeper_) keeper_->AwaitStored();
  }

  /// "Class ID 5-12-3", of the class or the file.
  std::string ClassIdText() const;

  /// During the class: goes back to the caller and writes nothing.
  void ReturnToCaller();
  /// On a file: writes it. False when it could not be written and the user has given up for now.
  bool Save();
  /// On a file: asks whether to save, and whether to go on with another; otherwise the program
  /// ends.
  void Quit();
  /// The user closes the window, which means the way out of the form; it goes by itself.
  void Leave() { OnFile() ? Quit() : ReturnToCaller(); }

 private:
  void Change(const Survey& answers);

  Services services_;
  std::optional<SurFile> file_;
  std::unique_ptr<FileKeeper> keeper_;  ///< of the file
  std::optional<Survey> saved_;         ///< what the file holds, as far as that is known
  const Survey& answers_;
  Fill fill_;
  std::filesystem::path path_;  ///< of the file, once it has been saved or was to be
  std::string savedText_;
  SurveyCaller caller_ = SurveyCaller::liveObservation;
};

}  // namespace orvex
