#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/prompter.h"

namespace orvex::test {

/// Answers from a script and records what was asked, with its buttons and default. A question that
/// the script does not expect fails the test and is refused, so that "Try again?" comes to an end.
class ScriptedPrompter : public Prompter {
 public:
  ~ScriptedPrompter() override {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " answers were never asked for";
    EXPECT_TRUE(texts_.empty()) << "a text was never asked for";
  }

  /// The next message box must say `text`, and gets `answer`; `during` runs while it is open.
  void Expect(std::string text, Answer answer, std::function<void()> during = {}) {
    answers_.push_back({std::move(text), answer, std::move(during)});
  }
  /// The next input box gets `text`; nothing for Cancel.
  void ExpectText(std::optional<std::string> text) { texts_.push_back(std::move(text)); }

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
    if (texts_.empty()) {
      ADD_FAILURE() << "not expected: " << prompt.text;
      return std::nullopt;
    }
    auto text = texts_.front();
    texts_.pop_front();
    return text;
  }

  ChosenFile AskFile(const FilePrompt& prompt) override {
    ADD_FAILURE() << "not expected: a file dialog, " << prompt.filter;
    return {};
  }

  std::vector<Message> asked;
  std::vector<TextPrompt> askedTexts;

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
        break;
    }
    return Answer::cancel;
  }
  std::deque<Expected> answers_;
  std::deque<std::optional<std::string>> texts_;
};

}  // namespace orvex::test
