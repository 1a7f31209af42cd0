#include "playlist/batch_reader.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include "playlist/row_filling.h"

namespace qublet {
namespace {

constexpr std::size_t kWorthThreads = 16;  // fewer files are read sooner than threads start
constexpr std::size_t kPart = 16;
constexpr std::chrono::milliseconds kShowEvery{25};

}  // namespace

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
    for (unsigned i = 0; i < count; ++i) threads_.emplace_back([this] { Work(); });
  });
}

void BatchReader::Work() {
  while (Part* part = TakePart()) {
    int order = part->first_order;
    for (const std::string& path : part->paths) {
      part->rows.push_back(std::make_unique<Row>());
      // A row that couldn't be filled to its end stays as it is; the batch goes on.
      ReadRow(files_, path, order++, thousands_separator_, *part->rows.back());
      ++done_;
    }
  }
  const std::lock_guard lock(mutex_);
  ++ended_;
  changed_.notify_all();
}

BatchReader::Part* BatchReader::TakePart() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return complete_ || taken_ < parts_.size(); });
  return taken_ < parts_.size() ? &parts_[taken_++] : nullptr;
}

std::vector<std::unique_ptr<Row>> BatchReader::Finish(Feedback& feedback) {
  std::unique_lock lock(mutex_);
  complete_ = true;
  changed_.notify_all();
  if (threads_.empty()) {
    lock.unlock();
    Work();
    lock.lock();
  }
  while (!changed_.wait_for(lock, kShowEvery, [&] { return ended_ >= threads_.size(); })) {
    lock.unlock();
    feedback.ShowProgress(static_cast<int>(done_));
    lock.lock();
  }
  lock.unlock();
  feedback.ShowProgress(static_cast<int>(done_));

  std::vector<std::unique_ptr<Row>> rows;
  rows.reserve(done_);
  for (Part& part : parts_) std::move(part.rows.begin(), part.rows.end(), std::back_inserter(rows));
  return rows;
}

BatchReader::~BatchReader() {
  const std::lock_guard lock(mutex_);
  complete_ = true;
  taken_ = parts_.size();
  changed_.notify_all();
}

}  // namespace qublet
