#include "agreement/figure_text.h"

#include "store/numbers.h"

namespace orvex {

std::string FigureText(double figure) {
  const std::string text = FormatPattern(figure, "0.00");
  return text == "-0.00" ? "0.00" : text;
}

std::string FigureText(std::optional<double> figure, std::optional<Undefined> reason) {
  return FigureText(figure, NameOf(reason.value_or(Undefined::noPairs)));
}

std::string FigureText(std::optional<double> figure, std::string_view reason) {
  return figure ? FigureText(*figure) : "n/a (" + std::string(reason) + ")";
}

std::string PercentText(const CodeTable& table) {
  return FigureText(PercentAgreed(table));
}

std::string KappaText(const CodeTable& table) {
  return FigureText(Kappa(table), KappaUndefined(table));
}

std::string IntervalText(const CodeTable& table) {
  const auto interval = KappaInterval(table);
  if (!interval) return KappaText(table);
  return FigureText(interval->low) + " to " + FigureText(interval->high);
}

std::string Ac1Text(const CodeTable& table) {
  return FigureText(Ac1(table));
}

}  // namespace orvex
