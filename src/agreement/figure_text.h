#pragma once

#include <optional>
#include <string>

#include "agreement/code_table.h"

namespace orvex {

/// A figure as it is shown, with two decimals: "0.72", never "-0.00".
std::string FigureText(double figure);
/// The figure, or why it is not defined; without a reason, because there are no pairs.
std::string FigureText(std::optional<double> figure, std::optional<Undefined> reason = {});

/// Figures of a table, or why they are not defined: "0.72", "0.64 to 0.79".
std::string PercentText(const CodeTable& table);
std::string KappaText(const CodeTable& table);
std::string IntervalText(const CodeTable& table);
std::string Ac1Text(const CodeTable& table);

}  // namespace orvex
