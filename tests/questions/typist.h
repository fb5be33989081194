#pragma once

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "questions/question_entry.h"
#include "support/desk.h"

namespace orvex {

inline void PrintTo(const questionInfo& question, std::ostream* out) {
  *out << '"' << question.question << "\" " << question.Source << question.Response
       << question.authenticity << question.uptake << question.cognitive << " \""
       << question.respondName << "\" " << question.onePartOfMulti << question.tResponse
       << question.elaborated << " ep " << question.iEpQ << " sg " << question.iSgQ;
}

}  // namespace orvex

namespace orvex::test {

/// A class in progress, and an observer who works the question entry from the keyboard: a key goes
/// to the box with the focus, and replaces its content while that is selected.
class QuestionEntryTest : public ::testing::Test, protected Desk {
 protected:
  using Control = QuestionEntry::Control;
  using Command = QuestionEntry::Command;

  QuestionEntryTest() {
    OpenLog();
    live.emplace(services);
    clocks.emplace(services, *live);
    live->KeyInDescription();
    live->TypeDescription("Macbeth");
  }

  /// Starts a question/answer segment; a segment of `previousActivity` goes before it.
  void OpenEntry(int previousActivity = 0) {
    if (previousActivity != 0) {
      live->ChooseActivity(previousActivity);
      live->StartNewSeg();
    }
    live->ChooseActivity(kQuestionAnswer);
    screens.Take();
    entry.emplace(services, *live, *clocks);
    Follow();
  }

  /// Types `keys`; a line end is the Enter key.
  void Keys(std::string_view keys) {
    for (const char key : keys) {
      if (key == '\n') {
        entry->EnterOrDown(focus);
      } else if (focus == Control::txtQuestion) {
        entry->TypeQuestion((selected ? "" : entry->Question()) + key);
        selected = false;
      } else if (const auto field = QuestionEntry::FieldOf(focus)) {
        entry->TypeField(*field, (selected ? "" : entry->Fields().Text(*field)) + key);
        selected = false;
      }
      Follow();
    }
  }
  void Up(int times = 1) {
    for (; times > 0; --times) {
      entry->Up(focus);
      Follow();
    }
  }
  void ClickMouseIn(Control box) {
    focus = box;
    selected = QuestionEntry::CaretOf(box) == Caret::selectAll;
  }
  void CtrlN() {
    entry->SaveQuestion();
    Follow();
  }
  void Click(Command command) {
    entry->Click(command);
    Follow();
  }

  /// The numbers of the visible fields: "12345679".
  std::string Visible() const {
    std::string numbers;
    for (int i = 0; i < kDimensionCount; ++i) {
      if (entry->Fields().Visible(static_cast<Dimension>(i))) numbers += static_cast<char>('1' + i);
    }
    return numbers;
  }
  /// The heading of the last codes; "" while it is hidden.
  std::string Heading() const {
    return entry->Fields().HeadingVisible() ? std::string(entry->Fields().Heading()) : "";
  }
  /// The contents of the fields, shown or not: "T|Y|N|N|R||N||U".
  std::string Contents() const {
    std::string contents;
    for (int i = 0; i < kDimensionCount; ++i) {
      if (i > 0) contents += '|';
      contents += entry->Fields().Text(static_cast<Dimension>(i));
    }
    return contents;
  }
  /// The captions of the enabled buttons, in their order.
  std::string Buttons() const {
    const std::array<std::pair<Command, std::string_view>, 11> captions = {
        {{Command::Command1, "&Review"},
         {Command::Command2, "Proo&f"},
         {Command::Command3, entry->Caption3()},
         {Command::Command4, "&Ditto"},
         {Command::Command5, entry->Caption5()},
         {Command::Command6, "&SEGMENT"},
         {Command::Command7, entry->Caption7()},
         {Command::Command8, "&Last"},
         {Command::Command9, "&Clock"},
         {Command::Command10, "&End Class"},
         {Command::cmdOfftaskActive, "* &OFFTASK *"}}};
    std::string enabled;
    for (const auto& [command, caption] : captions) {
      if (!entry->Enabled(command)) continue;
      if (!enabled.empty()) enabled += ", ";
      enabled += caption;
    }
    return enabled;
  }
  std::vector<questionInfo>& Questions() { return live->CurQuestions(); }

  std::optional<LiveObservation> live;
  std::optional<SessionClocks> clocks;
  std::optional<QuestionEntry> entry;
  Control focus = Control::txtQuestion;
  bool selected = false;

 private:
  void Follow() {
    if (const auto wish = entry->TakeFocus()) {
      focus = wish->control;
      selected = wish->caret == Caret::selectAll;
    }
  }
};

}  // namespace orvex::test
