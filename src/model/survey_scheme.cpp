#include "model/survey_scheme.h"

#include <algorithm>

namespace orvex {
namespace {

using Text = std::string_view;

constexpr auto kEvaluation = std::to_array<Text>({
    "responses in discussion",
    "responses in Q/A",
    "short term writing assignment (rubric given)",
    "short term writing assignment (no rubric given)",
    "short answer/multiple choice worksheet",
    "review homework assignment",
    "final presentation of project (ongoing)",
    "progress on project (ongoing)",
    "collaboration",
    "other:",
});
static_assert(kEvaluation.size() == kOtherItem + 1);

constexpr auto kMaterials = std::to_array<Text>({
    "nonfiction",
    "contemporary fiction",
    "young adult fiction",
    "drama",
    "film",
    "computers/word processing",
    "textbook, English",
    "oral narrative",
    "other",
    "canonical literature",
    "historical literature",
    "poetry",
    "music",
    "art",
    "multimedia",
    "newspaper",
    "reference materials",
    "magazines",
    "Internet",
});
static_assert(kMaterials.size() == kMostItems);

constexpr auto kWriting = std::to_array<Text>({
    "multiple choice / fill in the blank",
    "notetaking / outlining",
    "copying, dictation, or translation",
    "short answer",
    "paragraph length writing",
    "activities pre-first draft",
    "first draft",
    "revising / subsequent drafts",
});

constexpr auto kInformational = std::to_array<Text>({
    "Record",
    "Report",
    "Generalized narrative",
    "Analysis 1",
    "Analysis 2",
    "Theory",
    "Persuasion",
});

constexpr auto kImaginative = std::to_array<Text>({"poems", "others:", "stories"});

constexpr auto kPersonal = std::to_array<Text>({"journal", "letters", "email", "other:"});

constexpr std::array<SurveyGroup, kCheckGroups> kGroups = {{
    {"In today's observation, evaluation for student success is based on:",
     "In today's observation, evaluation for student success is based on:", kEvaluation},
    {"Today 's materials used include:", "Today's materials used include:", kMaterials},
    {"Today 's writing activities include:", "Today's writing activities include:", kWriting},
    {"Today 's types of writing include:\nINFORMATIONAL:", "INFORMATIONAL:", kInformational},
    {"IMAGINATIVE :", "IMAGINATIVE:", kImaginative},
    {"PERSONAL :", "PERSONAL:", kPersonal},
}};
static_assert(std::ranges::all_of(kGroups, [](const SurveyGroup& group) {
  return group.items.size() <= kMostItems;
}));

constexpr Text kHowOften = "( 0 = Never, 1 = Rarely, 2 = Frequently, 3 = Always or almost always)";
constexpr Text kHowOftenLiterature =
    "( N/A=Class not about literature, 0=Never, 1=Rarely, 2=Frequently, 3=Always or almost "
    "always )";
constexpr Text kHowMuchOfTheHour =
    "( 0 = Never, 1 = Less than half the class period , 2 = More than half, 3 = The whole class "
    "hour )";
constexpr Text kHowMuchOfTheClass =
    "( 0 = Never, 1 = Less than half the class period , 2 = More than half, 3 = Nearly the whole "
    "class )";
constexpr Text kHowManyIncorporated =
    "( N/A = No such questions or comments, 0 = Never or almost never, 1 = Less than half the "
    "time, 2 = More than half, 3 = Always or almost always )";
constexpr Text kHowManyOfTheQuestions =
    "( 0 =None or almost none of the questions, 1 = Less than half the class, 2 = More than half, "
    "3 = Almost all )";
constexpr Text kHowManyAnalyses =
    "( 0 = No questions or comments, or almost none, showed analysis or evaluation, 1 = Less than "
    "half, 2 = More than half, 3 = Almost all )";
constexpr Text kHowManyStudents =
    "( 0 = No one or almost no one, 1 = Less than half the class, 2 = More than half, 3 = Almost "
    "all )";
constexpr Text kHowManyQuestions =
    "( 0 = No one or almost none, 1 = Less than half the questions, 2 = More than half, 3 = Almost "
    "all )";
constexpr Text kHowMuch = "( 0 = Not at all, 1 = Little, 2 = Some, 3 = A lot )";
constexpr Text kHowMuchOpportunity =
    "( 0 = Never/Can't tell, 1 = Little opportunity, 2 = Some opportunity, 3 = Much opportunity )";
constexpr Text kHowMuchFlexibility =
    "( N/A = Can't tell, 0 = Never, 1 = Some flexibility, 2 = A lot of flexibility )";

constexpr std::array<SurveyStatement, kStatements> kAllStatements = {{
    {"1. How much class time was used to focus and extend student understandings developed "
     "through writing and reading?",
     kHowMuchOfTheHour},
    {"2. How much class time was allowed for writing activities such a prewriting, journal "
     "writing, evaluation drafts, peer discussions of drafts, note taking, etc.?",
     kHowMuchOfTheHour},
    {"3. How much flexibility did the teacher grant students to develop their own "
     "understandings?",
     kHowMuchFlexibility, true, 2},
    {"4. How much time was devoted to classroom talk in which students developed their own "
     "understandings and explored their own ideas with peers and teachers?",
     kHowMuchOfTheClass},
    {"5. Students were allowed to shift classroom discourse in a new direction.", kHowOften},
    {"6.Connections within lessons: Activities, Q&A, lecture or conversations conducted in "
     "today's class seemed to be part of a continuing topic within lessons.",
     kHowMuch},
    {"7. Connections across lessons: Today's class activities included references connection "
     "back to previous themes and/or to upcoming topics (not tests or upcoming projects). ",
     kHowMuch},
    {"8. During this observation, students were attentive.", kHowManyStudents},
    {"9. How many students were prepared with materials and reading and writing assignments.",
     kHowManyStudents},
    {"10. Students\u2019 questions concerned procedures (assignment length, grade, form, etc.).",
     kHowManyOfTheQuestions},
    {"11. Students asked questions and made comments that showed comprehension.",
     kHowManyQuestions},
    {"12. Students asked questions, made comments that showed analysis or evaluation. ",
     kHowManyAnalyses},
    {"13.Teachers asked questions that required students to analyze or evaluate.",
     kHowManyQuestions},
    {"14. Teachers encouraged students to use others\u2019 questions and comments as a way to "
     "build discussion (verbally or nonverbally).",
     kHowOften},
    {"15. Students used others\u2019 questions and comments to build discussion.", kHowOften},
    {"16. When students raised questions and comments (Q&C) reflecting other disciplines, they "
     "were incorporated into the discussion.",
     kHowManyIncorporated, true},
    {"17. Students related class content to personal experiences.", kHowOften},
    {"18. Students were encouraged to take a position, express opinions or explore personal "
     "reactions (verbally or nonverbally).",
     kHowOften},
    {"19. Students responded to other students or the teachers with challenges, comments, "
     "opinions, etc.",
     kHowOften},
    {"20. Students challenged the text (e.g., bringing in alternative points of view).", kHowOften},
    {"21. Students used \"texts\" to support or refute ideas.", kHowOften},
    {"22. Teachers responded to students with positive affirmation.", kHowOften},
    {"23. Students showed an awareness of literary conventions (e.g., style, genre, voice).",
     kHowOftenLiterature, true},
    {"24. Students had a choice of topics for reading, writing, and other activities and "
     "assignments.",
     kHowMuchOpportunity},
    {"25. Students had a choice of the form their work would take.", kHowMuchOpportunity},
}};

}  // namespace

const std::array<SurveyGroup, kCheckGroups>& SurveyGroups() {
  return kGroups;
}

const std::array<SurveyStatement, kStatements>& SurveyStatements() {
  return kAllStatements;
}

std::string SurveyStatement::Caption(int button) const {
  if (!notApplicable) return std::to_string(button);
  return button == 0 ? std::string(kNotApplicable) : std::to_string(button - 1);
}

}  // namespace orvex
