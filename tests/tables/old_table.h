#pragma once

namespace orvex::test {

/// What a table of an earlier export holds.
inline constexpr const char* kOldTable = "the old table\r\n";

}  // namespace orvex::test
