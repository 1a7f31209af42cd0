#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/row_store.h"

namespace qublet {

// Reads the media facts of a batch of files ahead, by a thread for each processor, and makes a row of each. Reading
// goes on while the paths of further files are still being found.
class BatchReader {
 public:
  // Makes the row of path `place` (from 0) in any of the threads; outlives the reader.
  using MakeRow = std::function<void(std::size_t place, const std::string& path, int original_order, Row& row)>;

  // Path i (from 0) gets the original order `first_order` + i. Nothing is started yet.
  BatchReader(int first_order, MakeRow make_row)
      : make_row_(std::move(make_row)), first_order_(first_order), next_order_(first_order) {}
  // Rows as RowReader makes them.
  BatchReader(const FileSystem& files, int first_order, std::string thousands_separator);
  // Files that no thread has taken by then aren't read.
  ~BatchReader();
  BatchReader(const BatchReader&) = delete;
  BatchReader& operator=(const BatchReader&) = delete;

  // Appends paths to the batch.
  void Add(std::span<const std::string> paths);
  // Waits for the whole batch and gives its rows in the order of the paths; to be called once, at the end. Meanwhile
  // this thread shows the count of finished rows, at least every few hundredths of a second, so that the window stays
  // painted. No rows come of a batch that the user stops. Throws std::bad_alloc where memory was wanting for one of
  // them: what is in the list may be saved over what it came from, so it is all or nothing.
  std::vector<std::unique_ptr<Row>> Finish(Feedback& feedback);

 private:
  // What a thread takes at once.
  struct Part {
    std::vector<std::string> paths;
    int first_order = 0;
    std::vector<std::unique_ptr<Row>> rows;
  };

  void StartThreads();
  void Work(const std::function<void()>& file_read);
  void MakeRows(Part& part, const std::function<void()>& file_read);
  void ReadHere(Feedback& feedback);
  void WaitForThreads(Feedback& feedback);
  Part* TakePart();  // waits for one; nothing when there will be no more
  void Complete();   // no more parts will come

  const MakeRow make_row_;
  const int first_order_;
  int next_order_;
  std::size_t added_ = 0;
  std::atomic<std::size_t> done_{0};
  std::atomic<bool> given_up_{false};
  std::atomic<bool> wants_memory_{false};

  std::mutex mutex_;  // of what stands below
  std::condition_variable changed_;
  std::deque<Part> parts_;  // a deque, because those that are being read stay in their place when more come
  std::size_t taken_ = 0;
  bool complete_ = false;
  std::size_t ended_ = 0;  // threads

  std::vector<std::jthread> threads_;  // the last member: they end before what they use
};

}  // namespace qublet
