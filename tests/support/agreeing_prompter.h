#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/prompter.h"

namespace orvex::test {

/// An observer who agrees to everything.
class AgreeingPrompter : public Prompter {
 public:
  Answer Ask(const Message& message) override {
    return message.buttons == Buttons::okCancel || message.buttons == Buttons::ok ? Answer::ok
                                                                                  : Answer::yes;
  }
  std::optional<std::string> AskText(const TextPrompt&) override { return std::nullopt; }
  ChosenFile AskFile(const FilePrompt&) override { return {}; }
  std::filesystem::path AskFolder(const std::filesystem::path&) override { return {}; }
  ChosenFile AskSaveFile(const FilePrompt&) override { return {}; }
  bool AskOfftask(OfftaskPrompt& prompt) override {
    prompt.offtask = "3";
    return true;
  }
  std::optional<int> AskSeconds(const SecondsPrompt& prompt) override { return prompt.maximum / 3; }
  std::optional<std::string> AskNotes(const NotesPrompt& prompt) override {
    return prompt.notes + "They read in pairs.\r\n";
  }
  std::optional<int> AskDivision(int) override { return std::nullopt; }
  std::optional<std::vector<int>> AskQuestions(const Episode&) override { return std::nullopt; }
  std::optional<UnfinishedChoice> AskUnfinished(const std::vector<UnfinishedItem>&) override {
    return UnfinishedChoice{.item = 0, .answer = Answer::yes};
  }
};

}  // namespace orvex::test
