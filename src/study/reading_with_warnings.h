#pragma once

#include <string_view>
#include <utility>

#include "store/eps_reader.h"
#include "study/file_numbers.h"

namespace orvex {

/// Reads on where a form would ask the user, and passes the warnings on.
class ReadingWithWarnings : public EpsReadEvents {
 public:
  explicit ReadingWithWarnings(Warn warn) : warn_(std::move(warn)) {}

  bool ContinueWithEarlierVersion() override;
  void FirstSegmentRepaired(int ep) override;
  void TextAfterLastQuestion(int line, std::string_view text) override;

 private:
  Warn warn_;
};

}  // namespace orvex
