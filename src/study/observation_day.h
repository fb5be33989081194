#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace orvex {

/// The day of a date as files have it: "mm-dd-yyyy", or without zeros before the numbers, or with
/// strokes between them. Nothing when there is no such day.
std::optional<std::chrono::sys_days> DayOf(std::string_view date);

}  // namespace orvex
