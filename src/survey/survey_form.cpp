#include "survey/survey_form.h"

#include <cstdint>
#include <utility>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "model/program.h"
#include "model/texts.h"
#include "store/older_file.h"
#include "store/paths.h"
#include "survey/load_survey.h"

namespace orvex {

SurveyForm::SurveyForm(const Services& services, const Survey& answers, Fill fill,
                       SurveyCaller caller)
    : services_(services), answers_(answers), fill_(std::move(fill)), caller_(caller) {}

SurveyForm::SurveyForm(const Services& services, LoadedSurvey loaded)
    : services_(services),
      file_(std::move(loaded.file)),
      opened_(std::move(loaded.opened)),
      keeper_(std::move(loaded.keeper)),
      answers_(file_->answers),
      fill_([this](const Survey& answers) { file_->answers = answers; }) {
  if (!loaded.isTakenUp) saved_ = answers_;
}

void SurveyForm::Change(const Survey& answers) {
  fill_(answers);
  savedText_.clear();
  if (!keeper_) return;
  std::optional<std::string> bytes;
  if (saved_ != answers_) bytes = FormatSur(*file_);
  keeper_->Keep(std::move(bytes));
}

void SurveyForm::SetCheck(std::size_t group, std::size_t item, bool checked) {
  Survey answers = answers_;
  answers.checks.at(group).set(item, checked);
  Change(answers);
}

void SurveyForm::Rate(std::size_t statement, int button) {
  Survey answers = answers_;
  answers.ratings.at(statement) = static_cast<std::int16_t>(button);
  Change(answers);
}

void SurveyForm::TypeOther(std::string text) {
  if (!OtherEnabled()) return;
  Survey answers = answers_;
  answers.other = std::move(text);
  Change(answers);
}

std::string SurveyForm::ClassIdText() const {
  const Identity& identity = file_ ? file_->identity : services_.program.identity;
  return Say(Text::surveyClassId, {identity.ClassId()});
}

void SurveyForm::ReturnToCaller() {
  services_.screens.Show(caller_ == SurveyCaller::questionEntry ? Screen::questionEntry
                                                                : Screen::liveObservation);
  services_.screens.Hide(Screen::survey);
}

void SurveyForm::Quit() {
  if (!OnFile()) return;
  // Closing the box unanswered means staying. So does a failed save: the answers are only in the
  // form.
  const Answer save = services_.prompter.Ask({.text = Say(Text::askSaveChanges),
                                              .buttons = Buttons::yesNo,
                                              .defaultAnswer = Answer::yes,
                                              .dismissed = Answer::cancel});
  if (save == Answer::cancel || (save == Answer::yes && !Save())) return;
  const bool another = !services_.screens.LeadsBack() &&
                       services_.prompter.Ask({.text = Say(Text::askAnotherFile),
                                               .buttons = Buttons::yesNo,
                                               .defaultAnswer = Answer::no}) == Answer::yes;
  if (keeper_) keeper_->Drop();
  if (another) {
    // Show the menu before this form closes: some form is always on the screen.
    services_.screens.Show(Screen::mainMenu);
    services_.screens.Close(Screen::survey);
    if (EditChosenSurvey(services_)) return;
  }
  services_.screens.EndActivity();
}

bool SurveyForm::Save() {
  if (path_.empty()) path_ = SurPathInFolder(services_.program.DataPath, file_->identity);
  const std::string bytes = FormatSur(*file_);
  std::string older;
  std::optional<std::string> givenUp;
  const std::filesystem::path saved = SaveFile(
      services_.prompter,
      {.failure = Say(Text::surveyNotWritten), .path = path_, .filter = kSurFilter},
      [&](const std::filesystem::path& path) {
        // The survey is saved under its numbers. If the file it was opened from has another name, a
        // different survey may lie there.
        std::error_code unknown;
        const bool isOwn = !keeper_ || std::filesystem::equivalent(keeper_->Path(), path, unknown);
        if (isOwn && keeper_) opened_->RequireUnchanged(path, bytes, givenUp);
        older = ReplaceOwn(services_.storage, path, bytes, isOwn);
      });
  if (saved.empty()) return false;
  path_ = saved;
  saved_ = answers_;
  opened_.emplace(bytes);
  if (keeper_) keeper_->Saved(path_, bytes);
  savedText_ = older.empty() ? Say(Text::savedAs, {saved.string()})
                             : Say(Text::savedAsWithOlder, {saved.string(), older});
  return true;
}

}  // namespace orvex
