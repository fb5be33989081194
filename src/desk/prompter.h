#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/texts.h"

namespace orvex {

struct Episode;

/// The buttons of a message box, in order.
enum class Buttons { ok, okCancel, yesNo, yesNoCancel, okYesNoCancel };
enum class Answer { ok, cancel, yes, no };

/// A message box: what it says and which button Enter presses.
struct Message {
  std::string text;
  Buttons buttons = Buttons::ok;
  Answer defaultAnswer = Answer::ok;
  std::string details = {};  ///< the place or the cause, shown under the text; may be empty
  std::string title = Say(Text::boxTitle);
  /// The answer when the box is closed without pressing a button. By default Cancel where there is
  /// one, otherwise No.
  std::optional<Answer> dismissed = {};
  /// Captions for buttons whose usual ones would not say enough.
  std::vector<std::pair<Answer, std::string>> captions = {};
};

/// An input box for one line of text.
struct TextPrompt {
  std::string text;
  std::string title;
  std::string defaultText;
  bool isFolder = false;  ///< the text is the path of a folder, which can be chosen as well
};

/// A file dialog: the folder it starts in, and its filter ("EPS files (*.EPS)|*.EPS"),
/// or several of them, one behind the other.
struct FilePrompt {
  std::filesystem::path folder;
  std::string filter;
  std::string defaultName = {};  ///< the name that a dialog for saving suggests
};

/// The result of a file dialog.
struct ChosenFile {
  std::filesystem::path path;    ///< empty when none was chosen
  std::filesystem::path folder;  ///< the folder the dialog ended in
};

/// The dialog for an off-task estimate: the texts of its two boxes. Once it is accepted, both are
/// numbers, and the second is at least 1.
struct OfftaskPrompt {
  std::string offtask = "0";
  std::string students;
};

/// The dialog that corrects how many seconds ago the segment began. It starts with `seconds` and
/// allows 0 to `maximum`.
struct SecondsPrompt {
  int maximum = 0;
  int seconds = 0;
};

/// Unfinished work as it is offered: the cells of its row when several items are listed, and the
/// question to ask, with Yes, No and Cancel, when it is the only one.
struct UnfinishedItem {
  std::string what;    ///< "Class 7-12-3 of 03-14-2001 was not ended"
  std::string extent;  ///< from when to when, and how much: "09:00:00 to 09:41:10, 2 episodes"
  std::string place;   ///< the folder it lies in
  /// Its captions are also those of the row's buttons, and its default answer is what Enter does
  /// with the row.
  Message question;
};

/// What the user wants done with one of several items. The answer is one to the item's question.
struct UnfinishedChoice {
  std::size_t item = 0;  ///< counted from 0
  Answer answer = Answer::cancel;
};

/// The dialog for field notes. CR LF separates their lines.
struct NotesPrompt {
  std::string notes;
  /// Text that was typed earlier but not saved; shown instead of the notes.
  std::optional<std::string> draft = {};
  /// Called with the text in the dialog whenever it changes, and with the notes again when the
  /// dialog is cancelled.
  std::function<void(const std::string&)> typed = {};
};

/// Everything the program asks its user while an operation waits for the answer.
class Prompter {
 public:
  virtual ~Prompter() = default;

  virtual Answer Ask(const Message& message) = 0;
  /// The text the user gave, or nothing when the box was cancelled.
  virtual std::optional<std::string> AskText(const TextPrompt& prompt) = 0;
  virtual ChosenFile AskFile(const FilePrompt& prompt) = 0;
  /// Lets the user choose a folder, starting in `start`. Empty when none was chosen.
  virtual std::filesystem::path AskFolder(const std::filesystem::path& start) = 0;
  /// Lets the user choose where to save. An existing file is only chosen once the user has agreed
  /// to replace it.
  virtual ChosenFile AskSaveFile(const FilePrompt& prompt) = 0;
  /// True for OK. The texts of the boxes are returned even when the estimate was skipped.
  virtual bool AskOfftask(OfftaskPrompt& prompt) = 0;
  /// The number of seconds chosen, or nothing when the dialog was cancelled.
  virtual std::optional<int> AskSeconds(const SecondsPrompt& prompt) = 0;
  /// The edited field notes; nothing when the dialog was cancelled, or when the program ends.
  virtual std::optional<std::string> AskNotes(const NotesPrompt& prompt) = 0;
  /// How many of a segment's `totalSeconds` go to its second part; nothing when the dialog was
  /// cancelled.
  virtual std::optional<int> AskDivision(int totalSeconds) = 0;
  /// The numbers of the questions that go to the second of two episodes, in the order in which they
  /// were chosen; nothing when the dialog was cancelled.
  virtual std::optional<std::vector<int>> AskQuestions(const Episode& episode) = 0;
  /// Shows several pieces of unfinished work in one list. Nothing when the user leaves them all as
  /// they are.
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
