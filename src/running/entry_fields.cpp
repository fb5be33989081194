#include "running/entry_fields.h"

#include <algorithm>

#include "store/text_encoding.h"

namespace orvex {
namespace {

constexpr std::array<Dimension, kDimensionCount> kFields = {
    Dimension::source,         Dimension::response,  Dimension::authenticity,
    Dimension::uptake,         Dimension::cognitive, Dimension::respondName,
    Dimension::onePartOfMulti, Dimension::tResponse, Dimension::elaborated};

}  // namespace

std::string_view EntryFields::Caption(Dimension field) const {
  if (field == Dimension::respondName && studentAsks_) return "Who asks question?";
  return SchemeOf(field).entryCaption;
}

std::string_view EntryFields::Heading() const {
  return studentAsks_ ? "TEACHER RESPONSE" : "TEACHER EVALUATION/FOLLOWUP";
}

std::optional<Dimension> EntryFields::NextVisible(std::optional<Dimension> from) const {
  for (const Dimension field : kFields) {
    if (Visible(field) && (!from || field > *from)) return field;
  }
  return std::nullopt;
}

std::optional<Dimension> EntryFields::PreviousVisible(Dimension from) const {
  std::optional<Dimension> previous;
  for (const Dimension field : kFields) {
    if (Visible(field) && field < from) previous = field;
  }
  return previous;
}

bool EntryFields::AreEmpty() const {
  return std::ranges::all_of(fields_, [](const Field& field) { return field.text.empty(); });
}

bool EntryFields::Holds(Dimension field, std::string_view letter) const {
  return LetterOf(field, CodeOf(field, Text(field))) == letter;
}

void EntryFields::Type(Dimension field, std::string_view text) {
  At(field).text = OneLine(text);
  if (field == Dimension::source) SourceChanged();
  if (field == Dimension::response) ResponseChanged();
}

bool EntryFields::Leave(Dimension field) {
  const bool isCode = field != Dimension::respondName;
  if (isCode && !IsLetterOf(field, Text(field))) Type(field, SchemeOf(field).defaultLetter);

  const bool noResponse = Holds(Dimension::response, "N");
  switch (field) {
    case Dimension::response:
      if (!noResponse) return false;
      if (Holds(Dimension::source, "T")) return true;
      ShowEmptied(Dimension::respondName);
      return false;
    case Dimension::respondName:
      return noResponse && Holds(Dimension::source, "S");
    case Dimension::elaborated:
      return true;
    default:
      return false;
  }
}

void EntryFields::HideCodeFields() {
  for (const Dimension field : kFields) HideEmptied(field);
  headingVisible_ = false;
}

void EntryFields::ShowFirstFields() {
  for (const Dimension field : kFields) {
    if (field <= Dimension::cognitive) Show(field);
  }
  studentAsks_ = false;
}

void EntryFields::FillNormalCodes() {
  for (const Dimension field : kFields) {
    // Like the other codes, Source and Response change only where they differ: a question that is
    // laid out already keeps its layout.
    const std::string_view normal = SchemeOf(field).normalLetter;
    if (Text(field) != normal) Type(field, normal);
  }
}

void EntryFields::ShowEmptiedIfHidden(Dimension field) {
  if (!Visible(field)) ShowEmptied(field);
}

void EntryFields::KeepOneLetter(Dimension field) {
  std::string& text = At(field).text;
  const std::string_view letter = LetterOf(field, CodeOf(field, text.substr(0, 1)));
  if (!letter.empty()) text = letter;
}

void EntryFields::SourceChanged() {
  KeepOneLetter(Dimension::source);
  if (Holds(Dimension::source, "T")) LayoutTeacherQuestion();
  if (Holds(Dimension::source, "S")) {
    LayoutStudentQuestion();
    // Without a response there is nothing to say about the teacher's.
    if (Holds(Dimension::response, "N")) Hide(Dimension::tResponse);
  }
}

void EntryFields::ResponseChanged() {
  KeepOneLetter(Dimension::response);
  if (Holds(Dimension::response, "Y")) LayoutResponse();
  if (Holds(Dimension::response, "N")) LayoutNoResponse();
}

void EntryFields::LayoutTeacherQuestion() {
  studentAsks_ = false;
  if (Holds(Dimension::response, "Y")) {
    ShowEmptiedIfHidden(Dimension::onePartOfMulti);
  } else {
    HideEmptied(Dimension::respondName);
  }
  Hide(Dimension::tResponse);
}

void EntryFields::LayoutStudentQuestion() {
  studentAsks_ = true;
  Hide(Dimension::onePartOfMulti);
  Show(Dimension::tResponse);
  ShowEmptiedIfHidden(Dimension::respondName);
}

void EntryFields::LayoutResponse() {
  for (const Dimension field : kFields) ShowEmptiedIfHidden(field);
  headingVisible_ = true;
  studentAsks_ = Holds(Dimension::source, "S");
  Hide(studentAsks_ ? Dimension::onePartOfMulti : Dimension::tResponse);
}

void EntryFields::LayoutNoResponse() {
  const bool keepName = Holds(Dimension::source, "S");
  for (const Dimension field : kFields) {
    if (field <= Dimension::response || (keepName && field == Dimension::respondName)) continue;
    HideEmptied(field);
  }
  headingVisible_ = false;
}

}  // namespace orvex
