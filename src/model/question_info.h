#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/dimensions.h"

namespace orvex {

/// A text for each dimension: the letter of its code, or the name for `respondName`.
using DimensionTexts = PerDimension<std::string_view>;

inline constexpr PerDimension<std::int16_t> kNoCodes = [] {
  PerDimension<std::int16_t> codes;
  codes.values.fill(kUncoded);
  return codes;
}();

/// One coded question: its text, its codes, who answered it, and where it was asked.
struct questionInfo {
  std::string question;
  /// The codes of the dimensions with letters; any other stays uncoded here.
  PerDimension<std::int16_t> codes = kNoCodes;
  std::string respondName;
  std::int16_t iEpQ = 0;  ///< number of the episode it was asked in
  std::int16_t iSgQ = 0;  ///< number of the segment, within its episode, it was asked in
  bool bSkip = false;     ///< kept with a running class; nothing else reads or sets it

  bool operator==(const questionInfo&) const = default;

  /// Takes over the codes and `respondName` of `other` and, with `withText`, its `question`.
  /// `iEpQ`, `iSgQ` and `bSkip` stay.
  void Copy(const questionInfo& other, bool withText = true);

  /// Sets the codes of a normal question. `tResponse` becomes uncoded; `question`, `respondName`,
  /// the numbers and `bSkip` stay.
  void SetNormal();

  /// True when the letters are those of a normal question; `tResponse` and `respondName` do not
  /// count.
  bool IsNormal() const;

  /// True when the Source and Response of the question ask for `dimension`.
  bool AsksFor(Dimension dimension) const { return IsAskedFor(dimension, strSrc(), strRspns()); }
  bool IsCoded(Dimension dimension) const;

  /// The letter of the dimension's code, "" if there is none; for `respondName`, the name.
  std::string_view Text(Dimension dimension) const;
  DimensionTexts Texts() const;

  std::string_view strSrc() const { return Text(Dimension::source); }
  std::string_view strRspns() const { return Text(Dimension::response); }
  std::string_view strAuth() const { return Text(Dimension::authenticity); }
  std::string_view strUptake() const { return Text(Dimension::uptake); }
  std::string_view strCogLev() const { return Text(Dimension::cognitive); }
  std::string_view strRspnName() const { return Text(Dimension::respondName); }
  std::string_view strPFMany() const { return Text(Dimension::onePartOfMulti); }
  std::string_view strTResp() const { return Text(Dimension::tResponse); }
  std::string_view strElab() const { return Text(Dimension::elaborated); }

  /// Sets every field but `bSkip`. Letters count in either case; any other text means uncoded.
  void SetValue(std::string_view text, const DimensionTexts& coded, std::int16_t episode,
                std::int16_t segment);
};

}  // namespace orvex
