#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/program.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "observe/set_up.h"
#include "questions/question_entry.h"
#include "recovery/kept_class.h"
#include "recovery/recovery_file.h"
#include "recovery/unfinished_class.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "support/agreeing_prompter.h"
#include "support/fake_clock.h"
#include "support/recording_screens.h"
#include "support/test_folder.h"

namespace orvex::test {

/// A short class, played step by step on a folder. It contains every kind of change.
class PlayedClass {
 public:
  PlayedClass(Storage& storage, const std::filesystem::path& folder)
      : storage_(storage), log_(storage, clock_), recovery_(storage) {
    program_.DataPath = folder;
    program_.StartTimeText = clock_.TimeText();
  }

  static constexpr std::size_t kSteps = 28;
  /// Plays step `i`; all steps before it must have been played. Returns once the system has its
  /// changes.
  void Play(std::size_t i) {
    clock_.Advance(kPace);
    steps_[i]();
    if (!live_) return;
    live_->Keep();
    recovery_.AwaitWritten();
  }

  /// Waits until everything is on the disk.
  void AwaitDisk() {
    recovery_.AwaitStored();
    log_.File().AwaitSynced();
  }
  /// Lets a second pass.
  void Tick() {
    clocks_->Tick();
    recovery_.AwaitWritten();
  }

  /// Takes up a class that another program played up to step `i` before it was killed. False when
  /// there was none to take up.
  bool TakeUpAt(std::size_t i) {
    clock_.Advance(kPace * static_cast<double>(i));
    OfferUnfinished(prompter_, UnfinishedClasses(services_));
    if (!screens_.takenUp) return false;
    live_.emplace(services_, *screens_.takenUp);
    clocks_.emplace(services_, *live_);
    if (live_->Running().ChosenActivity() == kQuestionAnswer)
      entry_.emplace(services_, *live_, *clocks_);
    return true;
  }

  /// The class in its present state, in the format it is kept in.
  std::string State() const { return live_ ? StateOf(program_, live_->Running()) : ""; }
  /// The state of any class, without the token that is unique to each.
  static std::string StateOf(const Program& program, RunningClass running) {
    running.token.clear();
    return FormatRunning(program, running);
  }
  std::string LogText() const {
    return log_.File().Path().empty() ? "" : FileBytes(log_.File().Path());
  }

 private:
  static constexpr double kPace = 4;  ///< seconds between steps

  void Start() {
    SetUp setUp(services_);
    program_.identity = {"AB", "7", "12", "3", "25"};
    setUp.Start();
    live_.emplace(services_);
    clocks_.emplace(services_, *live_);
  }
  void Describe(const std::string& text) {
    live_->EnterDescription();
    live_->KeyInDescription();
    live_->TypeDescription(text);
    live_->LeaveDescription();
  }
  void BeginQuestions() {
    live_->StartQuestionAnswer();
    entry_.emplace(services_, *live_, *clocks_);
  }
  void RateStatement(std::size_t statement, std::int16_t rating) {
    Survey answers = live_->Running().survey;
    answers.ratings[statement] = rating;
    live_->FillSurvey(answers);
  }
  void Ask(const std::string& text, const std::string& source) {
    entry_->TypeQuestion(text);
    entry_->EnterOrDown(QuestionEntry::kText);
    entry_->TypeField(Dimension::source, source);
    entry_->TypeField(Dimension::cognitive, "H");
    entry_->SaveQuestion();
  }

  Storage& storage_;
  FakeClock clock_;
  AgreeingPrompter prompter_;
  RecordingScreens screens_;
  Program program_;
  SessionLog log_;
  RecoveryFile recovery_;
  const std::filesystem::path programFolder_ = "/nowhere";
  Services services_{program_, log_,      recovery_, storage_,
                     clock_,   prompter_, screens_,  programFolder_};
  std::optional<LiveObservation> live_;
  std::optional<SessionClocks> clocks_;
  std::optional<QuestionEntry> entry_;

  const std::array<std::function<void()>, kSteps> steps_ = {
      [this] { Start(); },
      [this] { Describe("Warm-up"); },
      [this] { live_->ChooseActivity(8); },
      [this] { live_->EditFieldNotes(); },
      [this] { live_->AskToStartSegment(); },
      [this] { live_->ChooseActivity(4); },
      [this] { live_->TypeAbout("Atticus before the jail"); },
      [this] { BeginQuestions(); },
      [this] { Ask("What does Scout see?", "T"); },
      [this] { entry_->TypeQuestion("Why does she keep it to herself?"); },
      [this] { entry_->EnterOrDown(QuestionEntry::kText); },
      [this] { entry_->TypeField(Dimension::source, "T"); },
      [this] { entry_->TypeField(Dimension::cognitive, "H"); },
      [this] { entry_->SaveQuestion(); },
      [this] { Ask("May I read it again?", "S"); },
      [this] { live_->CorrectTime(); },
      [this] { live_->AskToStartEpisode(); },
      [this] { Describe("Courage, and what it costs"); },
      [this] { live_->ChooseActivity(14); },
      [this] { live_->ChooseCode(SubCode::writing, 1); },
      [this] { live_->TypeHeader(HeaderBox::observNum, "4"); },
      [this] { live_->LeaveHeader(HeaderBox::observNum); },
      [this] { RateStatement(3, 2); },
      [this] { live_->AskToStartSegment(); },
      [this] { live_->ChooseActivity(17); },
      [this] { live_->Convert(); },
      [this] { Describe("Group work"); },
      [this] { live_->EndClass(); },
  };
};

}  // namespace orvex::test
