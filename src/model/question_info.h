#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/coding_scheme.h"

namespace orvex {

/// One coded question: its text, its nine codes, who answered it, and where it was asked.
struct questionInfo {
  std::string question;
  std::int16_t Source = kUncoded;
  std::int16_t Response = kUncoded;
  std::int16_t authenticity = kUncoded;
  std::int16_t uptake = kUncoded;
  std::int16_t cognitive = kUncoded;
  std::string respondName;
  std::int16_t onePartOfMulti = kUncoded;
  std::int16_t tResponse = kUncoded;
  std::int16_t elaborated = kUncoded;
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

  /// Each code's letter, "" where it has none.
  std::string_view strSrc() const { return LetterOf(Dimension::source, Source); }
  std::string_view strRspns() const { return LetterOf(Dimension::response, Response); }
  std::string_view strAuth() const { return LetterOf(Dimension::authenticity, authenticity); }
  std::string_view strUptake() const { return LetterOf(Dimension::uptake, uptake); }
  std::string_view strCogLev() const { return LetterOf(Dimension::cognitive, cognitive); }
  std::string_view strRspnName() const { return respondName; }
  std::string_view strPFMany() const { return LetterOf(Dimension::onePartOfMulti, onePartOfMulti); }
  std::string_view strTResp() const { return LetterOf(Dimension::tResponse, tResponse); }
  std::string_view strElab() const { return LetterOf(Dimension::elaborated, elaborated); }

  /// Sets every field but `bSkip`; letters count in either case, any other text is uncoded.
  void SetValue(std::string_view text, std::string_view src, std::string_view rspns,
                std::string_view auth, std::string_view uptakeLetter, std::string_view coglev,
                std::string_view name, std::string_view pfMany, std::string_view tResp,
                std::string_view elab, std::int16_t episode, std::int16_t segment);
};

}  // namespace orvex
