#pragma once

#include <span>
#include <string>
#include <string_view>

#include "model/activities.h"

namespace orvex {

/// What the code area of the episode editor shows for a segment. Positions in lists and pairs of
/// options count from 0; kNoChoice means that nothing is chosen.
struct SegmentCodingView {
  static constexpr int kNoChoice = -1;

  int activity = kNoChoice;

  bool showsAbout = false;
  bool showsSubCategory = false;
  bool showsSeatwork = false;      ///< source, cognitive level and organization
  bool showsPresentation = false;  ///< group, organization and preparation

  std::string about;
  std::span<const std::string_view> subCategories;
  int subCategory = kNoChoice;
  int source = kNoChoice;
  int cognitiveLevel = kNoChoice;
  int seatOrganization = kNoChoice;
  int group = kNoChoice;
  int organization = kNoChoice;
  int preparation = kNoChoice;
};

/// The layout for the segment's activity, filled with the segment's codes.
SegmentCodingView CodingViewOf(const SegmentData& segment);

}  // namespace orvex
