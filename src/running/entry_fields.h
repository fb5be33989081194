#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/question_info.h"

namespace orvex {

/// The code fields of the live question entry, one per dimension: the text in each, and which ones
/// are visible, depending on Source and Response. A field is shown or hidden together with its
/// label. A hidden field keeps its text unless the layout clears it, and that text counts like any
/// other.
class EntryFields {
 public:
  const std::string& Text(Dimension field) const { return fields_[field].text; }
  DimensionTexts Texts() const;
  bool Visible(Dimension field) const { return fields_[field].visible; }
  /// True when nothing is typed in any field.
  bool AreEmpty() const;
  std::string_view Caption(Dimension field) const;
  /// Whether the heading over the last codes is visible.
  bool HeadingVisible() const { return headingVisible_; }
  std::string_view Heading() const;

  /// The visible field after `from` (the first one without `from`), and the one before it.
  std::optional<Dimension> NextVisible(std::optional<Dimension> from) const;
  std::optional<Dimension> PreviousVisible(Dimension from) const;

  /// Stores the text of a field. Source and Response keep only their letter, and typing it lays the
  /// fields out anew, even if the letter stays the same.
  void Type(Dimension field, std::string_view text);
  /// Handles Enter or Down in `field`: a field without a valid letter gets its default. True when
  /// that completes the question.
  bool Leave(Dimension field);

  void HideCodeFields();
  void ShowFirstFields();
  /// Codes a normal teacher question; one that is coded so becomes a normal student question, whose
  /// other codes have their defaults.
  void FillNormalCodes();

  /// Passes the whole state of `fields` to `archive`, which may read or change it.
  template <typename Archive, typename Fields>
  static void Visit(Archive& archive, Fields& fields) {
    for (auto& field : fields.fields_.values) {
      archive.Text("text", field.text);
      archive.Numbers("visible", field.visible);
    }
    archive.Numbers("layout", fields.headingVisible_, fields.studentAsks_);
  }

 private:
  struct Field {
    std::string text;
    bool visible = false;
  };

  std::string_view Letter(Dimension field) const {
    return LetterOf(field, CodeOf(field, Text(field)));
  }
  bool Holds(Dimension field, std::string_view letter) const { return Letter(field) == letter; }
  void Show(Dimension field) { fields_[field].visible = true; }
  void Hide(Dimension field) { fields_[field].visible = false; }
  void HideEmptied(Dimension field) { fields_[field] = {}; }
  void ShowEmptied(Dimension field) { fields_[field] = {.text = "", .visible = true}; }
  void ShowEmptiedIfHidden(Dimension field);

  bool AreNormal() const;
  void FillStudentCodes();
  void KeepOneLetter(Dimension field);
  void SourceChanged();
  void ResponseChanged();
  void LayoutTeacherQuestion();
  void LayoutStudentQuestion();
  void LayoutResponse();
  void LayoutNoResponse();

  PerDimension<Field> fields_;
  bool headingVisible_ = false;
  bool studentAsks_ = false;  ///< show the captions of a student question
};

/// The question being entered: its text and its codes.
struct QuestionDraft {
  std::string question;
  EntryFields fields;

  bool IsEmpty() const { return question.empty() && fields.AreEmpty(); }
  /// True when `other` can replace it without losing anything typed.
  bool IsBeginningOf(const QuestionDraft& other) const {
    return fields.AreEmpty() && (question.empty() || question == other.question);
  }
};

}  // namespace orvex
