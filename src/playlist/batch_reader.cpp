#include "playlist/batch_reader.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "playlist/row_filling.h"

namespace qublet {
namespace {

constexpr std::size_t kWorthThreads = 16;  // fewer files are read sooner than threads start
constexpr std::chrono::milliseconds kShowEvery{25};

// The shared work of one batch: each thread takes the next path from the end.
class Batch {
 public:
  Batch(const FileSystem& files, const std::vector<std::string>& paths, int first_order,
        const std::string& thousands_separator)
      : files_(files),
        paths_(paths),
        first_order_(first_order),
        thousands_separator_(thousands_separator),
        rows_(paths.size()),
        left_(paths.size()) {}

  // Makes rows until none is left; safe from several threads.
  void Work() {
    for (std::size_t taken = left_.fetch_sub(1); taken > 0 && taken <= paths_.size(); taken = left_.fetch_sub(1)) {
      const std::size_t i = taken - 1;
      // A row that couldn't be filled to its end stays as it is; the batch goes on.
      ReadRow(files_, paths_[i], first_order_ + static_cast<int>(i), thousands_separator_, rows_[i]);
      if (done_.fetch_add(1) + 1 == paths_.size()) {
        const std::lock_guard lock(mutex_);
        finished_.notify_all();
      }
    }
  }

  void WaitAndShow(Feedback& feedback) {
    std::unique_lock lock(mutex_);
    while (!finished_.wait_for(lock, kShowEvery, [&] { return done_ == paths_.size(); })) {
      lock.unlock();
      feedback.ShowProgress(static_cast<int>(done_));
      lock.lock();
    }
  }

  std::vector<Row> TakeRows() { return std::move(rows_); }

 private:
  const FileSystem& files_;
  const std::vector<std::string>& paths_;
  const int first_order_;
  const std::string& thousands_separator_;
  std::vector<Row> rows_;
  std::atomic<std::size_t> left_;
  std::atomic<std::size_t> done_{0};
  std::mutex mutex_;
  std::condition_variable finished_;
};

}  // namespace

std::vector<Row> ReadRows(const FileSystem& files, const std::vector<std::string>& paths, int first_order,
                          const std::string& thousands_separator, Feedback& feedback) {
  Batch batch(files, paths, first_order, thousands_separator);
  if (paths.size() < kWorthThreads) {
    batch.Work();
  } else {
    std::vector<std::jthread> threads;
    const unsigned count = std::max(2u, std::thread::hardware_concurrency());
    for (unsigned i = 0; i < count; ++i) threads.emplace_back([&] { batch.Work(); });
    batch.WaitAndShow(feedback);
  }
  feedback.ShowProgress(static_cast<int>(paths.size()));
  return batch.TakeRows();
}

}  // namespace qublet
