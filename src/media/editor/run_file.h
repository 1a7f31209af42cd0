#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "media/editor/tag_journal.h"

namespace qublet {

// The files that runs are kept in, "00000012.run", later "00000012.undone": three lines (what it is, the time, who),
// then a record for each file that was changed.

struct RunFile {
  int number = 0;
  bool undone = false;
  std::string path;
};

// The folder of the runs, made when missing, with a trailing "\". Throws Failure.
std::string RunFolder(const FileSystem& files);
// In ascending order of their numbers. Throws Failure.
std::vector<RunFile> RunFiles(const FileSystem& files, const std::string& folder);
std::string RunFileName(int number, bool undone);

// One changed file.
struct RunRecord {
  std::string path;
  std::int64_t before = 0;
  std::int64_t size = 0;  // of the whole file before
  Bytes old_head, old_tail;
  std::uint32_t new_head = 0, new_tail = 0;  // lengths
  std::uint64_t new_sum = 0;
};

std::string RunHeader(const std::string& time, const std::string& origin);
Bytes RunRecordBytes(const TagWrite& write);
std::uint64_t SumOf(BytesView bytes, std::uint64_t sum = 0xCBF29CE484222325);

// The lines that a run's file begins with.
struct RunHead {
  std::string time;
  std::string origin;
};
// Throws Failure, also for a file that is no run.
RunHead ReadRunHead(InputFile& file);

// A run's file, read. What a kill has cut off at its end counts as never written.
class RunReader {
 public:
  // Throws Failure, also for a file that is no run.
  explicit RunReader(std::unique_ptr<InputFile> file);

  const RunHead& Head() const { return head_; }
  std::size_t Count() const { return places_.size(); }
  // Throws Failure for a damaged record.
  RunRecord At(std::size_t index) const;

 private:
  struct Place {
    std::int64_t offset;
    std::uint32_t length;
  };
  std::unique_ptr<InputFile> file_;
  RunHead head_;
  std::vector<Place> places_;
};

}  // namespace qublet
