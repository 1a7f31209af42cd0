#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "generators/report/report_item.h"

namespace qublet {

// A row of a report as it is made ahead.
struct ReportRow {
  ReportFacts facts;
  std::string bytes;                // as they stand in the file
  std::optional<ReportItem> waits;  // instead, for the row before: it has to be told first
};

// Makes rows ahead by a thread for each processor, a few hundred at most, and gives them in their order.
class ReportRows {
 public:
  // `make` gives the row at a place, from 0, on any thread, and outlives this. What it throws is thrown by Next.
  using Make = std::function<ReportRow(std::size_t place)>;

  ReportRows(std::size_t count, const Make& make);
  ~ReportRows();
  ReportRows(const ReportRows&) = delete;
  ReportRows& operator=(const ReportRows&) = delete;

  // To be called once for each place.
  ReportRow Next();

 private:
  // What a thread makes at once.
  using Part = std::vector<ReportRow>;

  void Work();
  void MakeParts();
  Part MakePart(std::size_t number) const;
  Part NextPart();
  std::size_t PartCount() const;

  const std::size_t count_;
  const Make& make_;

  Part part_;             // the one that is being given
  std::size_t next_ = 0;  // row of it

  std::mutex mutex_;  // of what stands below
  std::condition_variable changed_;
  std::deque<std::optional<Part>> ahead_;  // from the next one on
  std::size_t given_ = 0;                  // parts
  std::size_t taken_ = 0;
  bool ended_ = false;
  std::exception_ptr broken_;
  std::vector<std::jthread> threads_;  // the last member: they end before what they use
};

}  // namespace qublet
