#include "model/question_info.h"

namespace orvex {

void questionInfo::Copy(const questionInfo& other, bool withText) {
  Source = other.Source;
  Response = other.Response;
  authenticity = other.authenticity;
  uptake = other.uptake;
  cognitive = other.cognitive;
  respondName = other.respondName;
  onePartOfMulti = other.onePartOfMulti;
  tResponse = other.tResponse;
  elaborated = other.elaborated;
  if (withText) question = other.question;
}

void questionInfo::SetNormal() {
  const auto normal = [](Dimension dimension) {
    return CodeOf(dimension, SchemeOf(dimension).normalLetter);
  };
  Source = normal(Dimension::source);
  Response = normal(Dimension::response);
  authenticity = normal(Dimension::authenticity);
  uptake = normal(Dimension::uptake);
  cognitive = normal(Dimension::cognitive);
  onePartOfMulti = normal(Dimension::onePartOfMulti);
  tResponse = normal(Dimension::tResponse);
  elaborated = normal(Dimension::elaborated);
}

bool questionInfo::IsNormal() const {
  const auto normal = [](Dimension dimension) { return SchemeOf(dimension).normalLetter; };
  return strSrc() == normal(Dimension::source) && strRspns() == normal(Dimension::response) &&
         strAuth() == normal(Dimension::authenticity) && strUptake() == normal(Dimension::uptake) &&
         strCogLev() == normal(Dimension::cognitive) &&
         strPFMany() == normal(Dimension::onePartOfMulti) &&
         strElab() == normal(Dimension::elaborated);
}

void questionInfo::SetValue(std::string_view text, std::string_view src, std::string_view rspns,
                            std::string_view auth, std::string_view uptakeLetter,
                            std::string_view coglev, std::string_view name, std::string_view pfMany,
                            std::string_view tResp, std::string_view elab, std::int16_t episode,
                            std::int16_t segment) {
  question = text;
  Source = CodeOf(Dimension::source, src);
  Response = CodeOf(Dimension::response, rspns);
  authenticity = CodeOf(Dimension::authenticity, auth);
  uptake = CodeOf(Dimension::uptake, uptakeLetter);
  cognitive = CodeOf(Dimension::cognitive, coglev);
  respondName = name;
  onePartOfMulti = CodeOf(Dimension::onePartOfMulti, pfMany);
  tResponse = CodeOf(Dimension::tResponse, tResp);
  elaborated = CodeOf(Dimension::elaborated, elab);
  iEpQ = episode;
  iSgQ = segment;
}

}  // namespace orvex
