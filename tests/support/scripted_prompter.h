#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/prompter.h"
#include "model/episode.h"

namespace orvex::test {

/// Answers from a script and records each question with its buttons and default. An unexpected
/// question fails the test and is refused, so that "Try again?" comes to an end.
class ScriptedPrompter : public Prompter {
 public:
  ~ScriptedPrompter() override {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " answers were never asked for";
    EXPECT_TRUE(texts_.empty() && files_.empty() && estimates_.empty() && seconds_.empty() &&
                notes_.empty() && saveFiles_.empty() && divisions_.empty() && questions_.empty() &&
                folders_.empty() && choices_.empty())
        << "something was never asked for";
  }

  /// Expects a message box with `text` and answers it; `during` runs while it is open.
  void Expect(std::string text, Answer answer, std::function<void()> during = {}) {
    answers_.push_back({std::move(text), answer, std::move(during)});
  }
  /// Types `text` into the next input box; nothing for Cancel.
  void ExpectText(std::optional<std::string> text) { texts_.push_back(std::move(text)); }

  /// Ends the next file dialog with `chosen`.
  void ExpectFile(ChosenFile chosen) { files_.push_back(std::move(chosen)); }
  /// Ends the next folder dialog with `folder`; empty for Cancel.
  void ExpectFolder(std::filesystem::path folder) { folders_.push_back(std::move(folder)); }
  /// Answers the next list of unfinished things; nothing leaves them all.
  void ExpectUnfinished(std::optional<UnfinishedChoice> choice) { choices_.push_back(choice); }
  /// Ends the next save dialog with `chosen`.
  void ExpectSaveFile(ChosenFile chosen) { saveFiles_.push_back(std::move(chosen)); }
  /// Types these numbers into the next off-task estimate, then accepts or skips it; `during` runs
  /// while the dialog is open.
  void ExpectEstimate(const OfftaskPrompt& typed, bool accept = true,
                      std::function<void()> during = {}) {
    estimates_.push_back({typed, accept, std::move(during)});
  }
  /// Sets the next time adjustment to `seconds`; nothing for Cancel. `during` runs while the dialog
  /// is open.
  void ExpectSeconds(std::optional<int> seconds, std::function<void()> during = {}) {
    seconds_.push_back({seconds, std::move(during)});
  }
  /// Edits the next field notes into `notes`; nothing for Cancel. `during` runs while the dialog is
  /// open.
  void ExpectNotes(std::optional<std::string> notes,
                   std::function<void(const NotesPrompt&)> during = {}) {
    notes_.push_back({std::move(notes), std::move(during)});
  }

  /// Divides the next segment so that its second part gets `seconds`; nothing for Cancel.
  void ExpectDivision(std::optional<int> seconds) { divisions_.push_back(seconds); }
  /// Sends these questions to the second episode, in the order of `numbers`; nothing for Cancel.
  void ExpectQuestions(std::optional<std::vector<int>> numbers) {
    questions_.push_back(std::move(numbers));
  }

  Answer Ask(const Message& message) override {
    asked.push_back(message);
    if (answers_.empty()) {
      ADD_FAILURE() << "not expected: " << message.text << " | " << message.details;
      return Refusal(message.buttons);
    }
    const Expected next = answers_.front();
    answers_.pop_front();
    EXPECT_EQ(message.text, next.text);
    if (next.during) next.during();
    return next.answer;
  }

  std::optional<std::string> AskText(const TextPrompt& prompt) override {
    askedTexts.push_back(prompt);
    return Next(texts_, prompt.text).value_or(std::nullopt);
  }

  ChosenFile AskFile(const FilePrompt& prompt) override {
    askedFiles.push_back(prompt);
    return Next(files_, "a file dialog").value_or(ChosenFile{});
  }

  std::filesystem::path AskFolder(const std::filesystem::path& start) override {
    askedFolders.push_back(start);
    return Next(folders_, "a dialog for a folder").value_or(std::filesystem::path());
  }

  ChosenFile AskSaveFile(const FilePrompt& prompt) override {
    askedSaveFiles.push_back(prompt);
    return Next(saveFiles_, "a file dialog for saving").value_or(ChosenFile{});
  }

