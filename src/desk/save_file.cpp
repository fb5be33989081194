#include "desk/save_file.h"

#include <exception>
#include <system_error>

#include "desk/prompter.h"
#include "model/texts.h"
#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

Message Question(const FileToSave& file, const std::string& why) {
  Message message = {.text = file.failure, .details = why};
  if (file.filter.empty()) {
    message.buttons = Buttons::okCancel;
    message.captions = {{Answer::ok, Say(Text::tryAgain)}};
  } else {
    message.buttons = Buttons::yesNoCancel;
    message.defaultAnswer = Answer::yes;
    message.captions = {{Answer::yes, Say(Text::tryAgain)}, {Answer::no, Say(Text::saveElsewhere)}};
  }
  return message;
}

Message QuestionOfChange(const FileToSave& file, const std::string& which) {
  Message message = Question(file, which);
  message.text = Say(Text::fileChanged);
  message.defaultAnswer = Answer::cancel;
  message.captions[0].second = Say(Text::replaceIt);
  return message;
}

/// Lets the user choose another place for a file that belongs at `path`. Empty when none was
/// chosen.
fs::path AskPlace(Prompter& prompter, const FileToSave& file, const fs::path& path) {
  const FilePrompt prompt = {
      .folder = path.parent_path(), .filter = file.filter, .defaultName = path.filename().string()};
  fs::path place = prompter.AskSaveFile(prompt).path;
  if (place.empty()) return place;
  // The dialog has only asked about replacing the file itself.
  for (const std::string& extension : file.companions) {
    const fs::path beside = Beside(place, extension);
    std::error_code unknown;
    if (!fs::exists(beside, unknown)) continue;
    if (prompter.Ask({.text = Say(Text::askReplace, {beside.filename().string()}),
                      .buttons = Buttons::yesNo,
                      .defaultAnswer = Answer::no,
                      .details = beside.string()}) != Answer::yes) {
      return {};
    }
  }
  return place;
}

/// Where to try next; empty when the user gives up. Cancelling the choice of another place leads
/// back to the question.
fs::path AskWhatNext(Prompter& prompter, const FileToSave& file, const fs::path& path,
                     const Message& question) {
  for (;;) {
    const Answer answer = prompter.Ask(question);
    if (answer == Answer::cancel) return {};
    if (answer != Answer::no) return path;
    if (fs::path place = AskPlace(prompter, file, path); !place.empty()) return place;
  }
}

}  // namespace

fs::path SaveFile(Prompter& prompter, const FileToSave& file,
                  const std::function<void(const fs::path&)>& save) {
  fs::path path = file.path;
  while (!path.empty()) {
    Message question;
    try {
      save(path);
      break;
    } catch (const FileChanged& change) {
      question = QuestionOfChange(file, change.what());
    } catch (const std::exception& error) {
      question = Question(file, error.what());
    }
    path = AskWhatNext(prompter, file, path, question);
  }
  return path;
}

fs::path Beside(const fs::path& path, const std::string& extension) {
  // Any other extension stays: the notes of an episode file named "x.nte" must not replace that
  // file.
  const bool known = path.extension() == ".eps" || path.extension() == ".EPS";
  fs::path beside = known ? path.parent_path() / path.stem() : path;
  return beside += extension;
}

void TellProtection(Prompter& prompter, const std::filesystem::path& path) {
  std::error_code unknown;
  if (!fs::exists(path, unknown)) return;
  try {
    RequireReplaceable(path);
  } catch (const FileError& error) {
    prompter.Tell(Say(Text::writeProtected), error.what());
  }
}

}  // namespace orvex
