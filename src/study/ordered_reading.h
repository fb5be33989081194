#pragma once

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace orvex {

/// Works on the items 0 to `count` - 1 on all cores, and hands the results over in the order of the
/// items. The threads run ahead of the taker by a bounded number of items only, so that the memory
/// they need does not grow with `count`.
template <typename Result>
class OrderedReading {
 public:
  /// `read` makes the result of an item. It is called from several threads at once and must not
  /// throw.
  OrderedReading(std::size_t count, std::function<Result(std::size_t item)> read)
      : read_(std::move(read)), count_(count) {
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t threads = std::min<std::size_t>(cores, count);
    for (std::size_t i = 0; i < threads; ++i) threads_.emplace_back([this] { Work(); });
  }
  /// Does not begin with further items.
  ~OrderedReading() {
    {
      const std::lock_guard lock(mutex_);
      begun_ = count_;
      ends_ = true;
    }
    room_.notify_all();
    for (std::thread& thread : threads_) thread.join();
  }
  OrderedReading(const OrderedReading&) = delete;
  OrderedReading& operator=(const OrderedReading&) = delete;

  /// The number of results that have been taken.
  std::size_t Taken() const { return taken_; }

  /// Waits for the next result; nothing when all have been taken.
  std::optional<Result> Take() { return Taking(true); }
  /// The next result if it is there already.
  std::optional<Result> TakeIfReady() { return Taking(false); }

 private:
  /// How many items the threads may be ahead of the taker.
  static constexpr std::size_t kMostAhead = 256;
  /// How many items a thread begins with at once, so that threads seldom wait for each other.
  static constexpr std::size_t kPortion = 16;

  std::optional<Result> Taking(bool waits) {
    if (taken_ == count_) return std::nullopt;
    std::unique_lock lock(mutex_);
    const auto ready = [this] { return !results_.empty() && results_.front(); };
    if (waits) ready_.wait(lock, ready);
    if (!ready()) return std::nullopt;
    std::optional<Result> result = std::move(results_.front());
    results_.pop_front();
    ++taken_;
    const bool roomAgain = begun_ < count_ && taken_ % kPortion == 0;
    lock.unlock();
    if (roomAgain) room_.notify_all();
    return result;
  }

  void Work() {
    std::vector<Result> portion;
    std::unique_lock lock(mutex_);
    for (;;) {
      room_.wait(lock, [this] { return begun_ == count_ || begun_ < taken_ + kMostAhead; });
      if (begun_ == count_) return;
      const std::size_t first = begun_;
      begun_ = std::min(begun_ + kPortion, count_);
      const std::size_t end = begun_;
      results_.resize(begun_ - taken_);
      lock.unlock();
      portion.clear();
      for (std::size_t item = first; item < end && !ends_; ++item) portion.push_back(read_(item));
      lock.lock();
      if (ends_) return;
      for (std::size_t i = 0; i < portion.size(); ++i) {
        results_[first + i - taken_] = std::move(portion[i]);
      }
      if (first == taken_) ready_.notify_one();
    }
  }

  std::function<Result(std::size_t)> read_;
  const std::size_t count_;
  std::mutex mutex_;
  std::condition_variable ready_;
  std::condition_variable room_;
  std::deque<std::optional<Result>> results_;  ///< of the items from `taken_` on that are begun
  std::size_t begun_ = 0;
  std::atomic<std::size_t> taken_ = 0;
  std::atomic<bool> ends_ = false;
  std::vector<std::thread> threads_;  // last: they use all other members
};

}  // namespace orvex
