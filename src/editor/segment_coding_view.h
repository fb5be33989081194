#pragma once

#include <span>
#include <string>
#include <string_view>

#include "model/activities.h"

namespace orvex {

/// What the code area of the episode editor shows of a segment. Positions in lists and in pairs of
/// options count from 0; kNoChoice leaves a list empty and both options of a pair clear.
struct SegmentCodingView {
  static constexpr int kNoChoice = -1;

  int activity = kNoChoice;  ///< `cmbActivityCoding`, whose rows are kActivities

  bool showsAbout = false;         ///< `Label5`, `txtAboutData`
  bool showsSubCategory = false;   ///< `lblSubCats`, `cmboSubCat`
  bool showsSeatwork = false;      ///< `frSeat`
  bool showsPresentation = false;  ///< `frGrpSolo`, `frOrg`, `frPrep`

  std::string about;
  std::span<const std::string_view> subCategories;  ///< the rows of `cmboSubCat`
  int subCategory = kNoChoice;
  int source = kNoChoice;            ///< `cmbSrc`, whose rows are its values
  int cognitiveLevel = kNoChoice;    ///< `cmbCog`, whose rows are its values
  int seatOrganization = kNoChoice;  ///< `cmbSeatOrg`, whose rows are its values
  int group = kNoChoice;             ///< `optGrp`
  int organization = kNoChoice;      ///< `optOrg`
  int preparation = kNoChoice;       ///< `optPrep`
};

/// The layout of a segment's activity, loaded with the codes that it shows.
SegmentCodingView CodingViewOf(const SegmentData& segment);

}  // namespace orvex
