#pragma once

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <thread>
#include <vector>

namespace orvex {

/// Divides the items 0 to `count` - 1 among all cores: calls `act(first, end)` for parts of them at
/// the same time, and returns when all are done. `act` must not throw.
template <typename Act>
void OnAllCores(std::size_t count, const Act& act) {
  const std::size_t parts = std::max(1U, std::thread::hardware_concurrency());
  const auto actOn = [&act, count, parts](std::size_t part) {
    act(count * part / parts, count * (part + 1) / parts);
  };
  std::vector<std::thread> threads;
  threads.reserve(parts);
  for (std::size_t part = 1; part < parts; ++part) {
    try {
      threads.emplace_back(actOn, part);
    } catch (const std::system_error&) {
      actOn(part);  // there is no thread for it
    }
  }
  actOn(0);
  for (std::thread& thread : threads) thread.join();
}

}  // namespace orvex
