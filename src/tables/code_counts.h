#pragma once

#include <array>
#include <string_view>

#include "reports/question_statistics.h"

namespace orvex {

/// How a count of questions is called.
struct CodeCountScheme {
  std::string_view key;       ///< in the JSON of an episode's statistics
  std::string_view variable;  ///< in the tables
  std::string_view label;
  int CodeCounts::*count;
};
inline constexpr auto kCodeCounts = std::to_array<CodeCountScheme>({
    {"total", "questions", "Number of questions", &CodeCounts::Total},
    {"normal", "normal_count", "Normal questions", &CodeCounts::Normal},
    {"teacher", "teacher_questions", "Teacher questions", &CodeCounts::TeacherQ},
    {"student", "student_questions", "Student questions", &CodeCounts::StudentQ},
    {"authentic_teacher", "authentic_teacher", "Authentic teacher questions",
     &CodeCounts::AuthTeacher},
    {"authentic_student", "authentic_student", "Authentic student questions",
     &CodeCounts::AuthStudent},
    {"no_response", "teacher_unanswered", "Teacher questions without a response",
     &CodeCounts::NoResponse},
    {"higher_level", "teacher_higher_order", "Higher-order teacher questions",
     &CodeCounts::HigherLevel},
    {"related_to_previous", "teacher_related_to_previous",
     "Teacher questions with a response that is related to previous responses",
     &CodeCounts::RelatedToPrevious},
    {"answering", "student_answering", "Student questions with a response: teacher answering",
     &CodeCounts::Answering},
    {"closing_down", "student_closing_down",
     "Student questions with a response: teacher closing down", &CodeCounts::ClosingDown},
    {"opening_up", "student_opening_up", "Student questions with a response: teacher opening up",
     &CodeCounts::OpeningUp},
    {"responded", "answered", "Questions with a response", &CodeCounts::Responded},
    {"uptake_none", "answered_no_uptake", "Questions with a response and no uptake",
     &CodeCounts::UptakeNone},
    {"uptake_test", "answered_test_uptake", "Questions with a response and test uptake",
     &CodeCounts::UptakeTest},
    {"uptake_authentic", "answered_authentic_uptake",
     "Questions with a response and authentic uptake", &CodeCounts::UptakeAuthentic},
    {"elaborated", "answered_elaborated", "Questions with a response that is elaborated",
     &CodeCounts::Elaborated},
    {"unelaborated", "answered_unelaborated", "Questions with a response that is unelaborated",
     &CodeCounts::Unelaborated},
});

}  // namespace orvex
