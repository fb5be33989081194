#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/dimensions.h"

namespace orvex {

/// What is said of each dimension: a letter, and the name for `respondName`.
using DimensionTexts = PerDimension<std::string_view>;

inline constexpr PerDimension<std::int16_t> kNoCodes = [] {
  PerDimension<std::int16_t> codes;
  codes.values.fill(kUncoded);
  return codes;
}();

/// One coded question: its text, its codes, who answered it, and where it was asked.
struct questionInfo {
  std::string question;
  /// Those of the dimensions with letters; the others stay uncoded here.
  PerDimension<std::int16_t> codes = kNoCodes;
  std::string respondName;
  std::int16_t iEpQ = 0;  ///< number of the episode it was asked in
  std::int16_t iSgQ = 0;  ///< number of the segment, within its episode, it was asked in
  bool bSkip = false;     ///< left out by the question editor and the question chooser

  bool operator==(const questionInfo&) const = default;

  /// Takes the codes and `respondName` of `other`; its `question` too with `withText`.
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

  /// The letter of the code, "" where it has none; the name for `respondName`.
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

  /// Sets every field but `bSkip`; letters count in either case, any other text is uncoded.
  void SetValue(std::string_view text, const DimensionTexts& coded, std::int16_t episode,
                std::int16_t segment);
};

}  // namespace orvex
