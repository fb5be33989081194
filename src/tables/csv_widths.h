#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

namespace orvex {

/// The length in bytes of the longest cell of each of the first `columns` columns of a
/// comma-separated table, without the quotes around a cell; the first line, which has the names,
/// does not count. Throws FileError.
std::vector<std::size_t> CsvWidths(const std::filesystem::path& file, std::size_t columns);

}  // namespace orvex
