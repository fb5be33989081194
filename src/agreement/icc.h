#pragma once

#include <optional>
#include <vector>

namespace orvex {

/// The intraclass correlation ICC(A,1) of a table with a row for each thing and as many ratings in
/// each: two-way, absolute agreement, single measurement (McGraw and Wong, 1996). Nothing for fewer
/// than two things or ratings, and where all ratings are the same.
std::optional<double> IccA1(const std::vector<std::vector<double>>& ratings);

}  // namespace orvex
