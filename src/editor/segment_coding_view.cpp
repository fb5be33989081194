#include "editor/segment_coding_view.h"

namespace orvex {

SegmentCodingView CodingViewOf(const SegmentData& segment) {
  const int activity = segment.activityNum;
  SegmentCodingView view;
  if (IsActivity(activity)) view.activity = activity - 1;
  view.showsAbout = ActivityOf(activity).carriesAbout;
  view.showsSeatwork = Carries(activity, SubCode::seatworkSource);
  view.showsPresentation = Carries(activity, SubCode::groupSolo);
  view.subCategory = SubCategoryOf(activity);
  if (view.showsAbout) view.about = segment.aboutdata;
  for (const SubCodeScheme& code : kSubCodes) {
    const int stored = segment.*code.stored;
    const bool isInList = stored >= 0 && stored < static_cast<int>(code.values.size());
    if (isInList && Carries(activity, code.code)) {
      view.chosen[static_cast<std::size_t>(code.code)] = stored;
    }
  }
  return view;
}

}  // namespace orvex
