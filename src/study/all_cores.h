#pragma once

#include <algorithm>
#include <cstddef>
#include <thread>
#include <vector>

namespace orvex {

/// Divides the items 0 to `count` - 1 among all cores: calls `act(first, end)` for parts of them at
/// the same time, and returns when all are done. `act` must not throw.
template <typename Act>
void OnAllCores(std::size_t count, const Act& act) {
  const std::size_t parts = std::max(1U, std::thread::hardware_concurrency());
  std::vector<std::thread> threads;
  for (std::size_t part = 1; part < parts; ++part) {
    threads.emplace_back(
        [&act, count, part, parts] { act(count * part / parts, count * (part + 1) / parts); });
  }
  act(std::size_t{0}, count / parts);
  for (std::thread& thread : threads) thread.join();
}

}  // namespace orvex
