#include "model/survey_scheme.h"

#include <algorithm>

namespace orvex {
namespace {

using Text = std::string_view;

constexpr auto kEvaluation = std::to_array<SurveyItem>({
    {"responses in discussion", "discussion"},
    {"responses in Q/A", "question_answer"},
    {"short term writing assignment (rubric given)", "writing_rubric"},
    {"short term writing assignment (no rubric given)", "writing_no_rubric"},
    {"short answer/multiple choice worksheet", "worksheet"},
    {"review homework assignment", "homework_review"},
    {"final presentation of project (ongoing)", "final_presentation"},
    {"progress on project (ongoing)", "project_progress"},
    {"collaboration", "collaboration"},
    {"other:", "other"},
});
static_assert(kEvaluation.size() == kOtherItem + 1);

constexpr auto kMaterials = std::to_array<SurveyItem>({
    {"nonfiction", "nonfiction"},
    {"contemporary fiction", "contemporary_fiction"},
    {"young adult fiction", "young_adult_fiction"},
    {"drama", "drama"},
    {"film", "film"},
    {"computers/word processing", "computers"},
    {"textbook, English", "textbook"},
    {"oral narrative", "oral_narrative"},
    {"other", "other"},
    {"canonical literature", "canonical_literature"},
    {"historical literature", "historical_literature"},
    {"poetry", "poetry"},
    {"music", "music"},
    {"art", "art"},
    {"multimedia", "multimedia"},
    {"newspaper", "newspaper"},
    {"reference materials", "reference"},
    {"magazines", "magazines"},
    {"Internet", "internet"},
});
static_assert(kMaterials.size() == kMostItems);

constexpr auto kWriting = std::to_array<SurveyItem>({
    {"multiple choice / fill in the blank", "multiple_choice"},
    {"notetaking / outlining", "notetaking"},
    {"copying, dictation, or translation", "copying"},
    {"short answer", "short_answer"},
    {"paragraph length writing", "paragraph"},
    {"activities pre-first draft", "pre_draft"},
    {"first draft", "first_draft"},
    {"revising / subsequent drafts", "revising"},
});

constexpr auto kInformational = std::to_array<SurveyItem>({
    {"Record", "record"},
    {"Report", "report"},
    {"Generalized narrative", "narrative"},
    {"Analysis 1", "analysis_1"},
    {"Analysis 2", "analysis_2"},
    {"Theory", "theory"},
    {"Persuasion", "persuasion"},
});

constexpr auto kImaginative = std::to_array<SurveyItem>({
    {"poems", "poems"},
    {"others:", "other"},
    {"stories", "stories"},
});

constexpr auto kPersonal = std::to_array<SurveyItem>({
    {"journal", "journal"},
    {"letters", "letters"},
    {"email", "email"},
    {"other:", "other"},
});

constexpr std::array<SurveyGroup, kCheckGroups> kGroups = {{
    {"evaluation", "In today's observation, evaluation for student success is based on:",
     "In today's observation, evaluation for student success is based on:", kEvaluation},
    {"materials",
     "Today 's materials used include:", "Today's materials used include:", kMaterials},
    {"writing",
     "Today 's writing activities include:", "Today's writing activities include:", kWriting},
    {"informational",
     "Today 's types of writing include:\nINFORMATIONAL:", "INFORMATIONAL:", kInformational},
    {"imaginative", "IMAGINATIVE :", "IMAGINATIVE:", kImaginative},
    {"personal", "PERSONAL :", "PERSONAL:", kPersonal},
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
    {"s01_understandings",
     "1. How much class time was used to focus and extend student understandings developed "
     "through writing and reading?",
     kHowMuchOfTheHour},
    {"s02_writing_time",
     "2. How much class time was allowed for writing activities such a prewriting, journal "
     "writing, evaluation drafts, peer discussions of drafts, note taking, etc.?",
     kHowMuchOfTheHour},
    {"s03_flexibility",
     "3. How much flexibility did the teacher grant students to develop their own "
     "understandings?",
     kHowMuchFlexibility, true, 2},
    {"s04_talk_time",
     "4. How much time was devoted to classroom talk in which students developed their own "
     "understandings and explored their own ideas with peers and teachers?",
     kHowMuchOfTheClass},
    {"s05_shift_discourse",
     "5. Students were allowed to shift classroom discourse in a new direction.", kHowOften},
    {"s06_within_lessons",
     "6.Connections within lessons: Activities, Q&A, lecture or conversations conducted in "
     "today's class seemed to be part of a continuing topic within lessons.",
     kHowMuch},
    {"s07_across_lessons",
     "7. Connections across lessons: Today's class activities included references connection "
     "back to previous themes and/or to upcoming topics (not tests or upcoming projects). ",
     kHowMuch},
    {"s08_attentive", "8. During this observation, students were attentive.", kHowManyStudents},
    {"s09_prepared",
     "9. How many students were prepared with materials and reading and writing assignments.",
     kHowManyStudents},
    {"s10_procedures",
     "10. Students\u2019 questions concerned procedures (assignment length, grade, form, etc.).",
     kHowManyOfTheQuestions},
    {"s11_comprehension",
     "11. Students asked questions and made comments that showed comprehension.",
     kHowManyQuestions},
    {"s12_analysis",
     "12. Students asked questions, made comments that showed analysis or evaluation. ",
     kHowManyAnalyses},
    {"s13_teacher_analysis",
     "13.Teachers asked questions that required students to analyze or evaluate.",
     kHowManyQuestions},
    {"s14_build_encouraged",
     "14. Teachers encouraged students to use others\u2019 questions and comments as a way to "
     "build discussion (verbally or nonverbally).",
     kHowOften},
    {"s15_build_discussion",
     "15. Students used others\u2019 questions and comments to build discussion.", kHowOften},
    {"s16_other_disciplines",
     "16. When students raised questions and comments (Q&C) reflecting other disciplines, they "
     "were incorporated into the discussion.",
     kHowManyIncorporated, true},
    {"s17_personal_experiences", "17. Students related class content to personal experiences.",
     kHowOften},
    {"s18_take_position",
     "18. Students were encouraged to take a position, express opinions or explore personal "
     "reactions (verbally or nonverbally).",
     kHowOften},
    {"s19_challenges",
     "19. Students responded to other students or the teachers with challenges, comments, "
     "opinions, etc.",
     kHowOften},
    {"s20_challenge_text",
     "20. Students challenged the text (e.g., bringing in alternative points of view).", kHowOften},
    {"s21_use_texts", "21. Students used \"texts\" to support or refute ideas.", kHowOften},
    {"s22_affirmation", "22. Teachers responded to students with positive affirmation.", kHowOften},
    {"s23_conventions",
     "23. Students showed an awareness of literary conventions (e.g., style, genre, voice).",
     kHowOftenLiterature, true},
    {"s24_choice_of_topics",
     "24. Students had a choice of topics for reading, writing, and other activities and "
     "assignments.",
     kHowMuchOpportunity},
    {"s25_choice_of_form", "25. Students had a choice of the form their work would take.",
     kHowMuchOpportunity},
}};

}  // namespace

const std::array<SurveyGroup, kCheckGroups>& SurveyGroups() {
  return kGroups;
}

const std::array<SurveyStatement, kStatements>& SurveyStatements() {
  return kAllStatements;
}

int SurveyStatement::Value(int button) const {
  if (!notApplicable) return button;
  return button == 0 ? kDoesNotApply : button - 1;
}

std::string SurveyStatement::Caption(int button) const {
  const int value = Value(button);
  return value == kDoesNotApply ? std::string(kNotApplicable) : std::to_string(value);
}

std::string_view SurveyStatement::Meaning(int button) const {
  // A meaning may hold a comma, too.
  const auto placeOf = [this](int which) {
    return legend.find((which == 0 ? "( " : ", ") + Caption(which));
  };
  const bool isLast = button + 1 == Buttons();
  const std::size_t first = legend.find_first_not_of("= ", legend.find('=', placeOf(button)));
  const std::size_t end = isLast ? legend.rfind(')') : placeOf(button + 1);
  return legend.substr(first, legend.find_last_not_of(' ', end - 1) + 1 - first);
}

}  // namespace orvex
