#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "agreement/code_table.h"

namespace orvex {

/// A figure as it is shown, with two decimals: "0.72", never "-0.00".
std::string FigureText(double figure);
/// The figure, or why it is not defined; without a reason, because there are no pairs.
std::string FigureText(std::optional<double> figure, std::optional<Undefined> reason = {});
/// The same with a reason in words: "n/a (no variance)".
std::string FigureText(std::optional<double> figure, std::string_view reason);

/// Figures of a table, or why they are not defined: "91.67" of 100, a kappa or AC1 of at most 1,
/// "0.72", and the bounds of kappa's interval, "0.64 to 0.79".
std::string PercentText(const CodeTable& table);
std::string KappaText(const CodeTable& table);
std::string IntervalText(const CodeTable& table);
std::string Ac1Text(const CodeTable& table);

}  // namespace orvex
