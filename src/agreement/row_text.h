#pragma once

#include <string>

namespace orvex {

class Comparison;
struct PairRow;

/// What the two do not agree on in a row, as a word or two: "only AB", "coded otherwise"; "missed"
/// and "added" where one of them is the master. "" where they agree.
std::string MarkOf(const Comparison& comparison, const PairRow& row);
/// The dimensions in which the two differ, with both letters: "Uptake N / T, Source T / -".
std::string DifferenceText(const PairRow& row);
/// A row in full, in several lines: where each observer has the question, its text, and what the
/// letters that differ stand for.
std::string DetailsOf(const Comparison& comparison, const PairRow& row);

}  // namespace orvex
