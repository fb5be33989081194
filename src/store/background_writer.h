#pragma once

#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <thread>
#include <type_traits>
#include <utility>

namespace orvex {

/// A thread that does one job after the other, so that nobody waits for a slow disk. Where only the
/// newest of a series counts, its owner holds that one and the job takes it, if it is still there.
class BackgroundWriter {
 public:
  BackgroundWriter() : thread_([this] { Run(); }) {}
  /// What was handed over is done.
  ~BackgroundWriter();
  BackgroundWriter(const BackgroundWriter&) = delete;
  BackgroundWriter& operator=(const BackgroundWriter&) = delete;

  /// Has `job` done after those before it. Its result can be waited for, or ignored.
  template <typename Job>
  auto Do(Job job) {
    std::packaged_task<std::invoke_result_t<Job&>()> task(std::move(job));
    auto result = task.get_future();
    Add(std::packaged_task<void()>(std::move(task)));
    return result;
  }
  /// Waits until everything handed over is done.
  void Await();
  /// Nothing is left to do.
  bool IsIdle() const;

 private:
  void Add(std::packaged_task<void()> job);
  void Run();

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::packaged_task<void()>> jobs_;  ///< the first until it is done
  bool ends_ = false;
  std::thread thread_;  // last: it uses all the others
};

}  // namespace orvex
