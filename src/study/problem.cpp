#include "study/problem.h"

#include "model/texts.h"
#include "store/printable_text.h"

namespace orvex {

std::string Problem::Text() const {
  std::string place = Printable(file.native()) + ":";
  if (line > 0) place += std::to_string(line) + ":";
  return place + " " + text;
}

std::string Problem::Sentence() const {
  const std::string name = Printable(file.filename().native());
  std::string sentence = line > 0 ? Say(orvex::Text::problemInLine, {name, line, text})
                                  : Say(orvex::Text::problemInFile, {name, text});
  if (!sentence.ends_with('.')) sentence += '.';
  return sentence;
}

}  // namespace orvex
