#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "model/survey.h"

namespace orvex {

struct SurveyItem {
  std::string_view text;
  std::string_view name;  ///< after the group's name, it is the name of the item's variable
};

/// A group of check boxes.
struct SurveyGroup {
  std::string_view name;     ///< the beginning of the names of its variables
  std::string_view heading;  ///< as a survey file has it
  std::string_view caption;  ///< as the form has it
  std::span<const SurveyItem> items;
};
const std::array<SurveyGroup, kCheckGroups>& SurveyGroups();

/// The form's heading for the last three groups. In a survey file it is part of the first one's
/// heading.
inline constexpr std::string_view kTypesOfWriting = "Today's types of writing include:";
inline constexpr int kTypesOfWritingGroup = 3;

/// The value, in tables, of a statement that does not apply.
inline constexpr int kDoesNotApply = 9;

/// A statement to rate. Its buttons show the values 0 to `highest`; with `notApplicable`, one more
/// before them shows that the statement does not apply.
struct SurveyStatement {
  std::string_view variable;  ///< its name in the tables
  std::string_view text;
  std::string_view legend;  ///< what its values mean
  bool notApplicable = false;
  int highest = 3;

  int Buttons() const { return highest + 1 + (notApplicable ? 1 : 0); }
  /// "N/A" or the value that the button shows.
  std::string Caption(int button) const;
  /// The value that the button shows, or kDoesNotApply.
  int Value(int button) const;
  /// What the legend says of the button: "Rarely".
  std::string_view Meaning(int button) const;
};
const std::array<SurveyStatement, kStatements>& SurveyStatements();

/// A run of statements with a heading of its own.
struct SurveyScale {
  std::string_view name;
  int first = 0;
  int count = 0;
};
inline constexpr std::array<SurveyScale, 2> kSurveyScales = {{
    {"Instructional Dimensions Scale", 0, kInstructionalStatements},
    {"Student Engagement Scale", kInstructionalStatements, kStatements - kInstructionalStatements},
}};

/// The text for a statement that does not apply, or has not been rated.
inline constexpr std::string_view kNotApplicable = "N/A";

}  // namespace orvex
