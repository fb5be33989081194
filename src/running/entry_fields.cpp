#include "running/entry_fields.h"

#include <algorithm>

#include "model/texts.h"
#include "store/text_encoding.h"

namespace orvex {

DimensionTexts EntryFields::Texts() const {
  DimensionTexts texts;
  for (const Dimension field : kDimensions) texts[field] = Text(field);
  return texts;
}

std::string_view EntryFields::Caption(Dimension field) const {
  if (field == Dimension::respondName && studentAsks_) return Say(Text::whoAsks);
  return SchemeOf(field).entryCaption;
}

std::string_view EntryFields::Heading() const {
  return Say(studentAsks_ ? Text::teacherResponse : Text::teacherEvaluation);
}

std::optional<Dimension> EntryFields::NextVisible(std::optional<Dimension> from) const {
  for (const Dimension field : kDimensions) {
    if (Visible(field) && (!from || field > *from)) return field;
  }
  return std::nullopt;
}

std::optional<Dimension> EntryFields::PreviousVisible(Dimension from) const {
  std::optional<Dimension> previous;
  for (const Dimension field : kDimensions) {
    if (Visible(field) && field < from) previous = field;
  }
  return previous;
}

bool EntryFields::AreEmpty() const {
  return std::ranges::all_of(fields_.values, [](const Field& field) { return field.text.empty(); });
}

void EntryFields::Type(Dimension field, std::string_view text) {
  fields_[field].text = OneLine(text);
  if (field == Dimension::source) SourceChanged();
  if (field == Dimension::response) ResponseChanged();
}

bool EntryFields::Leave(Dimension field) {
  const DimensionScheme& scheme = SchemeOf(field);
  if (scheme.HasLetters() && Letter(field).empty()) Type(field, scheme.defaultLetter);

  // The heading is visible once a response has laid out all fields.
  if (!Holds(Dimension::response, "N")) return headingVisible_ && !NextVisible(field);
  if (field == Dimension::response) {
    if (Holds(Dimension::source, "T")) return true;
    ShowEmptied(Dimension::respondName);
  }
  return field == Dimension::respondName && Holds(Dimension::source, "S");
}

void EntryFields::HideCodeFields() {
  for (const Dimension field : kDimensions) HideEmptied(field);
  headingVisible_ = false;
}

void EntryFields::ShowFirstFields() {
  for (const Dimension field : kDimensions) {
    if (field < Dimension::respondName) Show(field);
  }
  studentAsks_ = false;
}

bool EntryFields::AreNormal() const {
  return std::ranges::all_of(kDimensions, [this](Dimension field) {
    return !SchemeOf(field).HasLetters() || Text(field) == SchemeOf(field).normalLetter;
  });
}

/// Leaves what typing the codes of a student question would leave: nothing in what is not asked.
void EntryFields::FillStudentCodes() {
  Type(Dimension::source, "S");
  for (const Dimension field : kDimensions) {
    if (!Visible(field)) {
      HideEmptied(field);
    } else if (Text(field).empty()) {
      Type(field, SchemeOf(field).defaultLetter);
    }
  }
}

void EntryFields::FillNormalCodes() {
  if (AreNormal()) return FillStudentCodes();
  for (const Dimension field : kDimensions) {
    // Typing a letter again would lay the fields out anew; a question that already has the normal
    // letter keeps its layout.
    const std::string_view normal = SchemeOf(field).normalLetter;
    if (Text(field) != normal) Type(field, normal);
  }
}

void EntryFields::ShowEmptiedIfHidden(Dimension field) {
  if (!Visible(field)) ShowEmptied(field);
}

void EntryFields::KeepOneLetter(Dimension field) {
  std::string& text = fields_[field].text;
  const std::string_view letter = LetterOf(field, CodeOf(field, text.substr(0, 1)));
  if (!letter.empty()) text = letter;
}

void EntryFields::SourceChanged() {
  KeepOneLetter(Dimension::source);
  if (Holds(Dimension::source, "T")) LayoutTeacherQuestion();
  if (Holds(Dimension::source, "S")) LayoutStudentQuestion();
}

void EntryFields::ResponseChanged() {
  KeepOneLetter(Dimension::response);
  if (Holds(Dimension::response, "Y")) LayoutResponse();
  if (Holds(Dimension::response, "N")) LayoutNoResponse();
}

void EntryFields::LayoutTeacherQuestion() {
  studentAsks_ = false;
  const bool answered = Holds(Dimension::response, "Y");
  for (const Dimension field : kDimensions) {
    const AskedFor asked = SchemeOf(field).asked;
    if (asked == AskedFor::answeredTeacher && answered) ShowEmptiedIfHidden(field);
    if (asked == AskedFor::answeredStudent) Hide(field);
    if (asked == AskedFor::answeredOrStudent && !answered) HideEmptied(field);
  }
}

void EntryFields::LayoutStudentQuestion() {
  studentAsks_ = true;
  const bool unanswered = Holds(Dimension::response, "N");
  for (const Dimension field : kDimensions) {
    const AskedFor asked = SchemeOf(field).asked;
    if (asked == AskedFor::answeredTeacher) Hide(field);
    if (asked == AskedFor::answeredStudent) unanswered ? Hide(field) : Show(field);
    if (asked == AskedFor::answeredOrStudent) ShowEmptiedIfHidden(field);
  }
}

void EntryFields::LayoutResponse() {
  headingVisible_ = true;
  studentAsks_ = Holds(Dimension::source, "S");
  for (const Dimension field : kDimensions) {
    ShowEmptiedIfHidden(field);
    if (!IsAskedFor(field, studentAsks_ ? "S" : "T", "Y")) Hide(field);
  }
}

void EntryFields::LayoutNoResponse() {
  headingVisible_ = false;
  for (const Dimension field : kDimensions) {
    if (!IsAskedFor(field, Letter(Dimension::source), "N")) HideEmptied(field);
  }
}

}  // namespace orvex
