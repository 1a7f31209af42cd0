#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "journal/run_files.h"
#include "media/id3/bytes.h"

namespace qublet {

// The records of a run's file, each with its length in front and its sum behind.

void AppendLong(Bytes& out, std::uint64_t value);
void AppendPiece(Bytes& out, BytesView piece);
std::uint64_t SumOf(BytesView bytes, std::uint64_t sum = 0xCBF29CE484222325);
// As it stands in the file. Where the content has kRoundRecord bytes of room left, it costs no copy.
Bytes AsRecord(Bytes content);
inline constexpr std::size_t kRoundRecord = 12;

// Takes what AppendNumber (of four bytes), AppendLong and AppendPiece wrote. Throws Failure where that isn't there.
class Taker {
 public:
  explicit Taker(BytesView bytes) : rest_(bytes) {}

  bool IsEmpty() const { return rest_.empty(); }
  std::uint32_t Number() { return ReadNumber(Take(4)); }
  std::uint64_t Long();
  Bytes Piece();

 private:
  BytesView Take(std::size_t length);

  BytesView rest_;
};

// A run's file, read. What a kill has cut off at its end counts as never written.
class RunRecords {
 public:
  // Throws Failure, also for a file that is no such run.
  RunRecords(const RunKind& kind, std::unique_ptr<InputFile> file);

  const RunHead& Head() const { return head_; }
  std::size_t Count() const { return places_.size(); }
  // Throws Failure for a damaged record.
  Bytes At(std::size_t index) const;
  // Where the next record is to stand.
  std::int64_t End() const { return end_; }

 private:
  struct Place {
    std::int64_t offset;
    std::uint32_t length;
  };
  std::unique_ptr<InputFile> file_;
  RunHead head_;
  std::vector<Place> places_;
  std::int64_t end_ = 0;
};

}  // namespace qublet
