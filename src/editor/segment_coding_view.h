#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "model/activities.h"

namespace orvex {

/// What the code area of the episode editor shows for a segment. Positions in lists and pairs of
/// options count from 0; kNoChoice means that nothing is chosen.
struct SegmentCodingView {
  static constexpr int kNoChoice = -1;

  SegmentCodingView() { chosen.fill(kNoChoice); }
  /// The position chosen of `code`; kNoChoice, too, where the activity does not carry it.
  int Chosen(SubCode code) const { return chosen[static_cast<std::size_t>(code)]; }

  int activity = kNoChoice;

  bool showsAbout = false;
  bool showsSeatwork = false;                  ///< source, cognitive level and organization
  bool showsPresentation = false;              ///< group, organization and preparation
  const SubCodeScheme* subCategory = nullptr;  ///< the sub-category shown, if one is

  std::string about;
  std::array<int, kSubCodeCount> chosen{};  ///< by SubCode
};

/// The layout for the segment's activity, filled with the segment's codes.
SegmentCodingView CodingViewOf(const SegmentData& segment);

}  // namespace orvex
