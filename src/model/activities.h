#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/segment_data.h"

namespace orvex {

/// A sub-code as it is stored and named.
struct SubCodeScheme {
  SubCode code;
  std::string_view name;      ///< of its variable
  std::string_view label;     ///< of its variable, in words
  std::string_view expected;  ///< what a file that breaks off there lacks
  std::int16_t SegmentData::*stored;
  std::span<const std::string_view> values;  ///< what the codes from 0 on stand for
  bool typed = false;  ///< during the class it is typed in a list, and counts to the letter
};

/// The blocks that the activities stand in when the time of a class is summed up.
enum class ActivityGroup { management, directInstruction, seatwork, tests };
inline constexpr std::size_t kActivityGroupCount = 4;

/// What off-task estimates are filed under, in the order of the averages in an episode file.
inline constexpr std::array<int, 7> kOfftaskCategories = {1, 2, 3, 4, 5, 7, 8};
inline constexpr int kNoEstimates = 6;

/// The cadences: how many minutes lie between two estimates while an activity goes on.
inline constexpr float kUsualCadence = 2;
inline constexpr float kQuestionAnswerCadence = 5;

/// What is known of an activity.
struct Activity {
  int number;
  std::string_view name;
  std::string_view shortName;  ///< on the button that returns to it from question/answer
  ActivityGroup group;
  int estimateKind = kNoEstimates;         ///< what its off-task estimates are filed under
  float cadence = 0;                       ///< 0: they are asked for at its end only
  bool carriesAbout = false;               ///< a text says what it was about
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

/// The number of an activity where there is none.
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

/// The activity of a number; one of no name that carries nothing for any other number.
const Activity& ActivityOf(int number);

/// True when segments of the activity carry the code.
bool Carries(int activity, SubCode code);
/// The code of the activity that is stored as its sub-category; null where it has none.
const SubCodeScheme* SubCategoryOf(int activity);
/// The place of the averages of the activity's estimates in an episode file.
std::optional<std::size_t> OfftaskPosition(int activity);

/// The number as text; "" for none.
std::string ActivityDigits(int activity);
/// The activity's name; a number that has none stands for itself.
std::string ActivityName(int activity);
/// The name as the caption of a button, as the session log has it: an ampersand is doubled.
std::string ActivityCaption(int activity);

/// The seconds spent in each activity; activity n stands at position n - 1.
using ActivityTimes = std::array<double, kActivityCount>;
/// Adds up the segments. Those of no activity count nowhere.
void AddTimes(std::span<const SegmentData> segments, ActivityTimes& times);

}  // namespace orvex
