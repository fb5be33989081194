#include "store/background_writer.h"

namespace orvex {

BackgroundWriter::~BackgroundWriter() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void BackgroundWriter::Add(std::packaged_task<void()> job) {
  {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::move(job));
  }
  changed_.notify_all();
}

void BackgroundWriter::Await() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return jobs_.empty(); });
}

bool BackgroundWriter::IsIdle() const {
  const std::lock_guard lock(mutex_);
  return jobs_.empty();
}

void BackgroundWriter::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return ends_ || !jobs_.empty(); });
    if (jobs_.empty()) return;
    auto job = std::move(jobs_.front());  // an empty job stays in front while this one runs
    lock.unlock();
    job();
    job = {};
    lock.lock();
    jobs_.pop_front();
    changed_.notify_all();
  }
}

}  // namespace orvex
