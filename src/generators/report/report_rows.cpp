#include "generators/report/report_rows.h"

#include <algorithm>

namespace qublet {
namespace {

constexpr std::size_t kPart = 32;  // fewer are made sooner than threads start
constexpr std::size_t kMostAhead = 8;

}  // namespace

ReportRows::ReportRows(std::size_t count, const Make& make) : count_(count), make_(make) {
  if (PartCount() < 2) return;
  const unsigned threads = std::max(2u, std::thread::hardware_concurrency());
  // A system that allows no (more) threads leaves the work to those there are.
  ResumeNext([&] {
    for (unsigned i = 0; i < threads; ++i) threads_.emplace_back([this] { Work(); });
  });
}

ReportRows::~ReportRows() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_all();
}

std::size_t ReportRows::PartCount() const {
  return (count_ + kPart - 1) / kPart;
}

ReportRows::Part ReportRows::MakePart(std::size_t number) const {
  const std::size_t end = std::min(count_, (number + 1) * kPart);
  Part part;
  part.reserve(kPart);
  for (std::size_t place = number * kPart; place < end; ++place) part.push_back(make_(place));
  return part;
}

// What goes wrong here is the trouble of whoever asks for the rows.
void ReportRows::Work() {
  try {
    MakeParts();
  } catch (...) {
    const std::lock_guard lock(mutex_);
    broken_ = std::current_exception();
  }
  changed_.notify_all();
}

void ReportRows::MakeParts() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [&] { return ended_ || taken_ == PartCount() || taken_ < given_ + kMostAhead; });
    if (ended_ || taken_ == PartCount()) return;
    const std::size_t number = taken_++;
    ahead_.emplace_back();
    lock.unlock();
    Part part = MakePart(number);
    lock.lock();
    ahead_[number - given_] = std::move(part);
    changed_.notify_all();
  }
}

ReportRows::Part ReportRows::NextPart() {
  if (threads_.empty()) return MakePart(given_++);
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return broken_ || (!ahead_.empty() && ahead_.front().has_value()); });
  if (broken_) std::rethrow_exception(broken_);
  Part part = std::move(*ahead_.front());
  ahead_.pop_front();
  ++given_;
  lock.unlock();
  changed_.notify_all();
  return part;
}

ReportRow ReportRows::Next() {
  if (next_ == part_.size()) {
    part_ = NextPart();
    next_ = 0;
  }
  return std::move(part_[next_++]);
}

}  // namespace qublet