  bool AskOfftask(OfftaskPrompt& prompt) override {
    askedEstimates.push_back(prompt);
    const auto next = NextDialog(estimates_, "an off-task estimate");
    if (!next) return false;
    if (next->during) next->during();
    prompt = next->typed;
    return next->accept;
  }

  std::optional<int> AskSeconds(const SecondsPrompt& prompt) override {
    askedSeconds.push_back(prompt);
    const auto next = NextDialog(seconds_, "a time adjustment");
    if (!next) return std::nullopt;
    if (next->during) next->during();
    return next->seconds;
  }

  std::optional<std::string> AskNotes(const NotesPrompt& prompt) override {
    askedNotes.push_back(prompt.draft.value_or(prompt.notes));
    const auto next = NextDialog(notes_, "field notes");
    if (!next) return std::nullopt;
    if (next->during) next->during(prompt);
    return next->notes;
  }

  std::optional<int> AskDivision(int totalSeconds) override {
    askedDivisions.push_back(totalSeconds);
    return NextDialog(divisions_, "a division").value_or(std::nullopt);
  }

  std::optional<std::vector<int>> AskQuestions(const Episode& episode) override {
    askedQuestions.push_back(episode.nQAs());
    return NextDialog(questions_, "a choice of questions").value_or(std::nullopt);
  }

  std::optional<UnfinishedChoice> AskUnfinished(const std::vector<UnfinishedItem>& items) override {
    askedUnfinished.push_back(items);
    return Next(choices_, "a list of unfinished things").value_or(std::nullopt);
  }

  /// Cancels unexpected dialogs, for tests about something else.
  bool cancelsDialogs = false;

  std::vector<Message> asked;
  std::vector<TextPrompt> askedTexts;
  std::vector<FilePrompt> askedFiles;
  std::vector<std::filesystem::path> askedFolders;
  std::vector<std::vector<UnfinishedItem>> askedUnfinished;
  std::vector<FilePrompt> askedSaveFiles;
  std::vector<OfftaskPrompt> askedEstimates;
  std::vector<SecondsPrompt> askedSeconds;
  std::vector<std::string> askedNotes;
  std::vector<int> askedDivisions;
  std::vector<int> askedQuestions;  ///< the number of questions in each episode

 private:
  struct Expected {
    std::string text;
    Answer answer;
    std::function<void()> during;
  };
  static Answer Refusal(Buttons buttons) {
    switch (buttons) {
      case Buttons::ok:
        return Answer::ok;
      case Buttons::yesNo:
        return Answer::no;
      case Buttons::okCancel:
      case Buttons::yesNoCancel:
      case Buttons::okYesNoCancel:
        break;
    }
    return Answer::cancel;
  }
  struct Estimate {
    OfftaskPrompt typed;
    bool accept;
    std::function<void()> during;
  };
  struct Seconds {
    std::optional<int> seconds;
    std::function<void()> during;
  };
  struct Notes {
    std::optional<std::string> notes;
    std::function<void(const NotesPrompt&)> during;
  };
  /// The next answer of a script. Fails the test and returns nothing when the script has none left.
  template <typename T>
  static std::optional<T> Next(std::deque<T>& script, const std::string& what) {
    if (script.empty()) {
      ADD_FAILURE() << "not expected: " << what;
      return std::nullopt;
    }
    T next = std::move(script.front());
    script.pop_front();
    return next;
  }

  template <typename T>
  std::optional<T> NextDialog(std::deque<T>& script, const std::string& what) const {
    if (script.empty() && cancelsDialogs) return std::nullopt;
    return Next(script, what);
  }

  std::deque<Expected> answers_;
  std::deque<std::optional<std::string>> texts_;
  std::deque<ChosenFile> files_;
  std::deque<Estimate> estimates_;
  std::deque<Seconds> seconds_;
  std::deque<Notes> notes_;
  std::deque<ChosenFile> saveFiles_;
  std::deque<std::optional<int>> divisions_;
  std::deque<std::optional<std::vector<int>>> questions_;
  std::deque<std::filesystem::path> folders_;
  std::deque<std::optional<UnfinishedChoice>> choices_;
};

}  // namespace orvex::test
