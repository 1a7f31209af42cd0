#include "journal/run_records.h"

#include <algorithm>

namespace qublet {
namespace {

constexpr std::size_t kLengthSize = 4;
constexpr std::size_t kSumSize = 8;
static_assert(kRoundRecord == kLengthSize + kSumSize);

// Fewer bytes only at the end of the file.
Bytes ReadPiece(InputFile& file, std::int64_t offset, std::size_t length) {
  const std::int64_t room = std::max<std::int64_t>(file.Size() - offset, 0);
  Bytes bytes(std::min(length, static_cast<std::size_t>(room)));
  bytes.resize(file.ReadAt(offset, bytes));
  return bytes;
}

}  // namespace

void AppendLong(Bytes& out, std::uint64_t value) {
  AppendNumber(out, static_cast<std::uint32_t>(value >> 32), 4);
  AppendNumber(out, static_cast<std::uint32_t>(value), 4);
}

void AppendPiece(Bytes& out, BytesView piece) {
  AppendNumber(out, static_cast<std::uint32_t>(piece.size()), 4);
  Append(out, piece);
}

std::uint64_t SumOf(BytesView bytes, std::uint64_t sum) {
  for (const std::uint8_t byte : bytes) sum = (sum ^ byte) * 0x100000001B3;  // FNV-1a
  return sum;
}

Bytes AsRecord(Bytes content) {
  const std::uint64_t sum = SumOf(content);
  Bytes length;
  AppendNumber(length, static_cast<std::uint32_t>(content.size()), 4);
  AppendLong(content, sum);
  content.insert(content.begin(), length.begin(), length.end());
  return content;
}

BytesView Taker::Take(std::size_t length) {
  if (length > rest_.size()) throw Failure("a record of a run is damaged");
  const BytesView taken = rest_.first(length);
  rest_ = rest_.subspan(length);
  return taken;
}

std::uint64_t Taker::Long() {
  const std::uint64_t high = Number();
  return high << 32 | Number();
}

Bytes Taker::Piece() {
  const BytesView piece = Take(Number());
  return {piece.begin(), piece.end()};
}

RunRecords::RunRecords(const RunKind& kind, std::unique_ptr<InputFile> file)
    : file_(std::move(file)), head_(ReadRunHead(kind, *file_)) {
  end_ = static_cast<std::int64_t>(RunHeader(kind, head_).size());
  while (end_ + static_cast<std::int64_t>(kLengthSize) <= file_->Size()) {
    const std::uint32_t length = ReadNumber(ReadPiece(*file_, end_, kLengthSize));
    const std::int64_t offset = end_ + static_cast<std::int64_t>(kLengthSize);
    if (offset + length + static_cast<std::int64_t>(kSumSize) > file_->Size()) break;
    places_.push_back({offset, length});
    end_ = offset + length + static_cast<std::int64_t>(kSumSize);
  }
}

Bytes RunRecords::At(std::size_t index) const {
  const Place& place = places_.at(index);
  Bytes content = ReadPiece(*file_, place.offset, place.length);
  if (Taker(ReadPiece(*file_, place.offset + place.length, kSumSize)).Long() != SumOf(content))
    throw Failure("a record of a run is damaged");
  return content;
}

}  // namespace qublet
