#include "ui/widgets/CodesText.h"

#include <QStringList>
#include <string>

#include "model/dimensions.h"
#include "ui/text.h"

namespace orvex {

QString CodesText(const DimensionTexts& codes) {
  QStringList texts;
  for (const Dimension dimension : kDimensions) {
    const DimensionScheme& scheme = SchemeOf(dimension);
    const std::string letter(codes[dimension]);
    const std::size_t code = letter.size() == 1 ? scheme.letters.find(letter) : std::string::npos;
    if (letter.empty()) continue;
    texts << QStringLiteral("%1: %2").arg(
        ToQt(scheme.label), code == std::string::npos ? ToQt(letter) : ToQt(scheme.meanings[code]));
  }
  return texts.join(QLatin1String("   "));
}

}  // namespace orvex
