#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace orvex {

/// The reports on the episodes of a class, of which a form shows one. Each `Page` has the number of
/// its `episode`.
template <typename Page>
class TurnedPages {
 public:
  /// Begins with `episode`, or the first one where that has no page. There may be none at all.
  TurnedPages(std::vector<Page> pages, int episode) : pages_(std::move(pages)) {
    const auto found = std::ranges::find(pages_, episode, &Page::episode);
    if (found != pages_.end()) current_ = static_cast<std::size_t>(found - pages_.begin());
  }

  bool IsEmpty() const { return pages_.empty(); }
  bool Several() const { return pages_.size() > 1; }
  const Page& Current() const { return pages_[current_]; }
  /// Goes `step` pages on. False where there is no such page.
  bool Turn(int step) {
    const auto next = static_cast<std::ptrdiff_t>(current_) + step;
    if (next < 0 || next >= std::ssize(pages_)) return false;
    current_ = static_cast<std::size_t>(next);
    return true;
  }

 private:
  std::vector<Page> pages_;
  std::size_t current_ = 0;
};

}  // namespace orvex
