#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
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
  /// `read` makes the result of an item. It is called from several threads at once. What it throws
  /// is thrown again where the result is taken. Threads that the system does not grant are done
  /// without; if there are none, the results are made where they are taken.
  OrderedReading(std::size_t count, std::function<Result(std::size_t item)> read,
                 std::size_t threads = std::max(1U, std::thread::hardware_concurrency()))
      : read_(std::move(read)), count_(count), slots_(std::min(count, kMostAhead + kPortion)) {
    threads = std::min(threads, count);
    threads_.reserve(threads);
    try {
      while (threads_.size() < threads) threads_.emplace_back([this] { Work(); });
    } catch (const std::exception&) {
      // Those that there are do the work.
    }
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

  /// Waits for the next result; nothing when all have been taken.
  std::optional<Result> Take() {
    if (taken_ == count_) return std::nullopt;
    if (threads_.empty()) return read_(taken_++);
    std::unique_lock lock(mutex_);
    ready_.wait(lock, [this] { return SlotOf(taken_).IsFilled(); });
    Slot slot = std::exchange(SlotOf(taken_), {});
    ++taken_;
    const bool roomAgain = begun_ < count_ && taken_ % kPortion == 0;
    lock.unlock();
    if (roomAgain) room_.notify_all();
    if (slot.error) std::rethrow_exception(slot.error);
    return std::move(slot.result);
  }

 private:
  /// How many items the threads may be ahead of the taker.
  static constexpr std::size_t kMostAhead = 256;
  /// How many items a thread begins with at once, so that threads seldom wait for each other.
  static constexpr std::size_t kPortion = 16;

  /// What has become of an item: its result, or what was thrown instead.
  struct Slot {
    std::optional<Result> result;
    std::exception_ptr error;

    bool IsFilled() const { return result || error; }
  };
  Slot& SlotOf(std::size_t item) { return slots_[item % slots_.size()]; }

  Slot Read(std::size_t item) const {
    try {
      return {read_(item), nullptr};
    } catch (...) {
      return {std::nullopt, std::current_exception()};
    }
  }

  void Work() {
    std::array<Slot, kPortion> portion;
    std::unique_lock lock(mutex_);
    for (;;) {
      room_.wait(lock, [this] { return begun_ == count_ || begun_ < taken_ + kMostAhead; });
      if (begun_ == count_) return;
      const std::size_t first = begun_;
      begun_ = std::min(begun_ + kPortion, count_);
      const std::size_t end = begun_;
      lock.unlock();
      for (std::size_t item = first; item < end && !ends_; ++item)
        portion[item - first] = Read(item);
      lock.lock();
      if (ends_) return;
      for (std::size_t item = first; item < end; ++item)
        SlotOf(item) = std::move(portion[item - first]);
      if (first == taken_) ready_.notify_one();
    }
  }

  std::function<Result(std::size_t)> read_;
  const std::size_t count_;
  std::mutex mutex_;
  std::condition_variable ready_;
  std::condition_variable room_;
  std::vector<Slot> slots_;  ///< of the items from `taken_` on that are begun
  std::size_t begun_ = 0;
  std::atomic<std::size_t> taken_ = 0;
  std::atomic<bool> ends_ = false;
  std::vector<std::thread> threads_;  // last: they use all other members
};

}  // namespace orvex
