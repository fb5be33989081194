#include "model/activities.h"

#include <algorithm>

namespace orvex {
namespace {

constexpr bool AreInOrder() {
  for (std::size_t i = 0; i < kSubCodes.size(); ++i) {
    if (kSubCodes[i].code != static_cast<SubCode>(i)) return false;
  }
  for (std::size_t i = 0; i < kActivities.size(); ++i) {
    if (kActivities[i].number != static_cast<int>(i + 1)) return false;
  }
  return true;
}
static_assert(AreInOrder());

}  // namespace

const Activity& ActivityOf(int number) {
  static constexpr Activity kUnknown = {kNoActivity, "", "", ActivityGroup::management};
  return IsActivity(number) ? kActivities[static_cast<std::size_t>(number - 1)] : kUnknown;
}

bool Carries(int activity, SubCode code) {
  return std::ranges::find(ActivityOf(activity).subCodes, code) !=
         ActivityOf(activity).subCodes.end();
}

const SubCodeScheme* SubCategoryOf(int activity) {
  for (const SubCode code : ActivityOf(activity).subCodes) {
    if (SchemeOf(code).stored == &SegmentData::fSubCat) return &SchemeOf(code);
  }
  return nullptr;
}

std::optional<std::size_t> OfftaskPosition(int activity) {
  const auto found = std::ranges::find(kOfftaskCategories, ActivityOf(activity).estimateKind);
  if (found == kOfftaskCategories.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kOfftaskCategories.begin());
}

std::string ActivityDigits(int activity) {
  return activity == kNoActivity ? "" : std::to_string(activity);
}

std::string ActivityName(int activity) {
  return IsActivity(activity) ? std::string(ActivityOf(activity).name) : std::to_string(activity);
}

std::string ActivityCaption(int activity) {
  std::string caption = ActivityName(activity);
  for (auto at = caption.find('&'); at != std::string::npos; at = caption.find('&', at + 2)) {
    caption.insert(at, "&");
  }
  return caption;
}

void AddTimes(std::span<const SegmentData> segments, ActivityTimes& times) {
  for (const SegmentData& segment : segments) {
    if (!IsActivity(segment.activityNum)) continue;
    times[static_cast<std::size_t>(segment.activityNum - 1)] +=
        static_cast<double>(segment.duration);
  }
}

}  // namespace orvex
