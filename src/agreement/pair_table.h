#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "agreement/question_pairs.h"

namespace orvex {

class Storage;

/// The pairs as a table: the line "first,second", then a line for each pair in the order of the
/// class. Questions count through the class from 1; an empty cell means no partner. UTF-8, CR LF.
std::string PairTableText(const QuestionPairs& pairs);
/// Reads such a table of two lists with so many questions. Questions that it leaves out have no
/// partner. Throws FormatError, for pairs that cross, too.
QuestionPairs ParsePairTable(const std::string& bytes, std::size_t firstCount,
                             std::size_t secondCount);

/// Writes the pairs as a table. Throws FileError.
void WritePairTable(const std::filesystem::path& file, const QuestionPairs& pairs,
                    Storage& storage);
/// Reads a table of pairs from a file. Throws FileError and FormatError.
QuestionPairs ReadPairTable(const std::filesystem::path& file, std::size_t firstCount,
                            std::size_t secondCount);

}  // namespace orvex
