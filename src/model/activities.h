#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/segment_data.h"

namespace orvex {

/// A sub-code: how it is named, stored and entered.
struct SubCodeScheme {
  SubCode code;
  std::string_view name;      ///< the name of its variable in the tables
  std::string_view label;     ///< the variable's label
  std::string_view expected;  ///< the words for it in an error about a file
  std::int16_t SegmentData::*stored;
  std::span<const std::string_view> values;  ///< what the codes from 0 on stand for
  bool typed = false;  ///< in class it is typed into a list, and only an exact value counts
};

/// The groups of activities in the summary of a class's time.
enum class ActivityGroup { management, directInstruction, seatwork, tests };
struct ActivityGroupScheme {
  std::string_view name;  ///< as a part of the names of variables
  std::string_view label;
};
/// The groups, in the order of `ActivityGroup`.
inline constexpr auto kActivityGroups = std::to_array<ActivityGroupScheme>({
    {"classroom_management", "Classroom management"},
    {"direct_instruction", "Direct instruction"},
    {"seatwork_and_pairwork", "Seatwork and pairwork"},
    {"tests_and_quizzes", "Tests and quizzes"},
});
inline constexpr std::size_t kActivityGroupCount = kActivityGroups.size();

/// The kinds of off-task estimates, in the order of their averages in an episode file.
inline constexpr std::array<int, 7> kOfftaskCategories = {1, 2, 3, 4, 5, 7, 8};
inline constexpr int kNoEstimates = 6;

/// The cadences: the minutes between two estimates while an activity goes on.
inline constexpr float kUsualCadence = 2;
inline constexpr float kQuestionAnswerCadence = 5;

/// All that is known of an activity.
struct Activity {
  int number;
  std::string_view name;
  std::string_view shortName;  ///< on the button that returns to it from question/answer
  ActivityGroup group;
  int estimateKind = kNoEstimates;         ///< the kind of its off-task estimates
  float cadence = 0;                       ///< in minutes; 0: estimates only at its end
  bool carriesAbout = false;               ///< its segments have a text on what they were about
  std::span<const SubCode> subCodes = {};  ///< in the order in which they are stored

