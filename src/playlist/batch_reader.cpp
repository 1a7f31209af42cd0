#include "playlist/batch_reader.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <new>

#include "playlist/row_filling.h"

namespace qublet {
namespace {

constexpr std::size_t kWorthThreads = 16;  // fewer files are read sooner than threads start
constexpr std::size_t kPart = 16;
constexpr std::chrono::milliseconds kShowEvery{25};

}  // namespace

BatchReader::BatchReader(const FileSystem& files, int first_order, std::string thousands_separator)
    : BatchReader(first_order, [reader = std::make_shared<RowReader>(files, std::move(thousands_separator))](
                                   std::size_t, const std::string& path, int original_order, Row& row) {
        reader->Read(path, original_order, row);
      }) {}

void BatchReader::Add(std::span<const std::string> paths) {
  added_ += paths.size();
  {
    const std::lock_guard lock(mutex_);
    while (!paths.empty()) {
      const auto part = paths.first(std::min(paths.size(), kPart));
      parts_.push_back({{part.begin(), part.end()}, next_order_, {}});
      next_order_ += static_cast<int>(part.size());
      paths = paths.subspan(part.size());
    }
  }
  if (threads_.empty() && added_ >= kWorthThreads) StartThreads();
  changed_.notify_all();
}

void BatchReader::StartThreads() {
  const unsigned count = std::max(2u, std::thread::hardware_concurrency());
  // A system that allows no (more) threads leaves the work to those there are.
  ResumeNext([&] {
    for (unsigned i = 0; i < count; ++i) threads_.emplace_back([this] { Work([] {}); });
  });
}

void BatchReader::Work(const std::function<void()>& file_read) {
  while (Part* part = TakePart()) {
    try {
      MakeRows(*part, file_read);
    } catch (const std::bad_alloc&) {
      wants_memory_ = given_up_ = true;
    }
  }
  const std::lock_guard lock(mutex_);
  ++ended_;
  changed_.notify_all();
}

void BatchReader::MakeRows(Part& part, const std::function<void()>& file_read) {
  int order = part.first_order;
  for (const std::string& path : part.paths) {
    if (given_up_) return;
    part.rows.push_back(std::make_unique<Row>());
    Row& row = *part.rows.back();
    // A row that couldn't be filled to its end stays as it is; the batch goes on.
    Attempt([&] { make_row_(static_cast<std::size_t>(order - first_order_), path, order, row); }).MindMemory();
    ++order;
    ++done_;
    file_read();
  }
}

BatchReader::Part* BatchReader::TakePart() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return complete_ || taken_ < parts_.size(); });
  return taken_ < parts_.size() && !given_up_ ? &parts_[taken_++] : nullptr;
}

void BatchReader::ReadHere(Feedback& feedback) {
  Work([&] {
    feedback.ShowProgress(static_cast<int>(done_));
    if (feedback.Stopped()) given_up_ = true;
  });
}

void BatchReader::WaitForThreads(Feedback& feedback) {
  std::unique_lock lock(mutex_);
  while (!given_up_ && !changed_.wait_for(lock, kShowEvery, [&] { return ended_ >= threads_.size(); })) {
    lock.unlock();
    feedback.ShowProgress(static_cast<int>(done_));
    if (feedback.Stopped()) given_up_ = true;
    lock.lock();
  }
}

std::vector<std::unique_ptr<Row>> BatchReader::Finish(Feedback& feedback) {
  Complete();
  threads_.empty() ? ReadHere(feedback) : WaitForThreads(feedback);
  feedback.ShowProgress(static_cast<int>(done_));
  if (wants_memory_) throw std::bad_alloc();
  if (given_up_ || feedback.Stopped()) return {};

  std::vector<std::unique_ptr<Row>> rows;
  rows.reserve(done_);
  for (Part& part : parts_) std::move(part.rows.begin(), part.rows.end(), std::back_inserter(rows));
  return rows;
}

void BatchReader::Complete() {
  const std::lock_guard lock(mutex_);
  complete_ = true;
  changed_.notify_all();
}

BatchReader::~BatchReader() {
  given_up_ = true;
  Complete();
}

}  // namespace qublet
