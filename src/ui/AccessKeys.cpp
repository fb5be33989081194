#include "ui/AccessKeys.h"

#include <array>
#include <utility>

#include "model/texts.h"
#include "ui/text.h"

namespace orvex {
namespace {

/// The access keys of captions whose first letter belongs to another button of the same box.
constexpr std::array<std::pair<Text, QChar>, 3> kLetters = {
    {{Text::chooseFolder, u'h'}, {Text::useProgramFolder, u'p'}, {Text::saveElsewhere, u'e'}}};

}  // namespace

QString WithAccessKey(const std::string& caption) {
  QString shown = ToQt(caption);
  qsizetype at = 0;
  for (const auto& [text, letter] : kLetters) {
    if (caption == Say(text)) at = shown.indexOf(letter);
  }
  return shown.insert(at, u'&');
}

}  // namespace orvex