  constexpr bool TakesEstimates() const { return estimateKind != kNoEstimates; }
};

namespace scheme {

inline constexpr std::array<std::string_view, 2> kWriting = {"Composing",
                                                             "Writing without composing"};
inline constexpr std::array<std::string_view, 5> kGroupWork = {
    "Teacher-structured group work", "Prescripted task with obligatory student interaction",
    "Limited student interaction",   "Significant student interaction",
    "Autonomous group work",
};
inline constexpr std::array<std::string_view, 2> kGroupSolo = {"G: group", "S: solo"};
inline constexpr std::array<std::string_view, 2> kPreparation = {"Q", "C"};
inline constexpr std::array<std::string_view, 2> kOrganization = {"T", "S"};
inline constexpr std::array<std::string_view, 4> kSources = {"Textbook", "worksheet", "homework",
                                                             "other"};
inline constexpr std::array<std::string_view, 2> kCognitiveLevels = {"report", "higher order"};

inline constexpr std::array kOfPresentation = {SubCode::groupSolo, SubCode::preparation,
                                               SubCode::organization};
inline constexpr std::array kOfSeatwork = {SubCode::writing, SubCode::seatworkSource,
                                           SubCode::seatworkLevel, SubCode::seatworkOrganization};
inline constexpr std::array kOfGroupWork = {SubCode::groupWork};

}  // namespace scheme

/// The sub-codes, in the order of `SubCode`.
inline constexpr std::array<SubCodeScheme, kSubCodeCount> kSubCodes = {{
    {SubCode::writing, "writing", "Seatwork: writing", "the sub-category code",
     &SegmentData::fSubCat, scheme::kWriting},
    {SubCode::groupWork, "group_work", "Group work: kind", "the sub-category code",
     &SegmentData::fSubCat, scheme::kGroupWork},
    {SubCode::groupSolo, "group_solo", "Student presentation: group or solo",
     "the group or solo code", &SegmentData::grpSolo, scheme::kGroupSolo},
    {SubCode::preparation, "preparation", "Student presentation: preparation",
     "the preparation code", &SegmentData::prep, scheme::kPreparation},
    {SubCode::organization, "organization", "Student presentation: organization",
     "the organization code", &SegmentData::org, scheme::kOrganization},
    {SubCode::seatworkSource, "seatwork_source", "Seatwork: source", "the source code",
     &SegmentData::src, scheme::kSources, true},
    {SubCode::seatworkLevel, "seatwork_level", "Seatwork: cognitive level",
     "the cognitive level code", &SegmentData::coglvl, scheme::kCognitiveLevels, true},
    {SubCode::seatworkOrganization, "seatwork_organization", "Seatwork: organization",
     "the organization code", &SegmentData::org, scheme::kOrganization, true},
}};
constexpr const SubCodeScheme& SchemeOf(SubCode code) {
  return kSubCodes[static_cast<std::size_t>(code)];
}

/// The number that stands for no activity.
inline constexpr int kNoActivity = 0;
inline constexpr int kQuestionAnswer = 5;

/// The activities, in the order of their numbers, which count from 1.
inline constexpr std::array kActivities = std::to_array<Activity>({
    {1, "Procedures & directions", "Procedure", ActivityGroup::management},
    {2, "Discipline", "Discipline", ActivityGroup::management},
    {3, "Class interruption", "Interrupt", ActivityGroup::management},
    {.number = 4,
     .name = "Lecture, film, video, music",
     .shortName = "Lecture...",
     .group = ActivityGroup::directInstruction,
     .estimateKind = 1,
     .cadence = kUsualCadence,
     .carriesAbout = true},
    {.number = kQuestionAnswer,
     .name = "Question/Answer",
     .shortName = "Q / A",
     .group = ActivityGroup::directInstruction,
     .estimateKind = 5,
     .cadence = kQuestionAnswerCadence},
    {.number = 6,
     .name = "Discussion",
     .shortName = "Discussion",
     .group = ActivityGroup::directInstruction,
     .carriesAbout = true},
    {.number = 7,
     .name = "Student presentation",
     .shortName = "S present",
     .group = ActivityGroup::directInstruction,
     .subCodes = scheme::kOfPresentation},
    {.number = 8,
     .name = "Reading aloud",
     .shortName = "Reading a",
     .group = ActivityGroup::directInstruction,
     .estimateKind = 7,
     .cadence = kUsualCadence},
    {9, "Silent reading", "Silent reading", ActivityGroup::directInstruction},
    {10, "Role-play or simulation", "Role-play or simulation", ActivityGroup::directInstruction},
    {11, "Game", "Game", ActivityGroup::directInstruction},
    {.number = 12,
     .name = "Other",
     .shortName = "Other",
     .group = ActivityGroup::directInstruction,
     .carriesAbout = true},
    {13, "Test or quiz", "Test or quiz", ActivityGroup::tests},
    {.number = 14,
     .name = "Supervised/Helping",
     .shortName = "S/Helping",
     .group = ActivityGroup::seatwork,
     .estimateKind = 2,
     .cadence = kUsualCadence,
     .subCodes = scheme::kOfSeatwork},
    {.number = 15,
     .name = "Supervised/Monitoring",
     .shortName = "S/Monitor",
     .group = ActivityGroup::seatwork,
     .estimateKind = 3,
     .cadence = kUsualCadence,
     .subCodes = scheme::kOfSeatwork},
    {.number = 16,
     .name = "Unsupervised",
     .shortName = "Unsupervis",
     .group = ActivityGroup::seatwork,
     .estimateKind = 4,
     .cadence = kUsualCadence,
     .subCodes = scheme::kOfSeatwork},
    {.number = 17,
     .name = "Small group and pairwork",
     .shortName = "S grp work",
     .group = ActivityGroup::seatwork,
     .estimateKind = 8,
     .subCodes = scheme::kOfGroupWork},
});
inline constexpr int kActivityCount = static_cast<int>(kActivities.size());

constexpr bool IsActivity(int number) {
  return number >= 1 && number <= kActivityCount;
}

/// The activity with this number. For any other number, one that has no name and carries nothing.
const Activity& ActivityOf(int number);

/// True when segments of the activity carry the code.
bool Carries(int activity, SubCode code);
/// The code that the activity stores as its sub-category; null when it has none.
const SubCodeScheme* SubCategoryOf(int activity);
/// The position of the activity's estimates in kOfftaskCategories; nothing when it takes none.
std::optional<std::size_t> OfftaskPosition(int activity);

/// The number as text; "" for kNoActivity.
std::string ActivityDigits(int activity);
/// The activity's name; the number itself when there is none.
std::string ActivityName(int activity);
/// The name as a button's caption and the session log have it: each ampersand is doubled.
std::string ActivityCaption(int activity);

/// The seconds spent in each activity; activity n is at position n - 1.
using ActivityTimes = std::array<double, kActivityCount>;
/// Adds the durations of the segments to `times`. Segments without a known activity do not count.
void AddTimes(std::span<const SegmentData> segments, ActivityTimes& times);

}  // namespace orvex
