#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvex {

struct Episode;

/// The buttons of a message box, in their order.
enum class Buttons { ok, okCancel, yesNo, yesNoCancel, okYesNoCancel };
enum class Answer { ok, cancel, yes, no };

/// A message box: what it says and which button Enter presses.
struct Message {
  std::string text;
  Buttons buttons = Buttons::ok;
  Answer defaultAnswer = Answer::ok;
  std::string details = {};  ///< the place or the cause, shown under the text; may be empty
  std::string title = "Orvex";
  /// What it counts as to close the box without pressing a button; by itself No, or Cancel where
  /// there is one.
  std::optional<Answer> dismissed = {};
  /// What is written on the buttons whose usual captions would not say enough.
  std::vector<std::pair<Answer, std::string>> captions = {};
};

/// An input box for one line of text.
struct TextPrompt {
  std::string text;
  std::string title;
  std::string defaultText;
  bool isFolder = false;  ///< the text is the path of a folder, which can be chosen as well
};

/// A file dialog: where it starts, and its filter ("EPS files (*.EPS)|*.EPS").
struct FilePrompt {
  std::filesystem::path folder;
  std::string filter;
  std::string defaultName = {};  ///< what a dialog for saving proposes
};

/// What came of a file dialog.
struct ChosenFile {
  std::filesystem::path path;    ///< empty when none was chosen
  std::filesystem::path folder;  ///< the folder the dialog ended in
};

/// The dialog for an off-task estimate: the texts of its two boxes. Both are numbers when it was
/// accepted, the second at least 1.
struct OfftaskPrompt {
  std::string offtask = "0";
  std::string students;
};

/// The dialog that corrects how many seconds ago the segment began: 0 to `maximum`, `seconds` to
/// start with.
struct SecondsPrompt {
  int maximum = 0;
  int seconds = 0;
};

/// Something that was not finished, as it is offered: the cells of its row where there are several,
/// and the question, with Yes, No and Cancel, where it is the only one.
struct UnfinishedItem {
  std::string what;    ///< "Class 7-12-3 of 03-14-2001 was not ended"
  std::string extent;  ///< from when to when, and how much: "09:00:00 to 09:41:10, 2 episodes"
  std::string place;   ///< the folder it lies in
  /// The captions are those of the row's buttons, too, and the default answer is what Enter does
  /// with the row.
  Message question;
};

/// What is to be done with one of several items: the question's answer.
struct UnfinishedChoice {
  std::size_t item = 0;  ///< counted from 0
  Answer answer = Answer::cancel;
};

/// The dialog for field notes. Their lines are separated by CR LF.
struct NotesPrompt {
  std::string notes;
  /// What had been typed into the dialog when the program ended; it is shown instead of the notes.
  std::optional<std::string> draft = {};
  /// Told the text in the dialog whenever it has changed; once it is cancelled, the notes again.
  std::function<void(const std::string&)> typed = {};
};

/// Everything the system asks of its user while an operation waits for the answer.
class Prompter {
 public:
  virtual ~Prompter() = default;

  virtual Answer Ask(const Message& message) = 0;
  /// The text given, or nothing when the box was cancelled.
  virtual std::optional<std::string> AskText(const TextPrompt& prompt) = 0;
  virtual ChosenFile AskFile(const FilePrompt& prompt) = 0;
  /// A folder, the dialog for which begins in `start`; empty when none was chosen.
  virtual std::filesystem::path AskFolder(const std::filesystem::path& start) = 0;
  /// Where to save. A file that is there already is only chosen once the user has agreed to replace
  /// it.
  virtual ChosenFile AskSaveFile(const FilePrompt& prompt) = 0;
  /// True for OK. The texts are taken back as they stand also when the estimate was skipped.
  virtual bool AskOfftask(OfftaskPrompt& prompt) = 0;
  /// The seconds set, or nothing when the dialog was cancelled.
  virtual std::optional<int> AskSeconds(const SecondsPrompt& prompt) = 0;
  /// The field notes as edited, or nothing when they were cancelled, or when the program ends.
  virtual std::optional<std::string> AskNotes(const NotesPrompt& prompt) = 0;
  /// How many of a segment's `totalSeconds` go to its second part, or nothing when the dialog was
  /// cancelled.
  virtual std::optional<int> AskDivision(int totalSeconds) = 0;
  /// The numbers of the questions that go to the second of two episodes, in the order in which they
  /// were chosen, or nothing when the dialog was cancelled.
  virtual std::optional<std::vector<int>> AskQuestions(const Episode& episode) = 0;
  /// Shows several things that were not finished in one list. Nothing, when all are left as they
  /// are.
  virtual std::optional<UnfinishedChoice> AskUnfinished(
      const std::vector<UnfinishedItem>& items) = 0;

  /// A message with an OK button.
  void Tell(std::string text, std::string details = "") {
    Ask({.text = std::move(text), .details = std::move(details)});
  }
  /// A question with Yes and No; true for Yes. Enter answers Yes.
  bool AskYesNo(std::string text) {
    return Ask({.text = std::move(text),
                .buttons = Buttons::yesNo,
                .defaultAnswer = Answer::yes}) == Answer::yes;
  }
  /// A question with OK and Cancel; true for OK. Enter answers OK.
  bool AskOkCancel(std::string text) {
    return Ask({.text = std::move(text), .buttons = Buttons::okCancel}) == Answer::ok;
  }
};

}  // namespace orvex
