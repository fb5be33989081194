#include "editor/segment_coding_view.h"

#include <cstddef>

namespace orvex {
namespace {

constexpr std::size_t kPair = 2;

/// A code as a position in a list of `count`; kNoChoice if it lies outside the list.
int PositionOf(int code, std::size_t count) {
  return code >= 0 && code < static_cast<int>(count) ? code : SegmentCodingView::kNoChoice;
}

}  // namespace

SegmentCodingView CodingViewOf(const SegmentData& segment) {
  const int activity = segment.activityNum;
  SegmentCodingView view;
  if (IsActivity(activity)) view.activity = activity - 1;
  view.showsAbout = ActivityOf(activity).carriesAbout;
  view.showsSeatwork = Carries(activity, SubCode::seatworkSource);
  view.showsPresentation = Carries(activity, SubCode::groupSolo);
  if (const SubCodeScheme* subCategory = SubCategoryOf(activity)) {
    view.subCategories = subCategory->values;
  }
  view.showsSubCategory = !view.subCategories.empty();

  if (view.showsAbout) view.about = segment.aboutdata;
  view.subCategory = PositionOf(segment.fSubCat, view.subCategories.size());
  if (view.showsSeatwork) {
    view.source = PositionOf(segment.src, SchemeOf(SubCode::seatworkSource).values.size());
    view.cognitiveLevel =
        PositionOf(segment.coglvl, SchemeOf(SubCode::seatworkLevel).values.size());
    view.seatOrganization =
        PositionOf(segment.org, SchemeOf(SubCode::seatworkOrganization).values.size());
  }
  if (view.showsPresentation) {
    view.group = PositionOf(segment.grpSolo, kPair);
    view.organization = PositionOf(segment.org, kPair);
    view.preparation = PositionOf(segment.prep, kPair);
  }
  return view;
}

}  // namespace orvex
