#pragma once

#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <thread>
#include <type_traits>
#include <utility>

namespace orvex {

/// A thread that runs jobs one after the other, so that nobody waits for a slow disk. If only the
/// newest of several contents matters, the owner holds it and the job takes it when it runs.
class BackgroundWriter {
 public:
  BackgroundWriter() : thread_([this] { Run(); }) {}
  /// Runs all remaining jobs first.
  ~BackgroundWriter();
  BackgroundWriter(const BackgroundWriter&) = delete;
  BackgroundWriter& operator=(const BackgroundWriter&) = delete;

  /// Queues `job` behind the earlier ones. Its result can be awaited or ignored.
  template <typename Job>
  auto Do(Job job) {
    std::packaged_task<std::invoke_result_t<Job&>()> task(std::move(job));
    auto result = task.get_future();
    Add(std::packaged_task<void()>(std::move(task)));
    return result;
  }
  /// Waits until all queued jobs are done.
  void Await();
  /// True when no job is waiting or running.
  bool IsIdle() const;

 private:
  void Add(std::packaged_task<void()> job);
  void Run();

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::packaged_task<void()>> jobs_;  ///< a job stays in front until it is done
  bool ends_ = false;
  std::thread thread_;  // last: it uses all other members
};

}  // namespace orvex
